#include "desktop/floor/UnsavedFigures.h"

namespace koru {

SentFigures::SentFigures(const std::vector<FloorDevice>& devices) {
  for (const FloorDevice& device : devices) {
    received += device.received;
    refused += device.refused;
  }
}

/// The session learns of a save by the same tick; its listener was there before.
UnsavedFigures::UnsavedFigures(frmInvCounting& form, const FloorSession& session)
    : form_(form), session_(session), ticked_(form.Timer1.Tick.Subscribe([this] {
        if (!session_.HasUnsaved()) saved_ = Entered();
      })) {}

std::int64_t UnsavedFigures::Entered() const {
  const SentFigures sent(session_.Devices());
  return sent.received - sent.refused;
}

std::int64_t UnsavedFigures::SetAsideByCancel() const {
  const bool holdsAll = form_.EntryIsWritten() && session_.Left().Cells().empty();
  return session_.HasUnsaved() && !holdsAll ? Entered() - saved_ : 0;
}

}  // namespace koru
