#include "documents/TemporarySave.h"

#include <utility>

#include "control/services/Permission.h"

namespace koru {

TemporarySave::TemporarySave(const CountingControls& controls, SharedState& shared,
                             std::function<void()> disablelockcomponent)
    : controls_(controls),
      shared_(shared),
      disablelockcomponent_(std::move(disablelockcomponent)),
      writer_(controls_, shared_, disablelockcomponent_) {}

void TemporarySave::Run() {
  if (!MayDo(shared_, FormPermission::TemporarySave)) return;
  const Hourglass busy(shared_.surroundings.screen);
  const auto group = shared_.data.BeginWriteGroup();
  writer_.Write();
  group->Finish();
}

}  // namespace koru
