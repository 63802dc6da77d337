#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "component/comInvCounting.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/grid/GridView.h"
#include "lines/LineColumns.h"
#include "platform/sql/ForwardingDatabase.h"
#include "tests/desktop/WindowTools.h"
#include "tests/desktop/forms/DesktopWorld.h"
#include "tests/desktop/forms/SearchingScreen.h"

namespace koru {
namespace {

/// A database as slow as a server far away: every statement takes two milliseconds at least.
class SlowDatabase : public ForwardingDatabase {
 public:
  explicit SlowDatabase(std::unique_ptr<Database> inner) : ForwardingDatabase(std::move(inner)) {}
  Recordset Open(const SqlText& statement) override {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    return Inner().Open(statement);
  }
  /// As on a file: the work then advances statement by statement, whatever database the tests run on.
  [[nodiscard]] std::size_t StatementsPerTrip() const override { return 1; }
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override {
    Database::OpenAll(statements, take);
  }
};

class SlowConnector : public DatabaseConnector {
 public:
  explicit SlowConnector(DatabaseConnector& inner) : inner_(inner) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override {
    return std::make_unique<SlowDatabase>(inner_.Connect(connectionText));
  }

 private:
  DatabaseConnector& inner_;
};

/// When a widget was drawn.
class DrawingTimes : public QObject {
 public:
  explicit DrawingTimes(QWidget& widget) {
    widget.installEventFilter(this);
    since_.start();
  }
  [[nodiscard]] int Count() const { return count_; }
  [[nodiscard]] std::int64_t MsSinceLast() const { return since_.elapsed(); }

 protected:
  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    ++count_;
    since_.start();
    return false;
  }

 private:
  int count_ = 0;
  QElapsedTimer since_;
};

/// Counting 1, of 200 goods, is being edited on the screen.
class WorkProgress : public testing::Test {
 protected:
  static constexpr int kLines = 200;

  WorkProgress() {
    world.database.Execute(
        "insert into tblInventory (ID,Name,IsDefault) values (1,'انبار مركزي',1);"
        "insert into tblInventoryUser (UserID,InventoryID) values (1,1);"
        "insert into tblUser (ID,FullName) values (1,'زهرا كريمي');"
        "insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (1,'عدد',1);"
        "insert into tblPelinUserPermission (UserID,FormPermissionID) values "
        "(1,80602),(1,80605),(1,80606);"
        "insert into tblInventoryCounting (ID,InventoryID,CreatorID,CreateDate,FarsiCreateDate) values "
        "(1,1,1,'2025-04-04','1404/01/15')");
    const auto barcode = [](int i) { return "'" + std::to_string(62600 + i) + "'"; };
    world.database.InsertRows("tblGood (Barcode,Code,Name)", 1, kLines, [&](int i) {
      return barcode(i) + ",'" + std::to_string(100 + i) + "','كالاي " + std::to_string(i) + "'";
    });
    world.database.InsertRows(
        "tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,AcceptedCounting,SystemCounting,"
        "ContradictionCounting,BaseValue)",
        1, kLines, [&](int i) { return "1," + barcode(i) + "," + std::to_string(i) + ",1,10,12,-2,500"; });
    screen.Register("frmInvCounting", [this](Form& form) -> std::unique_ptr<FormWindow> {
      return std::make_unique<InvCountingWindow>(dynamic_cast<frmInvCounting&>(form), records);
    });
    control.SetOLEConnectionString(world.database.ConnectionText());
    control.SetUserID(1);
    EXPECT_TRUE(control.View(1));
    Counting().Timer1.Fire();
    Counting().cmdEdit.UserClick();
    Counting().Timer1.Fire();
    Counting().Timer1.Tick.Always([this] { ticksAtWork += Counting().pgbStatus.Visible() ? 1 : 0; });
    QApplication::processEvents();
  }

  [[nodiscard]] frmInvCounting& Counting() const { return *control.CountingForm(); }
  [[nodiscard]] QWidget& Window() const { return *screen.WindowOf(Counting()); }

