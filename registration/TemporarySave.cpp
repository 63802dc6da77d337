#include "registration/TemporarySave.h"

#include <utility>

#include "services/Permission.h"

namespace koru {

TemporarySave::TemporarySave(const CountingControls& controls, SharedState& shared,
                             std::function<void()> disablelockcomponent)
    : controls_(controls),
      shared_(shared),
      disablelockcomponent_(std::move(disablelockcomponent)),
      writer_(controls_, shared_, disablelockcomponent_) {}

void TemporarySave::Run() {
  if (!CheckPermission(shared_, FormPermission::TemporarySave)) return;
  const Hourglass busy(shared_.services.screen);
  const auto group = shared_.data.BeginWriteBatch();
  // What is being entered has no number yet. One that a failed registration left on the form would let Return
  // move the numbers of other countings.
  if (shared_.DocMode != DocumentMode::Viewing) controls_.txtCode.SetText("");
  writer_.Write();
  writer_.Finish(*group);
}

}  // namespace koru
