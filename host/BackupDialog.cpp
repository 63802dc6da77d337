#include "host/BackupDialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/fields/Fields.h"
#include "desktop/toolkit/FileChoice.h"
#include "desktop/toolkit/QtText.h"
#include "host/BackupProgressDialog.h"
#include "host/Backups.h"
#include "host/HostSession.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"

// The widgets belong to their dialog, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr int kTextWidth = 520;

QLabel* NewText(const QString& text, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(kTextWidth);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

BackupDialog::BackupDialog(HostSession& session, std::optional<std::filesystem::path> database,
                           QWidget* parent)
    : QDialog(parent), session_(session), database_(std::move(database)) {
  setObjectName(QStringLiteral("backup"));
  setWindowTitle(QStringLiteral("پشتيبان گيري"));
  auto* const window = new QVBoxLayout(this);
  AddChoices(*window);
  AddButtons(*window);
}

void BackupDialog::AddChoices(QVBoxLayout& window) {
  if (!database_) {
    window.addWidget(NewText(
        QStringLiteral("پشتيبان پايگاه دادة سرور با ابزار خود سرور گرفته مي\u200cشود. از مدير سرور بخواهيد."),
        this));
    return;
  }
  window.addWidget(NewText(ToQt("از پروندة " + LeftToRight(TextOf(*database_)) +
                                " رونوشتي گرفته و آزموده مي\u200cشود. كار ديگران نگه داشته نمي\u200cشود."),
                           this));
  window.addWidget(NewText(
      QStringLiteral("براي بازيابي، «پايگاه داده...» و «باز كردن پرونده...» را بزنيد و پشتيبان را باز كنيد."),
      this));
  automatic_ = new QCheckBox(QStringLiteral("پيش از هر ثبت نهايي، خودكار پشتيبان گرفته شود"), this);
  automatic_->setObjectName(QStringLiteral("automatic"));
  automatic_->setChecked(session_.Settings().BacksUpBeforeRegistration());
  window.addWidget(automatic_);
  auto* const where = NewText(
      ToQt("ده پشتيبان خودكار آخر در پوشة " +
           LeftToRight(TextOf(AutomaticBackup(*database_, BackupProgressDialog::Now()).parent_path())) +
           " نگه داشته مي\u200cشوند."),
      this);
  where->setProperty("hint", true);
  window.addWidget(where);
  outcome_ = NewNotice({}, this);
  outcome_->setObjectName(QStringLiteral("outcome"));
  outcome_->setTextFormat(Qt::PlainText);
  outcome_->setWordWrap(true);
  outcome_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  outcome_->hide();
  window.addWidget(outcome_);
  connect(automatic_, &QCheckBox::toggled, this, &BackupDialog::KeepAutomatic);
}

void BackupDialog::AddButtons(QVBoxLayout& window) {
  auto* const bar = new QHBoxLayout;
  take_ = new QPushButton(QStringLiteral("گرفتن پشتيبان..."), this);
  take_->setObjectName(QStringLiteral("take"));
  take_->setProperty("main", true);
  take_->setDefault(true);
  take_->setVisible(database_.has_value());
  auto* const close = new QPushButton(QStringLiteral("بستن (Esc)"), this);
  close->setObjectName(QStringLiteral("close"));
  bar->addStretch();
  bar->addWidget(take_);
  bar->addWidget(close);
  window.addLayout(bar);
  connect(take_, &QPushButton::clicked, this, &BackupDialog::AskAndBackUp);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

void BackupDialog::AskAndBackUp() {
  const std::filesystem::path proposed =
      database_->parent_path() / PathOf(BackupName(*database_, BackupProgressDialog::Now()));
  const QString file = AskWhereToSave({QStringLiteral("گرفتن پشتيبان"), ToQt(TextOf(proposed)),
                                       QStringLiteral("پايگاه داده (*.db);;همة پرونده ها (*)")},
                                      QStringLiteral("db"), this);
  if (!file.isEmpty()) BackUpTo(PathOf(FromQt(file)));
}

void BackupDialog::BackUpTo(const std::filesystem::path& file) {
  std::string sentence = "پشتيبان لغو شد و چيزي نوشته نشد.";
  try {
    if (BackupProgressDialog(this).Run(*database_, file) == BackupOutcome::Done)
      sentence = "پشتيبان گرفته و آزموده شد: " + LeftToRight(TextOf(file));
  } catch (const std::exception& failure) {
    sentence = failure.what();
  }
  outcome_->setText(ToQt(sentence));
  outcome_->show();
}

void BackupDialog::KeepAutomatic(bool does) {
  try {
    session_.Settings().SetBacksUpBeforeRegistration(does);
    session_.Settings().Write();
  } catch (const std::exception& failure) {
    session_.ShowFailure(failure);
  }
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