  /// Runs a command and watches the window meanwhile. `least` steps are expected.
  void ExpectWatchableWork(Button& command, int least) {
    QWidget other;  // a window beside, such as the host's
    other.show();
    QApplication::processEvents();
    DrawingTimes beside(other);
    DrawingTimes bar(*Window().findChild<QWidget*>("pgbStatus"));
    DrawingTimes lines(*Window().findChild<GridView*>("flexDetail")->viewport());
    int steps = 0;
    int late = 0;
    int linesDrawn = 0;
    int besideDrawn = 0;
    const Subscription watching = Counting().pgbStatus.StateChanged.Subscribe([&] {
      if (!Counting().pgbStatus.Visible()) return;
      ++steps;
      late += bar.MsSinceLast() > 100 ? 1 : 0;
      linesDrawn = lines.Count();
      besideDrawn = beside.Count();
      for (QWidget* window : {&Window(), &other})
        window->update();  // as when another program stood before them
    });
    const int before = lines.Count();
    QElapsedTimer work;
    work.start();
    ASSERT_TRUE(command.UserClick());
    const std::int64_t mostOften = work.elapsed() / 40 * 2 + 5;
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{});
    EXPECT_GE(steps, least);
    EXPECT_LE(late, steps / 20) << "a step on a machine under load may be late, and no more";
    EXPECT_GE(bar.Count(), 5);
    EXPECT_LE(bar.Count(), mostOften) << "more than the eye can follow is lost time";
    EXPECT_GE(linesDrawn - before, 3) << "the window is drawn during the work";
    EXPECT_GE(besideDrawn, 3) << "and so are the others";
    EXPECT_EQ(ticksAtWork, 0) << "nothing else runs meanwhile";
    EXPECT_FALSE(Counting().pgbStatus.Visible());
  }

  test::SearchingScreen screen;
  test::DesktopWorld world{screen};
  SlowConnector slow{world.database.Connector()};
  SelectorRecords records{world.database.Connector()};
  HostServices where = world.Where();
  comInvCounting control{world,
                         {slow, where.components, screen, where.clock, where.files, where.spreadsheets}};
  int ticksAtWork = 0;
};

TEST_F(WorkProgress, A_calculation_is_seen_moving_at_least_ten_times_a_second) {
  ExpectWatchableWork(Counting().cmdCalc, kLines);
}

TEST_F(WorkProgress, Adding_goods_is_seen_moving_at_least_ten_times_a_second) {
  Counting().flexDetail.SetRows(1);
  ExpectWatchableWork(Counting().cmdGoods, kLines);
  EXPECT_EQ(Counting().flexDetail.Rows(), kLines + 1);
}

TEST_F(WorkProgress, A_save_is_seen_moving_at_least_ten_times_a_second) {
  ExpectWatchableWork(Counting().cmdTmpSave, kLines);
}

TEST_F(WorkProgress, A_registration_is_seen_moving_also_while_its_documents_are_written) {
  ExpectWatchableWork(Counting().cmdIsFinalized, 2 * kLines);
  EXPECT_EQ(world.database.Scalar("select count(*) from tblInventoryDispatchDetail"), std::to_string(kLines));
}

TEST_F(WorkProgress, Goods_beyond_the_limit_are_refused_in_words_and_what_is_there_stays) {
  Grid& lines = Counting().flexDetail;
  lines.SetRows(1);
  lines.SetRows(kMaxLines);
  lines.SetTextMatrix(1, LineColumn::Barcode, "counted before");
  lines.SetTextMatrix(1, LineColumn::AcceptedCounting, "7");
  world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  ASSERT_TRUE(Counting().cmdGoods.UserClick());
  EXPECT_EQ(world.messages.Texts().back(),
            "شمارش بيش از 32767 سطر نمي پذيرد. كالاهايي كه جا داشتند اضافه شدند.");
  const QAbstractItemModel& shown = *Window().findChild<GridView*>("flexDetail")->model();
  EXPECT_EQ(shown.rowCount(), kMaxLines);
  EXPECT_TRUE(shown.index(kMaxLines - 1, LineColumn::Barcode).data().toString().startsWith("62"))
      << "the one good that had room";
  EXPECT_EQ(shown.index(0, LineColumn::AcceptedCounting).data().toString(), "7");
}

/// The user does something while a calculation or a search for goods is running.
class CancelledWork : public WorkProgress {
 protected:
  static constexpr int kFewLines = 60;
  static constexpr int kStep = 20;

  CancelledWork() { Counting().flexDetail.SetRows(1 + kFewLines); }

  /// Runs a command; `input` arrives when the bar has come to the step.
  void RunWith(const Button& command, const std::function<void(QWindow&)>& input) {
    bool isDone = false;
    const Subscription watching = Counting().pgbStatus.StateChanged.Subscribe([&] {
      if (isDone || !Counting().cmdStop.Visible() || Counting().pgbStatus.Value() < kStep) return;
      isDone = true;
      input(*Window().windowHandle());
    });
    Window().findChild<QAbstractButton*>(QString::fromStdString(command.Name()))->click();
    EXPECT_TRUE(isDone);
    lastStep = Counting().pgbStatus.Value();
    EXPECT_FALSE(Counting().pgbStatus.Visible());
    EXPECT_FALSE(Counting().cmdStop.Visible());
    QApplication::processEvents();
  }

