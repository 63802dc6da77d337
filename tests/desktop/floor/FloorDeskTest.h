#pragma once

#include <QAction>
#include <QEventLoop>
#include <QLabel>
#include <QTimer>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/system/FloorJournalFiles.h"
#include "counting/frmInvCounting.h"
#include "desktop/floor/FloorDesk.h"
#include "desktop/floor/FloorDialog.h"
#include "desktop/toolkit/QtText.h"
#include "platform/sql/ConnectionText.h"
#include "platform/text/Errors.h"
#include "tests/desktop/forms/InvCountingWindowTest.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {

// The barcodes of the lines.
inline constexpr const char* kRice = "6261";
inline constexpr const char* kOil = "6262";

/// Counting 1 is viewed in its window, which has the command of the floor: rice with the count 10, oil with
/// the count 7, both counted once. Devices "d1", "d2" and "d3" take part in counts 1, 2 and 3.
class FloorDeskTest : public InvCountingWindowTest {
 protected:
  using Answer = test::FakeMessages::Answer;

  FloorDeskTest() { AddDesk(); }

  void AddDesk() {
    FloorServerSettings settings;
    settings.port = 0;
    settings.securePort = 0;
    settings.folder = folder.Path() / "floor";
    desk = new FloorDesk(dynamic_cast<InvCountingWindow&>(*window), Counting(), journals, settings,
                         [this] { return addresses; });
  }
  /// The program ends, and the counting is opened by another one.
  void StartAnew() {
    Counting().Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(control.View(1));
    window = screen.WindowOf(Counting());
    QApplication::processEvents();
    AddDesk();
  }
  void Edit() {
    Tick();
    ASSERT_TRUE(Counting().cmdEdit.UserClick());
  }
  void OpenInEdit() {
    Edit();
    Find<QAction>("floorCommand").trigger();
    ASSERT_TRUE(desk->IsServed());
  }
  void Save() {
    Tick();
    ASSERT_TRUE(Counting().cmdTmpSave.UserClick());
    desk->Refresh();
  }

  /// Cancels the entry and answers yes to as many questions; returns the sentence that is reported then.
  std::string SaidAtCancel(int questions = 1) {
    std::string said;
    const Subscription reported =
        Counting().CommandReported.Subscribe([&](const std::string& text) { said = text; });
    for (int i = 0; i < questions; ++i) world.messages.WillAnswer(Answer::Yes);
    EXPECT_TRUE(Counting().cmdCancel.UserClick());
    EXPECT_EQ(world.messages.UnusedAnswers(), 0U);
    desk->Refresh();
    return said;
  }

  FloorAnswer Send(int count, const FloorFigure& figure) {
    const auto answers = desk->Session()->Enter(count, "d" + std::to_string(count), {&figure, 1});
    EXPECT_TRUE(desk->Session()->Commit());
    return answers.at(0);
  }
  FloorAnswer Set(int count, const char* barcode, const char* text, const char* base = "") {
    return Send(count, {++sequence, {barcode, 1}, FloorFigure::Operation::Set, text, base});
  }
  [[nodiscard]] std::string Cell(int row, int col) const {
    return std::string(Counting().flexDetail.TextMatrix(row, col));
  }
  [[nodiscard]] FloorJournalOwner Owner() const {
    return {ConnectionText::Parse(world.database.ConnectionText()).WithoutPassword(), 1};
  }
  std::string Bar() {
    desk->Refresh();
    const auto& bar = Find<QWidget>("floorBar");
    return bar.isHidden() ? "hidden" : FromQt(Find<QLabel>("floorSentence").text().mid(1));
  }
  std::vector<std::string> NewMessages() {
    std::vector<std::string> texts = world.messages.Texts();
    world.messages.Forget();
    return texts;
  }

  /// Runs `answer` with the modal dialog of that class as soon as it is shown; false when `action` has ended
  /// without it.
  bool WithDialog(const char* name, const std::function<void()>& action,
                  const std::function<void(QDialog&)>& answer) {
    bool shown = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (shown || dialog == nullptr || !dialog->inherits(name)) return;
      shown = true;
      answer(*dialog);
    });
    look.start(0);
    action();
    return shown;
  }
  /// Whether the action offers left figures, in a dialog whose button with that name is pressed then.
  [[nodiscard]] bool OffersLeft(const std::function<void()>& action, const char* button) {
    return WithDialog("koru::LeftFiguresDialog", action,
                      [button](QDialog& dialog) { Click(dialog, button); });
  }
  void EditAndRefresh() {
    Edit();
    desk->Refresh();
  }
  [[nodiscard]] bool EditAndChoose(const char* button) {
    return OffersLeft([this] { EditAndRefresh(); }, button);
  }
  static void Click(QWidget& in, const char* name) {
    auto* const button = in.findChild<QAbstractButton*>(QLatin1String(name));
    ASSERT_NE(button, nullptr) << name;
    ASSERT_TRUE(button->isEnabled()) << name;
    QTest::mouseClick(button, Qt::LeftButton);
  }

  test::TemporaryFolder folder;
  FloorJournalFiles journals{folder.Path() / "floor"};
  std::vector<std::string> addresses = {"127.0.0.1", "desk.example"};  ///< of the machine, now
  FloorDesk* desk = nullptr;
  std::int64_t sequence = 0;
};

}  // namespace koru
