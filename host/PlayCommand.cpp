#include "host/PlayCommand.h"

#include <filesystem>

#include "host/play/Player.h"
#include "host/play/Story.h"

namespace koru {

bool PlayStories(const std::vector<std::string>& files, const StageMaker& makeStage, const TrialRoute& route,
                 std::ostream& report) {
  std::vector<Story> stories;
  stories.reserve(files.size());
  for (const std::string& file : files) stories.push_back(ReadStory(file, Player::Patterns()));
  std::size_t failed = 0;
  for (const Story& story : stories) {
    const std::string failure = Player(story, makeStage, route).Play();
    if (failure.empty()) {
      const std::string name = std::filesystem::path(story.file).stem().string();
      report << "ok  " << name << "  " << story.steps.size() << " steps" << std::endl;
    } else {
      report << "FAILED " << failure << std::endl;
      ++failed;
    }
  }
  report << stories.size() - failed << " passed, " << failed << " failed" << std::endl;
  return failed == 0;
}

}  // namespace koru
