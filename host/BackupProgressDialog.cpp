#include "host/BackupProgressDialog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace koru {
namespace {

constexpr int kBarWidth = 420;

}  // namespace

// The widgets belong to their dialog, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
BackupProgressDialog::BackupProgressDialog(QWidget* parent) : QDialog(parent), bar_(new QProgressBar(this)) {
  setObjectName(QStringLiteral("backupProgress"));
  setWindowTitle(QStringLiteral("پشتيبان گيري"));
  setModal(true);
  bar_->setRange(0, 100);
  bar_->setMinimumWidth(kBarWidth);
  auto* const stop = new QPushButton(QStringLiteral("لغو (Esc)"), this);
  stop->setObjectName(QStringLiteral("stop"));
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(QStringLiteral("پشتيبان گرفته و آزموده مي\u200cشود..."), this));
  layout->addWidget(bar_);
  layout->addWidget(stop, 0, Qt::AlignHCenter);
  connect(stop, &QPushButton::clicked, this, &QDialog::reject);
  connect(this, &QDialog::rejected, this, [this] { cancelled_ = true; });
}
// NOLINTEND(cppcoreguidelines-owning-memory)

BackupOutcome BackupProgressDialog::Run(const std::filesystem::path& database,
                                        const std::filesystem::path& to) {
  cancelled_ = false;
  show();
  return TakeBackup(database, to, [this](int percent) {
    bar_->setValue(percent);
    QCoreApplication::processEvents();
    return !cancelled_;
  });
}

BackupTime BackupProgressDialog::Now() {
  const QDateTime now = QDateTime::currentDateTime();
  const auto day = [](int number) { return static_cast<unsigned>(number); };
  return {std::chrono::year{now.date().year()} / std::chrono::month{day(now.date().month())} /
              std::chrono::day{day(now.date().day())},
          now.time().hour(), now.time().minute(), now.time().second()};
}

}  // namespace koru
