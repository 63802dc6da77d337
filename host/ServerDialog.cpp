#include "host/ServerDialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"

// The widgets belong to their dialog, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(620, 470);
constexpr QColor kWrong(0xA8, 0x1E, 0x16);

}  // namespace

ServerDialog::ServerDialog(HostSession& session, const std::string& connection, QWidget* parent)
    : QDialog(parent), session_(session), connection_(ReadServerConnection(connection)) {
  setObjectName(QStringLiteral("serverConnection"));
  setWindowTitle(QStringLiteral("اتصال به سرور"));
  auto* const window = new QVBoxLayout(this);
  auto* const form = new QFormLayout;
  AddFields(*form);
  window->addLayout(form);
  AddButtons(*window);
  resize(FirstSize(kDefaultSize));
  // What is missing comes first.
  const auto fields = {server_, database_, login_, password_};
  const auto* const empty = std::find_if(fields.begin(), fields.end(),
                                         [](const QLineEdit* field) { return field->text().isEmpty(); });
  (empty == fields.end() ? password_ : *empty)->setFocus();
}

QLineEdit* ServerDialog::NewField(const char* name, const std::string& text) {
  auto* const field = new QLineEdit(ToQt(text), this);
  field->setObjectName(QLatin1String(name));
  field->setLayoutDirection(Qt::LeftToRight);
  return field;
}

void ServerDialog::AddFields(QFormLayout& form) {
  server_ = NewField("server", connection_.server);
  server_->setPlaceholderText(QStringLiteral("192.168.1.10,1433"));
  database_ = NewField("databaseName", connection_.database);
  login_ = NewField("login", connection_.login);
  password_ = NewField("password", connection_.password);
  password_->setEchoMode(QLineEdit::Password);
  integrated_ = new QCheckBox(QStringLiteral("ورود با كاربر همين رايانه، بي گذرواژه"), this);
  integrated_->setObjectName(QStringLiteral("integrated"));
  form.addRow(QStringLiteral("سرور"), server_);
  form.addRow(QStringLiteral("پايگاه داده"), database_);
  form.addRow(QStringLiteral("كاربر سرور"), login_);
  form.addRow(QStringLiteral("گذرواژه"), password_);
  form.addRow({}, integrated_);
  auto* const note = new QLabel(
      QStringLiteral("گذرواژه جايي نوشته نمي\u200cشود؛ برنامه در هر آغاز آن را مي\u200cپرسد."), this);
  note->setProperty("hint", true);
  form.addRow({}, note);
  connect(integrated_, &QCheckBox::toggled, this, [this](bool is) {
    login_->setEnabled(!is);
    password_->setEnabled(!is);
  });
  integrated_->setChecked(connection_.integrated);
}

void ServerDialog::AddButtons(QVBoxLayout& window) {
  test_ = new QPushButton(QStringLiteral("آزمودن"), this);
  test_->setObjectName(QStringLiteral("test"));
  connect_ = new QPushButton(QStringLiteral("اتصال"), this);
  connect_->setObjectName(QStringLiteral("connect"));
  connect_->setProperty("main", true);
  connect_->setDefault(true);
  auto* const cancel = new QPushButton(QStringLiteral("انصراف (Esc)"), this);
  cancel->setObjectName(QStringLiteral("cancel"));
  outcome_ = new QLabel(this);
  outcome_->setObjectName(QStringLiteral("outcome"));
  outcome_->setTextFormat(Qt::PlainText);
  outcome_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  outcome_->setWordWrap(true);
  results_ = new QListWidget(this);
  results_->setObjectName(QStringLiteral("results"));
  results_->setWordWrap(true);
  busy_ = new QProgressBar(this);
  busy_->setRange(0, 0);  // how long a server takes is unknown
  busy_->setTextVisible(false);
  busy_->setMaximumHeight(8);
  window.addWidget(outcome_);
  window.addWidget(results_, 1);
  window.addWidget(busy_);
  auto* const bar = new QHBoxLayout;
  bar->addWidget(test_);
  bar->addStretch();
  bar->addWidget(connect_);
  bar->addWidget(cancel);
  window.addLayout(bar);
  busy_->hide();
  connect(test_, &QPushButton::clicked, this, &ServerDialog::Test);
  connect(connect_, &QPushButton::clicked, this, &ServerDialog::Connect);
  connect(cancel, &QPushButton::clicked, this, &ServerDialog::reject);
}

std::string ServerDialog::Ask() { return exec() == Accepted ? reached_ : std::string(); }

ServerConnection ServerDialog::Entered() const {
  ServerConnection entered = connection_;
  entered.server = FromQt(server_->text().trimmed());
  entered.database = FromQt(database_->text().trimmed());
  entered.login = FromQt(login_->text().trimmed());
  entered.password = FromQt(password_->text());
  entered.integrated = integrated_->isChecked();
  return entered;
}

void ServerDialog::Test() {
  Run(true, [this](const std::vector<CheckedThing>& things) { ShowResults(things); });
}

void ServerDialog::Connect() {
  reached_ = ConnectionTextOf(Entered());
  Run(false, [this](const std::vector<CheckedThing>& things) {
    if (things.empty()) return accept();
    results_->clear();
    outcome_->setText(ToQt(things.front().sentence));
  });
}

void ServerDialog::Run(bool all, const std::function<void(const std::vector<CheckedThing>&)>& done) {
  SetRunning(true);
  const auto things = std::make_shared<std::vector<CheckedThing>>();
  const auto work = [things, all, text = ConnectionTextOf(Entered()), &session = session_] {
    try {
      if (all) {
        *things = session.Check(text);
      } else {
        session.TestConnection(text);
      }
    } catch (const std::exception& failure) {
      things->push_back({{}, false, failure.what()});
    }
  };
  session_.Background().Run(work, *this, [this, things, done, all] {
    SetRunning(false);
    (all ? test_ : connect_)->setFocus();
    done(*things);
  });
}

void ServerDialog::ShowResults(const std::vector<CheckedThing>& things) {
  results_->clear();
  for (const CheckedThing& thing : things) {
    auto* const line = new QListWidgetItem(
        ToQt((thing.ok ? "✓ " : "✗ ") + (thing.what.empty() ? "" : thing.what + ": ") + thing.sentence),
        results_);
    if (!thing.ok) line->setForeground(kWrong);
  }
  const auto failed =
      std::count_if(things.begin(), things.end(), [](const auto& thing) { return !thing.ok; });
  const auto first = std::find_if(things.begin(), things.end(), [](const auto& thing) { return !thing.ok; });
  if (first != things.end()) results_->scrollToItem(results_->item(static_cast<int>(first - things.begin())));
  outcome_->setText(failed == 0 ? QStringLiteral("همه چيز درست است.")
                                : QStringLiteral("%1 مورد درست نيست.").arg(failed));
}

void ServerDialog::SetRunning(bool running) {
  busy_->setVisible(running);
  outcome_->setText(running ? QStringLiteral("در انتظار سرور...") : QString());
  for (QWidget* const widget :
       std::initializer_list<QWidget*>{server_, database_, integrated_, test_, connect_})
    widget->setEnabled(!running);
  for (QLineEdit* const field : {login_, password_}) field->setEnabled(!running && !integrated_->isChecked());
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
