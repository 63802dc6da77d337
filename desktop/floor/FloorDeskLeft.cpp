// Figures that an earlier session has left, or that a Cancel sets aside: FloorDesk's part that asks and
// reports.

#include <utility>

#include "counting/frmInvCounting.h"
#include "desktop/floor/FloorDesk.h"
#include "desktop/floor/FloorTexts.h"
#include "desktop/floor/LeftFiguresDialog.h"
#include "desktop/toolkit/QtText.h"

namespace koru {

/// A journal that a program has left, without its figures in the counting that is now being changed.
void FloorDesk::OfferAtEdit() {
  if (!FloorSession::MayBegin(form_, form_.Shared())) {
    isOffered_ = false;
    return;
  }
  if (std::exchange(isOffered_, true) || !journals_.Has(Owner())) return;
  form_.RunEvent([this] {
    Begin();
    OfferLeft();
  });
}

/// A session that the desk has stopped would enter nothing: it is opened again.
void FloorDesk::OfferLeft() {
  if (session_ == nullptr || session_->Left().Cells().empty()) return;
  if (FloorSession::MayBegin(form_, form_.Shared())) Begin();
  if (session_->Left().Cells().empty() && !session_->TakeBackSetAside()) return;
  LeftFiguresDialog dialog(session_->Left().Cells(), names_, *this);
  dialog.exec();
  if (session_ == nullptr) return;  // the form was closed meanwhile
  if (dialog.Chosen() == LeftFiguresDialog::Choice::Take) {
    Replay();
  } else if (dialog.Chosen() == LeftFiguresDialog::Choice::Forgo) {
    Say(session_->ForgoLeft()
            ? QStringLiteral("رقم\u200cهاي مانده وارد نشد و 30 روز كنار مي\u200cماند.")
            : QStringLiteral("رقم\u200cهاي مانده كنار گذاشته نشد، چون روي ديسك نوشته نشد؛ هنوز مانده است."));
  }
  emit changed();
}

/// The entry may have ended while the figures were offered: then they are still left.
void FloorDesk::Replay() {
  const ReplayedFigures replayed = session_->Replay();
  if (session_->Left().Cells().empty()) return Say(SentenceOn(replayed));
  Say(QStringLiteral("رقم\u200cهاي مانده وارد نشد: اين شمارش اكنون در حال اصلاح نيست."));
}

void FloorDesk::TakeBackSetAside() {
  if (session_ == nullptr) return;
  if (!session_->Left().Cells().empty() || session_->TakeBackSetAside()) return OfferLeft();
  Say(QStringLiteral("از اين شمارش رقمي كنار گذاشته نشده است كه در سطرها نباشد."));
}

/// Before an entry is cancelled: the user learns what becomes of the counters' figures while it can still be
/// saved. Returns whether the user keeps it.
bool FloorDesk::KeepsEntry() const {
  const std::int64_t unsaved = unsaved_ ? unsaved_->SetAsideByCancel() : 0;
  if (unsaved <= 0) return false;
  const QString question =
      QStringLiteral(
          "%1 رقم گوشي\u200cها در اين شمارش ذخيره نشده است. با انصراف 30 روز كنار مي\u200cماند و پس "
          "از «اصلاح» همين شمارش، در «شمارش با گوشي» با «بازگرداندن كنارگذاشته\u200cها...» "
          "برمي\u200cگردد. آيا انصراف ادامه يابد؟")
          .arg(unsaved);
  return !Asks(FromQt(question));
}

}  // namespace koru
