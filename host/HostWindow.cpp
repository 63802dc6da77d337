#include "host/HostWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/fields/Fields.h"
#include "desktop/forms/FormWindow.h"
#include "desktop/toolkit/HelpKey.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"
#include "host/AboutDialog.h"
#include "host/BackupDialog.h"
#include "host/Backups.h"
#include "host/CountingList.h"
#include "host/RegistrationBackup.h"
#include "host/ServerConnection.h"
#include "host/StartPage.h"

namespace koru {
namespace {

constexpr QSize kDefaultSize(1140, 640);
constexpr int kUserWidth = 170;
constexpr int kNumberWidth = 120;

}  // namespace

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
HostWindow::HostWindow(HostSession& session, std::filesystem::path sampleFile)
    : session_(session),
      sampleFile_(std::move(sampleFile)),
      sizes_(session.Settings()),
      pages_(new QStackedWidget(this)),
      control_(new comInvCountingWidget(ServicesOfControl(), this)) {
  setObjectName(QStringLiteral("host"));
  setWindowTitle(QStringLiteral("شمارش انبار"));
  control_->setObjectName(QStringLiteral("comInvCounting"));
  control_->HideList();
  control_->hide();  // until its database has been read, or the same failure would be reported again
  control_->ReadProperties(session_.Settings().Properties());
  connect(control_, &comInvCountingWidget::propertyChanged, this, &HostWindow::KeepProperties);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(pages_);
  AddStartPage();
  AddWorkPage();
  resize(FirstSize(kDefaultSize));
}

void HostWindow::AddStartPage() {
  start_ = new StartPage(this);
  pages_->addWidget(start_);
  connect(start_, &StartPage::sampleWanted, this, &HostWindow::UseSample);
  connect(start_, &StartPage::fileWanted, this, &HostWindow::UseFile);
  connect(start_, &StartPage::newFileWanted, this, &HostWindow::UseNewFile);
  connect(start_, &StartPage::serverWanted, this,
          [this] { UseServer(IsServer(Connection()) ? Connection() : std::string()); });
  connect(start_, &StartPage::databaseWanted, this,
          [this](const QString& connection) { UseRecent(FromQt(connection)); });
  connect(start_, &StartPage::retryWanted, this, &HostWindow::Start);
  connect(start_, &StartPage::backWanted, this, &HostWindow::ReadDatabase);
}

void HostWindow::AddWorkPage() {
  auto* const work = new QWidget(this);
  auto* const page = new QVBoxLayout(work);
  AddSignIn(*page);
  AddCommands(*page);
  page->addWidget(control_);
  countings_ = new CountingList(work);
  page->addWidget(countings_, 1);
  pages_->addWidget(work);
  connect(countings_, &CountingList::countingWanted, control_, &comInvCountingWidget::View);
  connect(control_, &comInvCountingWidget::listOutdated, this, &HostWindow::ReadCountings);
}

void HostWindow::AddSignIn(QBoxLayout& page) {
  users_ = new QComboBox(this);
  users_->setObjectName(QStringLiteral("users"));
  users_->setMinimumWidth(kUserWidth);
  KeepFromWheel(*users_);
  database_ = new QLabel(this);
  database_->setObjectName(QStringLiteral("database"));
  database_->setTextFormat(Qt::PlainText);
  database_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  database_->setLayoutDirection(Qt::LeftToRight);
  database_->setSizePolicy(QSizePolicy::Ignored,
                           QSizePolicy::Preferred);  // a long path must not widen the window
  auto* const user = new QLabel(QStringLiteral("كاربر"), this);
  user->setBuddy(users_);
  auto* const bar = new QHBoxLayout;
  bar->addWidget(user);
  bar->addWidget(users_);
  bar->addWidget(database_, 1);
  auto* const choose = AddCommand(*bar, "chooseDatabase", QStringLiteral("پايگاه داده..."), {});
  page.addLayout(bar);
  connect(users_, &QComboBox::activated, this,
          [this](int index) { control_->SetUserID(users_->itemData(index).toInt()); });
  connect(choose, &QPushButton::clicked, this, [this] { ShowStart({}); });
}

QPushButton* HostWindow::AddCommand(QBoxLayout& bar, const char* name, const QString& caption,
                                    const QKeySequence& key) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QLatin1String(name));
  button->setShortcut(key);
  button->setToolTip(key.toString());
  bar.addWidget(button);
  return button;
}

