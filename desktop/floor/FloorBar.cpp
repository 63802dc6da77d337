#include "desktop/floor/FloorBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "counting/frmInvCounting.h"
#include "desktop/fields/Fields.h"
#include "desktop/floor/FloorDesk.h"

namespace koru {

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
FloorBar::FloorBar(FloorDesk& desk, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      sentence_(NewNotice({}, this)),
      left_(new QPushButton(QStringLiteral("رقم\u200cهاي مانده..."), this)),
      show_(new QPushButton(QStringLiteral("كدها و دستگاه\u200cها..."), this)),
      stop_(new QPushButton(QStringLiteral("بستن شمارش با گوشي"), this)) {
  setObjectName(QStringLiteral("floorBar"));
  sentence_->setObjectName(QStringLiteral("floorSentence"));
  left_->setObjectName(QStringLiteral("floorLeft"));
  show_->setObjectName(QStringLiteral("floorShow"));
  stop_->setObjectName(QStringLiteral("floorStop"));
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(sentence_, 1);
  layout->addWidget(left_);
  layout->addWidget(show_);
  layout->addWidget(stop_);
  const auto run = [&desk](auto command) {
    return [&desk, command] { desk.Counting().RunEvent([&desk, command] { (desk.*command)(); }); };
  };
  connect(left_, &QPushButton::clicked, this, run(&FloorDesk::OfferLeft));
  connect(show_, &QPushButton::clicked, this, run(&FloorDesk::Open));
  connect(stop_, &QPushButton::clicked, this, run(&FloorDesk::Stop));
  connect(&desk, &FloorDesk::changed, this, &FloorBar::Show);
  hide();
}
// NOLINTEND(cppcoreguidelines-owning-memory)

void FloorBar::Show() {
  FloorSession* const session = desk_.Session();
  const bool isServed = desk_.IsServed();
  const bool hasLeft = session != nullptr && !session->Left().Cells().empty();
  setVisible(isServed || hasLeft);
  if (!isServed && !hasLeft) return;
  QString text = desk_.Summary();
  if (!desk_.JournalFailure().isEmpty()) text += QStringLiteral(" دفتر رقم\u200cها نوشته نمي\u200cشود.");
  const QString shown = RightToLeft(text);
  if (sentence_->text() != shown) sentence_->setText(shown);
  left_->setVisible(hasLeft);
  show_->setVisible(isServed);
  stop_->setVisible(isServed);
}

}  // namespace koru
