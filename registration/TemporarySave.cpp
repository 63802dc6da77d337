#include "registration/TemporarySave.h"

#include "services/Permission.h"

namespace koru {

void TemporarySave::Run() {
  if (!CheckPermission(shared_, FormPermission::TemporarySave)) return;
  const Hourglass busy(shared_.services.screen);
  const auto batch = shared_.data.BeginWriteBatch();
  // A counting that is being entered has no number. A number that a failed registration left on the form
  // would make ReturnToTemporary renumber other countings.
  if (shared_.DocMode != DocumentMode::Viewing) controls_.txtCode.SetText("");
  writer_.Write();
  writer_.Finish(*batch);
}

}  // namespace koru
