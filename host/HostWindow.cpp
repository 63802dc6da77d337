#include "host/HostWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/sqlite/SqliteConnector.h"
#include "desktop/fields/Fields.h"
#include "desktop/forms/FormWindow.h"
#include "desktop/toolkit/FileChoice.h"
#include "desktop/toolkit/HelpKey.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"
#include "platform/sql/ConnectionText.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr QSize kDefaultSize(1000, 620);
constexpr int kUserWidth = 200;
constexpr int kNumberWidth = 140;

/// The database as it is shown: the file, or the connection text without its password.
QString DatabaseName(const std::string& connection) {
  const ConnectionText text = ConnectionText::Parse(connection);
  const std::string file = text.Get("Data Source");
  return ToQt(EqualsNoCase(text.Get("Provider"), "SQLite") && !file.empty() ? file : text.WithoutPassword());
}

}  // namespace

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
HostWindow::HostWindow(HostSession& session)
    : session_(session),
      control_(new comInvCountingWidget(session.Services(), this)),
      users_(new QComboBox(this)),
      database_(new QLabel(this)),
      number_(new QLineEdit(this)) {
  setObjectName(QStringLiteral("host"));
  setWindowTitle(QStringLiteral("شمارش انبار"));
  control_->setObjectName(QStringLiteral("comInvCounting"));
  control_->hide();  // until its database has been read, or the list would report the same failure again
  control_->ReadProperties(session_.Properties());
  connect(control_, &comInvCountingWidget::propertyChanged, this, &HostWindow::KeepProperties);
  auto* const layout = new QVBoxLayout(this);
  AddSignIn(*layout);
  AddDoors(*layout);
  layout->addWidget(control_, 1);
  resize(FirstSize(kDefaultSize));
}

void HostWindow::AddSignIn(QVBoxLayout& window) {
  users_->setObjectName(QStringLiteral("users"));
  users_->setMinimumWidth(kUserWidth);
  KeepFromWheel(*users_);
  database_->setObjectName(QStringLiteral("database"));
  database_->setTextFormat(Qt::PlainText);
  database_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  database_->setLayoutDirection(Qt::LeftToRight);
  database_->setSizePolicy(QSizePolicy::Ignored,
                           QSizePolicy::Preferred);  // a long path must not widen the window
  auto* const choose = new QPushButton(QStringLiteral("پايگاه داده..."), this);
  choose->setObjectName(QStringLiteral("chooseDatabase"));
  auto* const user = new QLabel(QStringLiteral("كاربر"), this);
  user->setBuddy(users_);
  auto* const bar = new QHBoxLayout;
  bar->addWidget(user);
  bar->addWidget(users_);
  bar->addWidget(database_, 1);
  bar->addWidget(choose);
  window.addLayout(bar);
  connect(users_, &QComboBox::activated, this,
          [this](int index) { control_->SetUserID(users_->itemData(index).toInt()); });
  connect(choose, &QPushButton::clicked, this, &HostWindow::ChooseDatabase);
}

void HostWindow::AddDoors(QVBoxLayout& window) {
  number_->setObjectName(QStringLiteral("number"));
  number_->setPlaceholderText(QStringLiteral("شماره رايانه اي"));
  number_->setMaximumWidth(kNumberWidth);
  KeepDigitsLatin(*number_);
  auto* const create = new QPushButton(QStringLiteral("شمارش جديد"), this);
  auto* const open = new QPushButton(QStringLiteral("باز كردن"), this);
  create->setObjectName(QStringLiteral("new"));
  create->setProperty("main", true);
  create->setShortcut(QKeySequence::New);
  create->setToolTip(QStringLiteral("Ctrl+N"));
  // An underlined letter would break the joining of a Persian word, so a key of its own leads to the number.
  number_->setToolTip(QStringLiteral("Ctrl+O"));
  connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, number_,
          [this] { number_->setFocus(); });
  open->setObjectName(QStringLiteral("open"));
  auto* const help = new QPushButton(QStringLiteral("راهنمايي"), this);
  help->setObjectName(QStringLiteral("help"));
  help->setToolTip(QStringLiteral("F1"));
  auto* const bar = new QHBoxLayout;
  bar->addWidget(create);
  bar->addWidget(help);
  bar->addStretch();
  bar->addWidget(number_);
  bar->addWidget(open);
  window.addLayout(bar);
  connect(help, &QPushButton::clicked, this, [this] { PressHelpKey(*this); });
  connect(create, &QPushButton::clicked, control_, &comInvCountingWidget::ClearShow);
  connect(open, &QPushButton::clicked, this, &HostWindow::OpenByNumber);
  connect(number_, &QLineEdit::returnPressed, this, &HostWindow::OpenByNumber);
}
// NOLINTEND(cppcoreguidelines-owning-memory)

void HostWindow::ReadDatabase() {
  control_->hide();
  users_->clear();
  Try([this] {
    database_->setText(DatabaseName(FromQt(control_->OLEConnectionString())));
    ShowUsers();
    control_->show();
  });
}

void HostWindow::ShowUsers() {
  const auto users = session_.Users(FromQt(control_->OLEConnectionString()));
  for (const HostSession::User& user : users) users_->addItem(ToQt(user.name), user.id);
  int signedIn = users_->findData(control_->UserID());
  if (signedIn < 0 && !users.empty()) {
    const auto first = std::ranges::min_element(users, {}, &HostSession::User::id);
    signedIn = static_cast<int>(first - users.begin());
    control_->SetUserID(first->id);
  }
  users_->setCurrentIndex(signedIn);
}

void HostWindow::ChooseDatabase() {
  const QString current = database_->text();
  const QString file =
      AskForFile({QStringLiteral("انتخاب پايگاه داده"), QFileInfo::exists(current) ? current : QString(),
                  QStringLiteral("پايگاه داده (*.db);;همة پرونده ها (*)")},
                 this);
  if (file.isEmpty()) return;
  Try([&] {
    const std::string connection = EmbeddedConnectionText(FromQt(file));
    session_.TestConnection(connection);  // the old one stays when this one is not usable
    control_->SetOLEConnectionString(ToQt(connection));
    if (FromQt(control_->OLEConnectionString()) == connection) ReadDatabase();
  });
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

void HostWindow::KeepProperties() {
  Try([this] {
    control_->WriteProperties(session_.Properties());
    session_.SaveProperties();
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
