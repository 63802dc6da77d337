#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/play/StoryWorld.h"

namespace koru {

/// Plays stories one after the other, each on a stage and a database of its own. Reports one line a story and
/// a last line with the counts. True when all passed. Every story is read before the first is played: throws
/// InputError for one that cannot be read.
[[nodiscard]] bool PlayStories(const std::vector<std::string>& files, const StageMaker& makeStage,
                               const TrialRoute& route, std::ostream& report);

}  // namespace koru
