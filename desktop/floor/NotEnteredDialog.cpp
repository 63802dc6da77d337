#include "desktop/floor/NotEnteredDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/fields/Fields.h"
#include "desktop/floor/FloorLog.h"
#include "desktop/floor/LogView.h"
#include "desktop/toolkit/WindowPlace.h"

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(880, 380);

constexpr const char* kKeptBySave =
    " فهرست زير در «رويدادها»ي «شمارش با گوشي» هم هست، و رقم\u200cهاي آن با ثبت بعدي 30 روز كنار "
    "مي\u200cماند.";
constexpr const char* kKeptAlready =
    " فهرست زير در «رويدادها»ي «شمارش با گوشي» هم هست. رقم\u200cهاي آن پيش از اين كنار گذاشته شد و تا 30 "
    "روز پس از آن روز مي\u200cماند.";

}  // namespace

NotEnteredDialog::NotEnteredDialog(const QString& sentence, bool areAside, FloorLog& figures, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("notEntered"));
  setWindowTitle(QStringLiteral("رقم\u200cهايي كه وارد نشد"));
  auto* const layout = new QVBoxLayout(this);
  auto* const label =
      new QLabel(RightToLeft(sentence + QString::fromUtf8(areAside ? kKeptAlready : kKeptBySave)), this);
  label->setObjectName(QStringLiteral("notEnteredSentence"));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMargin(2);  // some letters reach beyond their line
  layout->addWidget(label);
  auto* const table = new LogView(figures, this);
  table->setObjectName(QStringLiteral("notEnteredTable"));
  table->setAccessibleName(windowTitle());
  table->hideColumn(FloorLog::Time);
  table->resizeColumnToContents(FloorLog::State);
  layout->addWidget(table, 1);
  auto* const bar = new QHBoxLayout;
  layout->addLayout(bar);
  auto* const close = new QPushButton(QStringLiteral("بستن (Esc)"), this);
  close->setObjectName(QStringLiteral("notEnteredClose"));
  close->setDefault(true);
  bar->addStretch();
  bar->addWidget(close);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  resize(FirstSize(kDefaultSize));
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
