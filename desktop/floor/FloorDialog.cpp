#include "desktop/floor/FloorDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "counting/frmInvCounting.h"
#include "desktop/fields/Fields.h"
#include "desktop/floor/CountPanel.h"
#include "desktop/floor/FloorDesk.h"
#include "desktop/floor/FloorTable.h"
#include "desktop/floor/FloorTexts.h"
#include "desktop/floor/LogView.h"
#include "desktop/toolkit/FileChoice.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(880, 468);
constexpr int kUnknownBarcode = 0;  ///< the column of the list of unknown barcodes
constexpr int kDeviceName = 1;

QLabel* NewSentence(const QString& name, QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

FloorDialog::FloorDialog(FloorDesk& desk, QWidget* parent)
    : QDialog(parent),
      desk_(desk),
      summary_(NewSentence(QStringLiteral("floorSummary"), this)),
      pages_(new QTabWidget(this)) {
  setObjectName(QStringLiteral("floorDialog"));
  setWindowTitle(QStringLiteral("شمارش با گوشي"));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->setSpacing(6);
  layout->addWidget(summary_);
  pages_->setObjectName(QStringLiteral("floorPages"));
  pages_->addTab(NewCodesPage(), QStringLiteral("كدها"));
  pages_->addTab(NewDevicesPage(), QStringLiteral("دستگاه\u200cها"));
  pages_->addTab(NewUnknownPage(), QStringLiteral("باركدهاي بي\u200cسطر"));
  pages_->addTab(NewLogPage(), QStringLiteral("رويدادها"));
  layout->addWidget(pages_, 1);
  AddCommands(*layout);
  connect(&desk, &FloorDesk::changed, this, &FloorDialog::Show);
  connect(&desk, &FloorDesk::said, said_, [this](const QString& text) { said_->setText(RightToLeft(text)); });
  resize(FirstSize(kDefaultSize));
}

QWidget* FloorDialog::NewCodesPage() {
  auto* const page = new QWidget(this);
  auto* const layout = new QVBoxLayout(page);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->setSpacing(4);
  auto* const bar = new QHBoxLayout;
  layout->addLayout(bar);
  auto* const title = new QLabel(QStringLiteral("نشاني اين رايانه"), page);
  addresses_ = new QComboBox(page);
  addresses_->setObjectName(QStringLiteral("floorAddress"));
  addresses_->setAccessibleName(title->text());
  addresses_->setLayoutDirection(Qt::LeftToRight);
  addresses_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  title->setBuddy(addresses_);
  secure_ = new QCheckBox(QStringLiteral("كدها براي دوربين گوشي (https)"), page);
  secure_->setObjectName(QStringLiteral("floorSecure"));
  bar->addWidget(title);
  bar->addWidget(addresses_);
  bar->addStretch();
  bar->addWidget(secure_);
  auto* const counts = new QHBoxLayout;
  layout->addLayout(counts, 1);
  for (int count = 1; count <= kFloorCounts; ++count) {
    counts_.push_back(new CountPanel(desk_, count, page));
    counts->addWidget(counts_.back(), 1);
  }
  advice_ = NewSentence(QStringLiteral("floorAdvice"), page);
  layout->addWidget(advice_);
  connect(addresses_, &QComboBox::currentIndexChanged, this, &FloorDialog::ShowCodes);
  connect(secure_, &QCheckBox::toggled, this, &FloorDialog::SwitchToSecure);
  return page;
}

QWidget* FloorDialog::NewDevicesPage() {
  devices_ = new FloorTable({QStringLiteral("شمارش"), QStringLiteral("دستگاه"), QStringLiteral("آخرين تماس"),
                             QStringLiteral("رقم رسيده"), QStringLiteral("وارد نشده")},
                            kDeviceName, this);
  devices_->setObjectName(QStringLiteral("floorDevices"));
  devices_->setAccessibleName(QStringLiteral("دستگاه\u200cها"));
  return devices_;
}

QWidget* FloorDialog::NewUnknownPage() {
  auto* const page = new QWidget(this);
  auto* const layout = new QVBoxLayout(page);
  layout->setContentsMargins(6, 6, 6, 6);
  unknown_ = new FloorTable({QStringLiteral("باركد"), QStringLiteral("شمارش"), QStringLiteral("دستگاه")},
                            kUnknownBarcode, page);
  unknown_->setObjectName(QStringLiteral("floorUnknown"));
  unknown_->setAccessibleName(QStringLiteral("باركدهاي بي\u200cسطر"));
  layout->addWidget(unknown_, 1);
  addUnknown_ = new QPushButton(QStringLiteral("افزودن كالا به شمارش"), page);
  addUnknown_->setObjectName(QStringLiteral("floorAddUnknown"));
  auto* const bar = new QHBoxLayout;
  bar->addWidget(addUnknown_);
  bar->addStretch();
  layout->addLayout(bar);
  connect(addUnknown_, &QPushButton::clicked, this, [this] { Run(&FloorDialog::AddChosenUnknown); });
  connect(unknown_, &QTableWidget::itemSelectionChanged, this,
          [this] { addUnknown_->setEnabled(!ChosenUnknown().isEmpty()); });
  addUnknown_->setEnabled(false);
  return page;
}

QWidget* FloorDialog::NewLogPage() {
  auto* const page = new QWidget(this);
  auto* const layout = new QVBoxLayout(page);
  layout->setContentsMargins(6, 6, 6, 6);
  log_ = new LogView(desk_.Log(), page);
  log_->setObjectName(QStringLiteral("floorLog"));
  log_->setAccessibleName(QStringLiteral("رويدادها"));
  layout->addWidget(log_, 1);
  auto* const save = new QPushButton(QStringLiteral("ذخيره در پرونده..."), page);
  save->setObjectName(QStringLiteral("floorSaveLog"));
  auto* const bar = new QHBoxLayout;
  bar->addWidget(save);
  bar->addStretch();
  layout->addLayout(bar);
  connect(save, &QPushButton::clicked, this, [this] { Run(&FloorDialog::SaveLog); });
  // The latest entry stays in sight while it is.
  connect(&desk_.Log(), &QAbstractItemModel::rowsAboutToBeInserted, log_, [this] {
    const QScrollBar& bar = *log_->verticalScrollBar();
    log_->setProperty("atEnd", bar.value() == bar.maximum());
  });
  connect(&desk_.Log(), &QAbstractItemModel::rowsInserted, log_, [this] {
    if (log_->property("atEnd").toBool()) log_->scrollToBottom();
  });
  return page;
}

void FloorDialog::AddCommands(QBoxLayout& layout) {
  auto* const bar = new QHBoxLayout;
  layout.addLayout(bar);
  const auto add = [&](const char* name, const QString& caption) {
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    bar->addWidget(button);
    return button;
  };
  connect(add("floorDialogStop", QStringLiteral("بستن شمارش با گوشي")), &QPushButton::clicked, this,
          [this] { desk_.Counting().RunEvent([this] { desk_.Stop(); }); });
  connect(add("floorTakeBack", QStringLiteral("بازگرداندن كنارگذاشته\u200cها...")), &QPushButton::clicked,
          this, [this] { desk_.Counting().RunEvent([this] { desk_.TakeBackSetAside(); }); });
  said_ = NewSentence(QStringLiteral("floorSaid"), this);
  said_->setProperty("hint", true);
  bar->addWidget(said_, 1);
  QPushButton* const hide = add("floorHide", QStringLiteral("پنهان كردن (Esc)"));
  hide->setToolTip(QStringLiteral("شمارش با گوشي باز مي\u200cماند."));
  connect(hide, &QPushButton::clicked, this, &QDialog::reject);
}

void FloorDialog::Run(void (FloorDialog::*command)()) {
  desk_.Counting().RunEvent([this, command] { (this->*command)(); });
}

void FloorDialog::Appear() {
  ShowAddresses();
  show();
  raise();
  activateWindow();
  Show();
}

void FloorDialog::Leave() {
  isOver_ = true;
  hide();
  deleteLater();
}

/// Nothing is shown of a floor that is closed, nor while nobody looks.
void FloorDialog::Show() {
  if (isOver_ || !isVisible() || !desk_.IsServed()) return;
  QString text = desk_.Summary();
  if (!desk_.JournalFailure().isEmpty()) text += QChar(u' ') + desk_.JournalFailure();
  summary_->setText(RightToLeft(text));
  ShowAddresses();
  ShowCodes();
  ShowDevices();
  ShowUnknown();
}

/// The likeliest address is shown, unless the user has chosen another one that the machine still has.
void FloorDialog::ShowAddresses() {
  if (!desk_.IsServed()) return;
  QStringList now;
  for (const std::string& address : desk_.Server()->Addresses()) now.push_back(ToQt(address));
  QStringList shown;
  for (int at = 0; at < addresses_->count(); ++at) shown.push_back(addresses_->itemText(at));
  if (now == shown) return;
  const QString chosen = addresses_->currentIndex() > 0 ? addresses_->currentText() : QString();
  const QSignalBlocker quiet(addresses_);
  addresses_->clear();
  addresses_->addItems(now);
  addresses_->setCurrentIndex(std::max(0, static_cast<int>(now.indexOf(chosen))));
  addresses_->setEnabled(addresses_->count() > 1);
}

void FloorDialog::ShowCodes() {
  if (isOver_ || !desk_.IsServed()) return;
  for (CountPanel* const count : counts_) {
    count->ShowAddress(addresses_->currentText(), secure_->isChecked());
    count->ShowCounter();
  }
  advice_->setText(RightToLeft(
      secure_->isChecked()
          ? QStringLiteral(
                "مرورگر گوشي بار نخست هشدار مي\u200cدهد كه گواهي اين رايانه را نمي\u200cشناسد، چون "
                "برنامه آن را خود ساخته است: «پيشرفته» و سپس «ادامه» را بزنيد.")
          : QStringLiteral(
                "با http آنچه فرستاده مي\u200cشود رمز نمي\u200cشود: هر كس در شبكة بي\u200cسيم فروشگاه "
                "مي\u200cتواند نام كالا، رقم و كد را ببيند. دوربين گوشي فقط با https كار "
                "مي\u200cكند.")));
}

void FloorDialog::SwitchToSecure(bool secure) {
  if (secure) desk_.Counting().RunEvent([this] { desk_.OpenSecure(); });
  if (secure && !desk_.Server()->IsSecure()) {
    const QSignalBlocker quiet(secure_);
    secure_->setChecked(false);
  }
  ShowCodes();
}

void FloorDialog::ShowDevices() {
  std::vector<QStringList> rows;
  for (const FloorDevice& device : desk_.Session()->Devices()) {
    rows.push_back({TitleOfCount(device.count), ToQt(device.ShownName()), TimeText(device.lastContact),
                    QString::number(device.received), QString::number(device.refused)});
  }
  devices_->ShowRows(rows);
}

void FloorDialog::ShowUnknown() {
  FloorSession& session = *desk_.Session();
  std::vector<QStringList> rows;
  for (const UnknownBarcode& unknown : session.Unknown()) {
    rows.push_back({ToQt(unknown.barcode), TitleOfCount(unknown.count),
                    ToQt(session.ShownName(unknown.count, unknown.device))});
  }
  const QString chosen = ChosenUnknown();
  unknown_->ShowRows(rows);
  unknown_->Choose(kUnknownBarcode, chosen);
  addUnknown_->setEnabled(!ChosenUnknown().isEmpty());
  pages_->setTabText(2, rows.empty() ? QStringLiteral("باركدهاي بي\u200cسطر")
                                     : QStringLiteral("باركدهاي بي\u200cسطر (%1)").arg(rows.size()));
}

QString FloorDialog::ChosenUnknown() const { return unknown_->Chosen(kUnknownBarcode); }

void FloorDialog::AddChosenUnknown() {
  const QString chosen = ChosenUnknown();
  if (!chosen.isEmpty()) desk_.AddUnknown(FromQt(chosen));
}

void FloorDialog::SaveLog() {
  const QString file = AskWhereToSave(
      {QStringLiteral("ذخيرة رويدادهاي شمارش با گوشي"),
       QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + QStringLiteral("/floor.csv"),
       QStringLiteral("CSV (*.csv)")},
      QStringLiteral("csv"), this);
  if (file.isEmpty()) return;
  QSaveFile written(file);
  const QByteArray text = desk_.Log().Csv();
  if (!written.open(QIODevice::WriteOnly) || written.write(text) != text.size() || !written.commit()) {
    throw InputError("پروندة رويدادها نوشته نشد: " + LeftToRight(FromQt(file)) + " (" +
                     FromQt(written.errorString()) + ")");
  }
  said_->setText(RightToLeft(QStringLiteral("رويدادها ذخيره شد.")));
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
