#include "scenario/desktop/DialogDriver.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>

#include "desktop/documents/DocumentWindow.h"
#include "desktop/search/GoodsList.h"
#include "desktop/search/GoodsPickerWindow.h"
#include "desktop/toolkit/QtText.h"
#include "scenario/Scenario.h"
#include "scenario/desktop/InputEvents.h"
#include "scenario/desktop/WidgetDriver.h"

namespace koru {
namespace {

/// A part that every dialog of the kind has.
template <class Widget>
Widget& PartOf(const QWidget& dialog, const char* name) {
  return *dialog.findChild<Widget*>(QLatin1String(name));
}

void AnswerIn(QWidget& dialog, ScenarioUser& user) {
  auto* const yes = dialog.findChild<QAbstractButton*>(QStringLiteral("yes"));
  ShownMessage message;
  message.title = FromQt(dialog.windowTitle());
  message.text = FromQt(dialog.accessibleDescription());  // before its paths got lines of their own
  message.type = yes == nullptr ? 0 : 1;
  const QAbstractButton* byKey = nullptr;
  for (QAbstractButton* const one : dialog.findChildren<QAbstractButton*>())
    QObject::connect(one, &QAbstractButton::clicked, &dialog, [&byKey, one] { byKey = one; });
  const Answer answer = user.AnswerMessage(message);
  auto* button = dialog.findChild<QAbstractButton*>(QStringLiteral("ok"));
  if (yes != nullptr)
    button = answer == Answer::Yes ? yes : dialog.findChild<QAbstractButton*>(QStringLiteral("no"));
  if (!dialog.isVisible()) {
    if (yes != nullptr && byKey != button) user.CannotDo("answer that: the key gave the other answer");
  } else if (button == nullptr || answer == Answer::Closed) {
    dialog.close();
  } else {
    ClickOn(*button);
  }
}

/// Types the barcode and takes the first good of the list, if it is that one.
bool TakeGood(GoodsPickerWindow& window, const QString& barcode) {
  TypeInto(PartOf<QLineEdit>(window, "filter"), barcode);
  QCoreApplication::processEvents();  // the list follows what is typed
  const auto& results = PartOf<GoodsList>(window, "results");
  const QTableWidgetItem* const first = results.item(0, results.columnCount() - 1);
  if (first == nullptr || first->text() != barcode) return false;
  PressKey(Qt::Key_Return);
  return true;
}

/// The keys of the scenario have closed the picker.
void CheckPicked(const GoodsPickerWindow& window, const std::vector<std::string>& barcodes,
                 ScenarioUser& user) {
  std::vector<std::string> picked;
  if (window.result() == QDialog::Accepted) {
    for (const PickedGood& good : window.Picked()) picked.push_back(good.barcode);
  }
  if (picked != barcodes) user.CannotDo("pick these goods: the keys picked others");
}

void PickIn(GoodsPickerWindow& window, ScenarioUser& user) {
  const std::vector<std::string> barcodes = user.PickGoods();
  if (!window.isVisible()) return CheckPicked(window, barcodes, user);
  auto* const clear = window.findChild<QAbstractButton*>(QStringLiteral("clear"));
  const bool several = clear != nullptr;
  if (!several && barcodes.size() > 1) {
    user.CannotDo("pick several goods: the goods picker takes one");
    window.reject();
    return;
  }
  if (several && !barcodes.empty()) ClickOn(*clear);  // goods that were picked before
  for (const std::string& barcode : barcodes) {
    if (TakeGood(window, ToQt(barcode))) continue;
    user.CannotDo("pick " + QuotedForScenario(barcode) + ": the goods picker does not offer it");
    window.reject();
    return;
  }
  if (barcodes.empty()) {
    ClickOn(PartOf<QAbstractButton>(window, "cancel"));
  } else if (several) {
    PressKey(Qt::Key_Return, Qt::ControlModifier);
  }
}

void UseIn(DocumentWindow& window, ScenarioUser& user,
           const std::function<void(const std::function<void()>&)>& run) {
  auto& registration = PartOf<QAbstractButton>(window, "register");
  ShownDocument document;
  document.kind = window.objectName() == ToQt(ReceiptKind().objectName) ? "receipt" : "dispatch";
  document.id = PartOf<QLabel>(window, "id").text().toInt();
  document.registered = !registration.isEnabled();
  if (user.UseDocument(document) == DocumentUse::Register) run([&] { ClickOn(registration); });
  if (!window.isVisible()) return;  // closed by a key
  ClickOn(PartOf<QAbstractButton>(window, "close"));
}

}  // namespace

void UseDialog(QWidget& dialog, ScenarioUser& user,
               const std::function<void(const std::function<void()>&)>& run) {
  if (auto* const picker = qobject_cast<GoodsPickerWindow*>(&dialog)) {
    PickIn(*picker, user);
  } else if (auto* const document = qobject_cast<DocumentWindow*>(&dialog)) {
    UseIn(*document, user, run);
  } else if (dialog.objectName() == QLatin1String("comMSG")) {
    AnswerIn(dialog, user);
  } else {
    user.UseDialog(FromQt(dialog.objectName()));
    dialog.close();
  }
}

}  // namespace koru