  static void TypeInto(QWindow& window, int key, const QString& text = {}) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QCoreApplication::postEvent(&window, new QKeyEvent(type, key, Qt::NoModifier, text));
    }
  }
  static void ClickOn(QWindow& window, const QWidget& widget) {
    const QPoint global = widget.mapToGlobal(widget.rect().center());
    const QPoint local = window.mapFromGlobal(global);
    QCoreApplication::postEvent(&window, new QMouseEvent(QEvent::MouseButtonPress, local, global,
                                                         Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    QCoreApplication::postEvent(&window, new QMouseEvent(QEvent::MouseButtonRelease, local, global,
                                                         Qt::LeftButton, Qt::NoButton, Qt::NoModifier));
  }
  [[nodiscard]] std::string Cell(int row, int col) const {
    return std::string(Counting().flexDetail.TextMatrix(row, col));
  }
  void ExpectCancelled() {
    EXPECT_LT(lastStep, kFewLines);
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{});
    EXPECT_EQ(ticksAtWork, 0);
  }
  /// Moves to the first count of the first line.
  void GoToFirstCount() {
    Window().activateWindow();
    Window().findChild<GridView*>("flexDetail")->setFocus();
    Counting().flexDetail.UserMoveTo(1, LineColumn::FirstCounting);
    QApplication::processEvents();
  }

  int lastStep = 0;
};

TEST_F(CancelledWork, Escape_ends_a_calculation_and_no_line_has_changed) {
  Counting().flexDetail.SetTextMatrix(1, LineColumn::SystemCounting, "as it was");
  RunWith(Counting().cmdCalc, [](QWindow& window) { TypeInto(window, Qt::Key_Escape); });
  ExpectCancelled();
  EXPECT_EQ(Cell(1, LineColumn::SystemCounting), "as it was");
  ASSERT_TRUE(Counting().cmdCalc.UserClick());
  EXPECT_EQ(Cell(1, LineColumn::SystemCounting), "0") << "the next calculation is done";
}

TEST_F(CancelledWork, A_click_on_the_button_ends_the_adding_of_goods_and_none_is_added) {
  Counting().flexDetail.SetRows(1);
  RunWith(Counting().cmdGoods,
          [this](QWindow& window) { ClickOn(window, *Window().findChild<QWidget*>("cmdStop")); });
  ExpectCancelled();
  EXPECT_EQ(Counting().flexDetail.Rows(), 1);
}

TEST_F(CancelledWork, A_click_elsewhere_and_keys_wait_in_their_order_until_the_calculation_is_done) {
  GoToFirstCount();
  bool wasEarly = false;
  const Subscription watching = Counting().pgbStatus.StateChanged.Subscribe(
      [&] { wasEarly = wasEarly || Cell(1, LineColumn::FirstCounting) != ""; });
  RunWith(Counting().cmdCalc, [](QWindow& window) {
    TypeInto(window, Qt::Key_7, "7");
    TypeInto(window, Qt::Key_5, "5");
    TypeInto(window, Qt::Key_Return, "\r");
  });
  EXPECT_EQ(lastStep, kFewLines);
  EXPECT_FALSE(wasEarly);
  EXPECT_EQ(Cell(1, LineColumn::FirstCounting), "75");
  EXPECT_EQ(Cell(1, LineColumn::SystemCounting), "0");
  RunWith(Counting().cmdCalc, [this](QWindow& window) {
    ClickOn(window, *Window().findChild<QWidget*>("cmdCancel"));
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{});
  });
  EXPECT_EQ(lastStep, kFewLines);
  EXPECT_EQ(world.messages.Texts().size(), 1U) << "the question of Cancel";
}

TEST_F(CancelledWork, Keys_before_Escape_are_dropped_with_the_calculation) {
  GoToFirstCount();
  RunWith(Counting().cmdCalc, [](QWindow& window) {
    TypeInto(window, Qt::Key_7, "7");
    TypeInto(window, Qt::Key_Return, "\r");
    TypeInto(window, Qt::Key_Escape);
  });
  ExpectCancelled();
  EXPECT_EQ(Cell(1, LineColumn::FirstCounting), "");
}

TEST_F(CancelledWork, A_window_that_is_to_close_waits_until_the_calculation_is_done) {
  RunWith(Counting().cmdCalc, [this](QWindow& window) {
    QCoreApplication::postEvent(&window, new QCloseEvent);
    EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{});
  });
  EXPECT_EQ(lastStep, kFewLines);
  EXPECT_EQ(world.messages.Texts().size(), 1U) << "the question of Cancel";
}

TEST_F(CancelledWork, A_save_cannot_be_cancelled) {
  const Subscription watching =
      Counting().pgbStatus.StateChanged.Subscribe([this] { EXPECT_FALSE(Counting().cmdStop.Visible()); });
  ASSERT_TRUE(Counting().cmdTmpSave.UserClick());
}

}  // namespace
}  // namespace koru
