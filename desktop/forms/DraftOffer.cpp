#include "desktop/forms/DraftOffer.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace koru {

// The widgets belong to their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
DraftOffer::DraftOffer(QWidget* parent) : QFrame(parent), sentence_(new QLabel(this)) {
  setObjectName(QStringLiteral("draftOffer"));
  setStyleSheet(QStringLiteral(
      "QFrame#draftOffer { background: #FFF6DC; border: 1px solid #D9B65B; border-radius: 4px; }"
      "QFrame#draftOffer QLabel { color: #3B2F0B; }"));
  sentence_->setObjectName(QStringLiteral("draftSentence"));
  sentence_->setTextFormat(Qt::PlainText);
  sentence_->setWordWrap(true);
  auto* const bar = new QHBoxLayout(this);
  bar->addWidget(sentence_, 1);
  const auto add = [&](const char* name, const QString& caption) {
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true);
    bar->addWidget(button);
    return button;
  };
  restore_ = add("restoreDraft", QStringLiteral("بازگرداندن"));
  auto* const discard = add("discardDraft", QStringLiteral("دور ريختن"));
  auto* const later = add("leaveDraft", QStringLiteral("بعداً (Esc)"));
  connect(restore_, &QPushButton::clicked, this, &DraftOffer::restoreWanted);
  connect(discard, &QPushButton::clicked, this, &DraftOffer::discardWanted);
  connect(later, &QPushButton::clicked, this, &DraftOffer::Leave);
  hide();
}
// NOLINTEND(cppcoreguidelines-owning-memory)

void DraftOffer::Offer(const QString& sentence) {
  sentence_->setText(sentence);
  show();
  restore_->setFocus(Qt::OtherFocusReason);
}

void DraftOffer::Leave() {
  hide();
  emit leftForLater();
}

void DraftOffer::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    Leave();
  } else {
    QFrame::keyPressEvent(event);
  }
}

}  // namespace koru
