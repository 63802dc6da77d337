#include "desktop/floor/LeftFiguresDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/floor/FloorDesk.h"
#include "desktop/floor/FloorTable.h"
#include "desktop/floor/FloorTexts.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(760, 420);
constexpr int kGood = 1;  ///< the column of the names

}  // namespace

LeftFiguresDialog::LeftFiguresDialog(const std::vector<LeftFigures::Cell>& cells, GoodNames& names,
                                     const FloorDesk& desk)
    : QDialog(&desk.Window()) {
  setObjectName(QStringLiteral("leftFigures"));
  setWindowTitle(QStringLiteral("رقم\u200cهاي مانده از گوشي\u200cها"));
  auto* const layout = new QVBoxLayout(this);
  auto* const sentence = new QLabel(
      QStringLiteral(
          "اين رقم\u200cها از گوشي\u200cها رسيده بود، ولي در اين شمارش نيست: برنامه پيش از ثبت بسته "
          "شد، يا كنار گذاشته شد. خانه\u200cهايي كه پس از آن در ميز نوشته شده است، نوشتة خود را نگه "
          "مي\u200cدارد."),
      this);
  sentence->setWordWrap(true);
  sentence->setMargin(2);  // some letters reach beyond their line
  layout->addWidget(sentence);
  auto* const table =
      new FloorTable({QStringLiteral("شمارش"), QStringLiteral("كالا"), QStringLiteral("باركد"),
                      QStringLiteral("رقم"), QStringLiteral("دستگاه"), QStringLiteral("زمان")},
                     kGood, this);
  table->setObjectName(QStringLiteral("leftTable"));
  table->setAccessibleName(QStringLiteral("رقم\u200cهاي مانده"));
  std::vector<QStringList> rows;
  rows.reserve(cells.size());
  for (const LeftFigures::Cell& cell : cells) {
    rows.push_back({TitleOfCount(cell.count), ToQt(names.Of(cell.line.barcode)), ToQt(cell.line.barcode),
                    desk.Hides(cell.count) ? QStringLiteral("پنهان") : ToQt(cell.text),
                    ToQt(desk.Session()->ShownName(cell.count, cell.device)), TimeText(cell.time)});
  }
  table->ShowRows(rows);
  layout->addWidget(table, 1);
  auto* const bar = new QHBoxLayout;
  layout->addLayout(bar);
  const auto add = [&](const char* name, const QString& caption, Choice choice) {
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true);
    bar->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, choice] {
      chosen_ = choice;
      accept();
    });
    return button;
  };
  auto* const take = add("takeLeft", QStringLiteral("وارد كردن رقم\u200cها"), Choice::Take);
  take->setProperty("main", true);
  add("forgoLeft",
      desk.Session()->SaveSetsLeftAside() ? QStringLiteral("صرف نظر (30 روز كنار مي\u200cماند)")
                                          : QStringLiteral("صرف نظر (كنار گذاشته مي\u200cماند)"),
      Choice::Forgo);
  add("decideLater", QStringLiteral("بعداً (Esc)"), Choice::Later);
  bar->addStretch();
  take->setDefault(true);
  take->setFocus();
  resize(FirstSize(kDefaultSize));
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
