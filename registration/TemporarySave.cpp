#include "registration/TemporarySave.h"

#include "services/Permission.h"

namespace koru {

bool TemporarySave::Run() {
  if (!CheckPermission(shared_, FormPermission::TemporarySave)) return false;
  const Hourglass busy(shared_.services.screen);
  return writer_.Save([this] {
    // A counting that is being entered has no number: one that a failed registration left on the form is
    // removed.
    if (shared_.DocMode != DocumentMode::Viewing) controls_.txtCode.SetText("");
    return writer_.Write();
  });
}

}  // namespace koru
