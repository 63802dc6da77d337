#include "host/StartPage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/fields/Fields.h"
#include "desktop/toolkit/QtText.h"
#include "host/ServerConnection.h"

namespace koru {
namespace {

constexpr int kMaxWidth = 760;
constexpr int kConnection = Qt::UserRole;

}  // namespace

// The widgets belong to their page, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
StartPage::StartPage(QWidget* parent) : QWidget(parent), sentence_(NewNotice({}, this)) {
  setObjectName(QStringLiteral("startPage"));
  sentence_->setObjectName(QStringLiteral("startSentence"));
  sentence_->setWordWrap(true);
  sentence_->setTextFormat(Qt::PlainText);
  sentence_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* const middle = new QWidget(this);
  middle->setMaximumWidth(kMaxWidth);
  auto* const page = new QVBoxLayout(middle);
  page->setSpacing(10);
  page->addStretch(0);
  auto* const title = new QLabel(QStringLiteral("با كدام پايگاه داده كار مي\u200cكنيد؟"), middle);
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * 1.4);
  title->setFont(large);
  page->addWidget(title);
  page->addWidget(sentence_);
  AddChoices(*page);
  AddRecent(*page);
  auto* const sides = new QHBoxLayout(this);
  sides->addStretch(1);
  sides->addWidget(middle, 100);
  sides->addStretch(1);
}

void StartPage::AddChoices(QVBoxLayout& page) {
  auto* const choices = new QGridLayout;
  choices->setHorizontalSpacing(12);
  choices->setVerticalSpacing(6);
  choices->setColumnStretch(1, 1);
  sample_ = AddChoice(*choices, "trySample", QStringLiteral("آزمودن با نمونه"),
                      QStringLiteral("كالاها، سندها و شمارش\u200cهاي يك شركت ساختگي، براي ياد گرفتن."));
  auto* const file = AddChoice(*choices, "openFile", QStringLiteral("باز كردن پرونده..."),
                               QStringLiteral("پروندة پايگاه داده\u200cاي كه داريد، يا يك پشتيبان از آن."));
  auto* const fresh = AddChoice(
      *choices, "newFile", QStringLiteral("پايگاه دادة خالي..."),
      QStringLiteral("پروندة تازه با يك كاربر؛ انبارها و كالاها را سيستم شما در آن مي\u200cنويسد."));
  auto* const server = AddChoice(*choices, "connectServer", QStringLiteral("اتصال به سرور..."),
                                 QStringLiteral("پايگاه دادة سيستم شما روي SQL Server."));
  page.addLayout(choices);
  connect(sample_, &QPushButton::clicked, this, &StartPage::sampleWanted);
  connect(file, &QPushButton::clicked, this, &StartPage::fileWanted);
  connect(fresh, &QPushButton::clicked, this, &StartPage::newFileWanted);
  connect(server, &QPushButton::clicked, this, &StartPage::serverWanted);
}

QPushButton* StartPage::AddChoice(QGridLayout& choices, const char* name, const QString& caption,
                                  const QString& description) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(true);
  auto* const text = new QLabel(description, this);
  text->setWordWrap(true);
  const int row = choices.rowCount();
  choices.addWidget(button, row, 0);
  choices.addWidget(text, row, 1);
  return button;
}

void StartPage::AddRecent(QVBoxLayout& page) {
  recentTitle_ = new QLabel(QStringLiteral("پايگاه\u200cهاي دادة اخير (Enter باز مي\u200cكند)"), this);
  recent_ = new QListWidget(this);
  recent_->setObjectName(QStringLiteral("recent"));
  recent_->setLayoutDirection(Qt::LeftToRight);
  recentTitle_->setBuddy(recent_);
  retry_ = new QPushButton(QStringLiteral("تلاش دوباره"), this);
  retry_->setObjectName(QStringLiteral("retry"));
  back_ = new QPushButton(QStringLiteral("بازگشت به فهرست (Esc)"), this);
  back_->setObjectName(QStringLiteral("back"));
  back_->setShortcut(Qt::Key_Escape);
  for (QPushButton* const button : {retry_, back_}) button->setAutoDefault(true);
  auto* const bar = new QHBoxLayout;
  bar->addWidget(retry_);
  bar->addWidget(back_);
  bar->addStretch();
  page.addWidget(recentTitle_);
  page.addWidget(recent_, 1);
  page.addLayout(bar);
  page.addStretch(0);
  connect(recent_, &QListWidget::itemActivated, this,
          [this](QListWidgetItem* item) { emit databaseWanted(item->data(kConnection).toString()); });
  connect(retry_, &QPushButton::clicked, this, &StartPage::retryWanted);
  connect(back_, &QPushButton::clicked, this, &StartPage::backWanted);
}

void StartPage::Show(const Offer& offer) {
  sentence_->setText(ToQt(offer.sentence));
  sentence_->setVisible(!offer.sentence.empty());
  recent_->clear();
  for (const std::string& connection : offer.recent) {
    auto* const item = new QListWidgetItem(ToQt(NameOfDatabase(connection)), recent_);
    item->setData(kConnection, ToQt(connection));
  }
  recentTitle_->setVisible(!offer.recent.empty());
  recent_->setVisible(!offer.recent.empty());
  retry_->setVisible(offer.wasTried && !offer.isOpen);
  back_->setVisible(offer.isOpen);
  QWidget* const first = offer.isOpen || offer.wasTried ? static_cast<QWidget*>(recent_) : sample_;
  if (recent_->count() > 0) recent_->setCurrentRow(0);
  (first == recent_ && recent_->count() == 0 ? sample_ : first)->setFocus();
}
// NOLINTEND(cppcoreguidelines-owning-memory)

}  // namespace koru
