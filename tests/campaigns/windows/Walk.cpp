#include "tests/campaigns/windows/Walk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMetaObject>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include "desktop/forms/FormWindow.h"

namespace koru::test {
namespace {

/// What writes, or opens what is the machine's own.
const QSet<QString>& NotPressed() {
  static const QSet<QString> names{
      QStringLiteral("cmdTmpSave"),     QStringLiteral("cmdIsFinalized"), QStringLiteral("cmdExcel"),
      QStringLiteral("chooseDatabase"), QStringLiteral("register"),       QStringLiteral("print"),
      QStringLiteral("save"),           QStringLiteral("cmdExit"),        QStringLiteral("close"),
      QStringLiteral("cancel"),         QStringLiteral("menuButton")};
  return names;
}

std::vector<QPointer<QAbstractButton>> ButtonsOf(QWidget& window) {
  std::vector<QPointer<QAbstractButton>> buttons;
  if (window.objectName() == QLatin1String("frmInvCounting")) {  // in an order in which each is available
    const auto* const key = window.findChild<QLabel*>(QStringLiteral("lblIDVal"));
    const bool isStored = key != nullptr && !key->text().isEmpty();
    for (const char* name :
         {"cmdNew", "cmdView", "cmdPrint", "cmdInvExit", "cmdInvReceipt", "cmdSearch", "cmdFunc", "cmdDelete",
          "cmdEdit", "cmdGoods", "cmdCalc", "cmdDeleteAll", "cmdCancel"}) {
      auto* const button = window.findChild<QAbstractButton*>(QLatin1String(name));
      if (button != nullptr && !(isStored && QLatin1String(name) == QLatin1String("cmdNew")))
        buttons.emplace_back(button);
    }
    return buttons;
  }
  for (QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
    if (button->window() == &window && !button->objectName().isEmpty() &&
        !NotPressed().contains(button->objectName()))
      buttons.emplace_back(button);
  }
  return buttons;
}

void Tick(QWidget& window) {
  auto* const form = qobject_cast<FormWindow*>(&window);
  if (form == nullptr) return;
  if (auto* const timer = form->Binding().findChild<QTimer*>(QStringLiteral("Timer1")))
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
}

}  // namespace

Walk::Walk() { Attend(); }

void Walk::Attend() {
  QTimer::singleShot(1, this, [this] {
    Attend();  // first: what follows may open another event loop
    if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
    const QPointer<QWidget> window = QApplication::activeModalWidget();
    if (window.isNull()) return;
    if (window->objectName() == QLatin1String("comMSG")) return Answer(*window);
    if (!seen_.contains(window->objectName())) Through(*window);
    if (!window.isNull()) Leave(*window);
  });
}

void Walk::Answer(QWidget& message) {
  std::string text;
  if (const auto* const label = message.findChild<QLabel*>(QStringLiteral("message")))
    text = label->text().toStdString();
  if (const auto* const detail = message.findChild<QPlainTextEdit*>(QStringLiteral("detail")))
    text += "\n" + detail->toPlainText().toStdString();
  messages_.push_back(text);
  // What is being entered is given up, so that the commands on stored countings are available again.
  const bool givesUp = message.windowTitle().contains(QStringLiteral("انصراف")) ||
                       text.find("كالاهاي جديد") != std::string::npos;  // nor does it write to add goods
  for (const char* name : {givesUp ? "yes" : "no", "no", "ok"}) {
    if (auto* const button = message.findChild<QAbstractButton*>(QLatin1String(name))) return button->click();
  }
}

void Walk::Leave(QWidget& window) {
  if (!window.isVisible()) return;
  const QPointer<QWidget> still = &window;
  window.close();
  if (!still.isNull() && still->isVisible()) still->hide();
}

void Walk::Fields(QWidget& window) {
  for (const char* name : {"filter", "txtGoodName", "txtBarcode"}) {
    auto* const field = window.findChild<QLineEdit*>(QLatin1String(name));
    if (field == nullptr || !field->isEnabled() || field->isReadOnly()) continue;
    field->setText(QStringLiteral("چا"));
    emit field->textEdited(field->text());
  }
  if (window.objectName() == QLatin1String("frmGoodSearch"))
    QTest::keyClick(window.findChild<QLineEdit*>(QStringLiteral("txtTitle")),
                    Qt::Key_F3);  // the goods picker
}

void Walk::Through(QWidget& window) {
  seen_.insert(window.objectName());
  const QPointer<QWidget> still = &window;
  QApplication::processEvents();
  if (!still.isNull()) Tick(window);
  if (!still.isNull()) Fields(window);
  for (const auto& button : still.isNull() ? std::vector<QPointer<QAbstractButton>>() : ButtonsOf(window)) {
    if (still.isNull() || !still->isVisible()) return;
    if (button.isNull() || !button->isEnabled() || !button->isVisible()) continue;
    button->click();
    QApplication::processEvents();
    // The form brings its commands into line when its timer ticks: at once here.
    if (!still.isNull()) Tick(window);
    // What is now in front and is not modal is walked through as well.
    for (QWidget* const other : QApplication::topLevelWidgets()) {
      const QPointer<QWidget> opened = other;
      if (!other->isVisible() || !other->isWindow() || seen_.contains(other->objectName()) ||
          other->objectName().isEmpty() || qobject_cast<QMenu*>(other) != nullptr)
        continue;
      Through(*other);
      if (!opened.isNull() && opened->objectName() != QLatin1String("frmInvCounting")) Leave(*opened);
      break;  // the list of windows is another one now
    }
  }
}

void Walk::Press(QWidget& window, const char* name) {
  auto* const button = window.findChild<QAbstractButton*>(QLatin1String(name));
  if (button != nullptr && button->isEnabled()) button->click();
  QApplication::processEvents();
}

}  // namespace koru::test
