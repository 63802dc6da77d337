#include "desktop/floor/CountPanel.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "counting/frmInvCounting.h"
#include "desktop/fields/Fields.h"
#include "desktop/floor/FloorDesk.h"
#include "desktop/floor/FloorTexts.h"
#include "desktop/floor/QrCodeView.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

/// A line may end after each part of the machine's name and before the code, not in the code: a hyphen there
/// would be taken for one that the line has added.
QString Breakable(const QString& url) {
  constexpr QChar kBreak(0x200B);
  constexpr QChar kJoin(0x2060);
  const auto code = url.indexOf(u'#');
  return url.left(code).replace(u'.', QString(u'.') + kBreak) + kBreak +
         url.mid(code).replace(u'-', QString(u'-') + kJoin);
}

}  // namespace

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
CountPanel::CountPanel(FloorDesk& desk, int count, QWidget* parent)
    : QGroupBox(TitleOfCount(count), parent),
      desk_(desk),
      count_(count),
      counter_(new QLabel(this)),
      code_(new QrCodeView(this)),
      url_(new QLabel(this)),
      copy_(new QPushButton(QStringLiteral("رونوشت نشاني"), this)),
      renew_(new QPushButton(QStringLiteral("كد تازه..."), this)) {
  const auto name = [count](const char* part) {
    return QStringLiteral("%1%2").arg(QLatin1String(part)).arg(count);
  };
  setObjectName(name("floorCount"));
  counter_->setObjectName(name("floorCounter"));
  counter_->setTextFormat(Qt::PlainText);
  counter_->setAlignment(Qt::AlignCenter);
  code_->setObjectName(name("floorCode"));
  code_->setAccessibleName(QStringLiteral("كد %1").arg(TitleOfCount(count)));
  url_->setObjectName(name("floorUrl"));
  url_->setProperty("value", true);
  url_->setTextFormat(Qt::PlainText);
  url_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));  // l, I and 1 are different
  url_->setWordWrap(true);
  url_->setLayoutDirection(Qt::LeftToRight);
  url_->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  copy_->setObjectName(name("floorCopy"));
  renew_->setObjectName(name("floorRenew"));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 0, 6, 0);
  layout->setSpacing(3);
  layout->addWidget(counter_);
  layout->addWidget(code_, 1);
  layout->addWidget(url_);
  auto* const bar = new QHBoxLayout;
  bar->addWidget(copy_);
  bar->addWidget(renew_);
  layout->addLayout(bar);
  connect(copy_, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(code_->Text()); });
  connect(renew_, &QPushButton::clicked, this,
          [this] { desk_.Counting().RunEvent([this] { desk_.RenewCode(count_); }); });
}
// NOLINTEND(cppcoreguidelines-owning-memory)

void CountPanel::ShowAddress(const QString& address, bool secure) {
  const QString url = ToQt(desk_.Server()->Url(count_, FromQt(address), secure));
  code_->SetText(url);
  const QString shown = Breakable(url);
  if (url_->text() != shown) url_->setText(shown);
}

void CountPanel::ShowCounter() {
  const std::vector<FloorDevice> devices = desk_.Session()->Devices();
  const auto mine = std::count_if(devices.begin(), devices.end(),
                                  [this](const FloorDevice& device) { return device.count == count_; });
  const QString counter = desk_.CounterOf(count_);
  const QString text =
      RightToLeft(QStringLiteral("%1، %2 دستگاه")
                      .arg(counter.isEmpty() ? QStringLiteral("بدون شمارشگر") : Isolated(counter))
                      .arg(mine));
  if (counter_->text() != text) counter_->setText(text);
}

}  // namespace koru
