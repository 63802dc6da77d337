// Figures that an earlier session has left, or that a Cancel or a save sets aside: FloorDesk's part that asks
// and reports.

#include <utility>

#include "counting/frmInvCounting.h"
#include "desktop/floor/FloorDesk.h"
#include "desktop/floor/FloorTexts.h"
#include "desktop/floor/LeftFiguresDialog.h"
#include "desktop/floor/NotEnteredDialog.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

constexpr const char* kQuestionOnJournal =
    "دفتر رقم\u200cهاي گوشي\u200cهاي اين شمارش باز نشده است و شايد رقم\u200cهايي دارد كه در اين شمارش "
    "نيست. شمارش نهايي ديگر آن\u200cها را نمي\u200cگيرد. آيا ثبت نهايي ادامه يابد؟";

/// Asked before a registration that as many left figures are not part of. `areAside`: they are kept already.
QString QuestionOnFinal(std::size_t left, bool areAside) {
  const QString question =
      areAside
          ? QStringLiteral(
                "%1 رقم گوشي\u200cها در اين شمارش نيست. پيش از اين كنار گذاشته شد و تا شمارش نهايي است "
                "وارد آن نمي\u200cشود. براي ديدن و وارد كردن آن\u200cها «خير» و سپس «رقم\u200cهاي "
                "مانده...» را بزنيد. آيا ثبت نهايي ادامه يابد؟")
          : QStringLiteral(
                "%1 رقم گوشي\u200cها در اين شمارش نيست. با ثبت نهايي 30 روز كنار مي\u200cماند و تا شمارش "
                "نهايي است وارد آن نمي\u200cشود. براي ديدن و وارد كردن آن\u200cها «خير» و سپس «رقم\u200cهاي "
                "مانده...» را بزنيد. آيا ثبت نهايي ادامه يابد؟");
  return question.arg(left);
}

/// The same before a temporary save, which sets them aside.
QString QuestionOnSave(std::size_t left) {
  return QStringLiteral(
             "%1 رقم گوشي\u200cها در اين شمارش نيست. با ثبت موقت 30 روز كنار مي\u200cماند و پس از «اصلاح» "
             "همين شمارش، در «شمارش با گوشي» با «بازگرداندن كنارگذاشته\u200cها...» برمي\u200cگردد. آيا ثبت "
             "موقت ادامه يابد؟")
      .arg(left);
}

/// A left figure that was not entered, as the log shows a figure that a device sends.
JournalFigure LogEntryOf(const NotEntered& left, FigureState why) {
  JournalFigure entry = left.Entered(left.now, left.message);
  entry.answer.state = why;
  entry.answer.text = left.now;
  return entry;
}

}  // namespace

/// A journal that a program has left, without its figures in the counting that is now being changed. Returns
/// whether figures have been offered.
bool FloorDesk::OfferAtEdit() {
  if (!FloorSession::MayBegin(form_, form_.Shared())) {
    isOffered_ = false;
    return false;
  }
  if (std::exchange(isOffered_, true) || !journals_.Has(Owner())) return false;
  bool wasOffered = false;
  form_.RunEvent([&] {
    Begin();
    wasOffered = OfferLeft();
  });
  return wasOffered;
}

/// What could not be read of the journal that the session has found: once, and before what could be is
/// offered.
void FloorDesk::ShowDamage() {
  const auto damage = session_ == nullptr ? std::nullopt : session_->TakeDamage();
  if (damage) form_.Shared().messages.ShowMessage(sentences::kWarning, FromQt(SentenceOn(*damage)));
}

/// A session that the desk has stopped would enter nothing: it is opened again.
bool FloorDesk::OfferLeft() {
  ShowDamage();
  if (session_ == nullptr || session_->Left().Cells().empty()) return false;
  if (FloorSession::MayBegin(form_, form_.Shared())) Begin();
  if (session_->Left().Cells().empty() && !session_->TakeBackSetAside()) return false;
  LeftFiguresDialog dialog(session_->Left().Cells(), names_, *this);
  dialog.exec();
  if (session_ == nullptr) return true;  // the form was closed meanwhile
  if (dialog.Chosen() == LeftFiguresDialog::Choice::Take) {
    Replay();
  } else if (dialog.Chosen() == LeftFiguresDialog::Choice::Forgo) {
    Forgo();
  }
  emit changed();
  return true;
}

void FloorDesk::Forgo() {
  const bool wereAside = !session_->SaveSetsLeftAside();
  if (!session_->ForgoLeft()) {
    return Say(QStringLiteral("رقم\u200cهاي مانده كنار گذاشته نشد، چون روي ديسك نوشته نشد؛ هنوز مانده است."));
  }
  Say(wereAside ? QStringLiteral("رقم\u200cهاي مانده وارد نشد و همچنان كنار گذاشته شده است.")
                : QStringLiteral("رقم\u200cهاي مانده وارد نشد و 30 روز كنار مي\u200cماند."));
}

/// The entry may have ended while the figures were offered: then they are still left.
void FloorDesk::Replay() {
  const bool wereAside = !session_->SaveSetsLeftAside();
  const ReplayedFigures replayed = session_->Replay();
  if (session_->Left().Cells().empty()) {
    Say(SentenceOn(replayed));
    return ShowNotEntered(replayed, wereAside);
  }
  Say(QStringLiteral("رقم\u200cهاي مانده وارد نشد: اين شمارش اكنون در حال اصلاح نيست."));
}

/// The numbers in the sentence name no line: the figures are listed, and are in the log.
void FloorDesk::ShowNotEntered(const ReplayedFigures& replayed, bool wereAside) {
  FloorLog listed(names_, [this](int count) { return Hides(count); });
  const auto add = [&](const std::vector<NotEntered>& figures, FigureState why) {
    for (const NotEntered& figure : figures) {
      const JournalFigure entry = LogEntryOf(figure, why);
      const std::string device = session_->ShownName(figure.count, figure.device);
      listed.Add(entry, device);
      log_.Add(entry, device);
    }
  };
  add(replayed.gone, FigureState::Gone);
  add(replayed.replaced, FigureState::Conflict);
  add(replayed.refused, FigureState::Refused);
  listed.ShowNew();
  if (listed.rowCount() == 0) return;
  log_.ShowNew();
  NotEnteredDialog(SentenceOn(replayed), wereAside, listed, &window_).exec();
}

void FloorDesk::TakeBackSetAside() {
  if (session_ == nullptr) return;
  if (!session_->Left().Cells().empty() || session_->TakeBackSetAside()) {
    OfferLeft();
    return;
  }
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

/// Before an entry is saved or registered that lacks figures of counters: the user learns what becomes of
/// them while they can still be taken. Returns whether the user keeps the entry. If they have not been
/// offered yet, they are now, and the command is to be given again when the lines with them have been seen.
bool FloorDesk::KeepsUnsaved(WantedSave wanted) {
  if (session_ == nullptr && OfferAtEdit()) return true;
  const bool isFinal = wanted == WantedSave::Final;
  if (session_ == nullptr) {  // a journal that another program has, or that cannot be read, outlives a save
    return isFinal && form_.CountingID() > 0 && journals_.Has(Owner()) && !Asks(kQuestionOnJournal);
  }
  const std::size_t left = session_->Left().Cells().size();
  const bool setsAside = session_->SaveSetsLeftAside();
  if (left == 0 || (!isFinal && !setsAside)) return false;
  return !Asks(FromQt(isFinal ? QuestionOnFinal(left, !setsAside) : QuestionOnSave(left)));
}

}  // namespace koru