void HostWindow::AddCommands(QBoxLayout& page) {
  auto* const bar = new QHBoxLayout;
  auto* const create = AddCommand(*bar, "new", QStringLiteral("شمارش جديد"), QKeySequence::New);
  create->setProperty("main", true);
  number_ = new QLineEdit(this);
  number_->setObjectName(QStringLiteral("number"));
  number_->setPlaceholderText(QStringLiteral("شماره رايانه اي"));
  number_->setMaximumWidth(kNumberWidth);
  KeepDigitsLatin(*number_);
  // An underlined letter would break the joining of a Persian word, so a key of its own leads to the number.
  number_->setToolTip(QStringLiteral("Ctrl+O"));
  connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, number_,
          [this] { number_->setFocus(); });
  bar->addSpacing(12);
  bar->addWidget(number_);
  auto* const open = AddCommand(*bar, "open", QStringLiteral("باز كردن"), {});
  bar->addStretch();
  auto* const backup = AddCommand(*bar, "backUp", QStringLiteral("پشتيبان گيري..."), {});
  auto* const read = AddCommand(*bar, "refresh", QStringLiteral("تازه كردن"), QKeySequence(Qt::Key_F5));
  auto* const about = AddCommand(*bar, "aboutProgram", QStringLiteral("دربارة برنامه"), {});
  auto* const help = AddCommand(*bar, "help", QStringLiteral("راهنمايي"), {});
  help->setToolTip(QStringLiteral("F1"));
  page.addLayout(bar);
  connect(create, &QPushButton::clicked, control_, &comInvCountingWidget::BeginNew);
  connect(open, &QPushButton::clicked, this, &HostWindow::OpenByNumber);
  connect(number_, &QLineEdit::returnPressed, this, &HostWindow::OpenByNumber);
  connect(read, &QPushButton::clicked, this, &HostWindow::ReadCountings);
  connect(backup, &QPushButton::clicked, this, &HostWindow::ShowBackup);
  connect(about, &QPushButton::clicked, this, &HostWindow::ShowAbout);
  connect(help, &QPushButton::clicked, this, [this] { PressHelpKey(*this); });
}
// NOLINTEND(cppcoreguidelines-owning-memory)

std::string HostWindow::Connection() const { return FromQt(control_->OLEConnectionString()); }

void HostWindow::Start() {
  if (!IsConnection(Connection())) return ShowStart({});
  if (!LacksPassword(Connection())) return ReadDatabase();
  ShowStart("گذرواژة سرور نگه داشته نمي\u200cشود؛ براي اتصال دوباره آن را بنويسيد.");
  QMetaObject::invokeMethod(
      this, [this] { UseServer(Connection()); }, Qt::QueuedConnection);
}

void HostWindow::ReadDatabase() {
  isOpen_ = false;
  control_->hide();
  users_->clear();
  try {
    database_->setText(ToQt(NameOfDatabase(Connection())));
    ShowUsers();
    session_.Settings().RememberDatabase(Connection());
    KeepProperties();
    isOpen_ = true;
  } catch (const std::exception& failure) {
    return ShowStart(failure.what());
  }
  pages_->setCurrentIndex(pages_->indexOf(countings_->parentWidget()));
  countings_->FocusRows();
  control_->show();  // which reads the list, and may offer a draft
}

void HostWindow::ReadCountings() {
  try {
    countings_->Show(session_.Countings(Connection()));
  } catch (const std::exception& failure) {
    isOpen_ = false;
    control_->hide();
    ShowStart(failure.what());
  }
}

void HostWindow::ShowStart(const std::string& sentence) {
  start_->Show({sentence, session_.Settings().RecentDatabases(), isOpen_, IsConnection(Connection())});
  pages_->setCurrentWidget(start_);
}

void HostWindow::ShowUsers() {
  const auto users = session_.Users(Connection());
  for (const HostSession::User& user : users) users_->addItem(ToQt(user.name), user.id);
  int signedIn = users_->findData(control_->UserID());
  if (signedIn < 0 && !users.empty()) {
    const auto first = std::ranges::min_element(users, {}, &HostSession::User::id);
    signedIn = static_cast<int>(first - users.begin());
    control_->SetUserID(first->id);
  }
  users_->setCurrentIndex(signedIn);
}

void HostWindow::OpenByNumber() {
  bool isNumber = false;
  const int id = NumberTyped(number_->text()).trimmed().toInt(&isNumber);
  if (isNumber) {
    control_->View(id);
  } else {
    number_->setFocus();
    number_->selectAll();
  }
}

void HostWindow::ShowBackup() { BackupDialog(session_, EmbeddedFileOf(Connection()), this).exec(); }

HostServices HostWindow::ServicesOfControl() {
  HostServices services = session_.Services();
  services.beforeRegistration = [this] { return BackUpBeforeRegistration(session_, Connection()); };
  return services;
}

void HostWindow::ShowAbout() { AboutDialog(session_, this).exec(); }

void HostWindow::KeepProperties() {
  Try([this] {
    control_->WriteProperties(session_.Settings().Properties());
    session_.Settings().Write();
  });
}

void HostWindow::Try(const std::function<void()>& action) const {
  try {
    action();
  } catch (const std::exception& failure) {
    session_.ShowFailure(failure);
  }
}

/// A document that is being entered is not lost without a question: each form decides whether its window
/// closes.
void HostWindow::closeEvent(QCloseEvent* event) {
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    auto* const window = qobject_cast<FormWindow*>(widget);
    if (window == nullptr || !window->isVisible()) continue;
    window->ComeToFront();  // the question is about what it shows
    window->close();
    if (!window->isVisible()) continue;
    event->ignore();
    return;
  }
}

}  // namespace koru
