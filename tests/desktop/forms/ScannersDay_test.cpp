#include <gtest/gtest.h>

#include <QApplication>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "component/comInvCounting.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/grid/GridView.h"
#include "lines/LineColumns.h"
#include "tests/desktop/WindowTools.h"
#include "tests/desktop/forms/DesktopWorld.h"
#include "tests/desktop/forms/SearchingScreen.h"
#include "tests/desktop/grid/ScannerKeys.h"

namespace koru {
namespace {

constexpr int kGoods = 120;

/// A temporary counting of goods with barcodes of 8, 12 and 13 digits and with letters, open for changes.
class ScannersDay : public testing::Test {
 protected:
  ScannersDay() {
    world.database.Execute(
        "insert into tblInventory (ID,Name,IsDefault) values (1,'انبار مركزي',1);"
        "insert into tblInventoryUser (UserID,InventoryID) values (1,1);"
        "insert into tblUser (ID,FullName) values (1,'زهرا كريمي');"
        "insert into tblPelinUserPermission (UserID,FormPermissionID) values (1,806),(1,80602),(1,80605);"
        "insert into tblInventoryCounting (ID,InventoryID,CreatorID,CreateDate,FarsiCreateDate) "
        "values (1,1,1,'2025-04-04','1404/01/15')");
    for (int good = 0; good < kGoods; ++good) {
      const std::string number = std::to_string(1000 + good);
      const std::vector<std::string> kinds = {"626123456" + number, "1234" + number, "01234567" + number,
                                              "KX-" + number};
      barcodes.push_back(kinds[static_cast<std::size_t>(good) % kinds.size()]);
      world.database.Execute("insert into tblGood (Barcode,Code,Name) values ('" + barcodes.back() + "','" +
                             number + "','كالا " + number + "')");
      world.database.Execute(
          "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (1,'" +
          barcodes.back() + "'," + std::to_string(good + 1) + ")");
    }
    screen.Register("frmInvCounting", [this](Form& form) -> std::unique_ptr<FormWindow> {
      return std::make_unique<InvCountingWindow>(dynamic_cast<frmInvCounting&>(form), records);
    });
    control.SetOLEConnectionString(world.database.ConnectionText());
    control.SetUserID(1);
    EXPECT_TRUE(control.View(1));
    window = screen.WindowOf(Counting());
    test::Open(*window);
    QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
    Lines().SetCurrent(1, LineColumn::Barcode);
  }

  [[nodiscard]] frmInvCounting& Counting() const { return *control.CountingForm(); }
  [[nodiscard]] Grid& Lines() const { return Counting().flexDetail; }

  // What a clerk does. Each keeps the model of what the counting must hold: the figures of scanned goods.

  void ScanKnown(bool end) {
    const std::string& barcode = barcodes[static_cast<std::size_t>(Random(kGoods))];
    Send(barcode, end);
    good = barcode;
  }
  void ScanUnknown(bool end) {
    Send((Random(2) == 0 ? "626999999" : "KY-") + std::to_string(1000 + Random(9000)), end);
    good.reset();
  }
  void TypeCount() {
    const std::string count = std::to_string(Random(3000));
    keys.Pause();
    if (Random(2) == 0) {
      keys.Type(QString::fromStdString(count));
    } else {
      for (const char digit : count)
        keys.Send(digit, QString(QLatin1Char(digit)), test::TimedKeys::kScannerMs);
    }
    if (good) typed = typed.value_or("") + count;
  }
  void PressEnter() {
    keys.Press(Qt::Key_Return);
    StoreTyped();
    good.reset();
  }

  void Send(const std::string& barcode, bool end) {
    StoreTyped();
    if (end) {
      keys.Scan(QString::fromStdString(barcode), Random(4) == 0 ? Qt::Key_Tab : Qt::Key_Return);
      return;
    }
    keys.ScanWithoutEnd(QString::fromStdString(barcode));
    keys.Pause();
    if (Random(2) == 0) keys.Press(Qt::Key_Return);  // by hand, instead of the scanner
  }
  /// A count whose Enter was forgotten is stored when the next key shows that it is complete.
  void StoreTyped() {
    if (good && typed) counts[*good] = std::to_string(std::stoi(*typed));
    typed.reset();
  }
  int Random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); }

  [[nodiscard]] std::map<std::string, std::string> CountsOfLines() const {
    std::map<std::string, std::string> found;
    for (int row = 1; row < Lines().Rows(); ++row) {
      const std::string_view count = Lines().TextMatrix(row, LineColumn::FirstCounting);
      if (!count.empty()) found[std::string(Lines().TextMatrix(row, LineColumn::Barcode))] = count;
      for (const int col :
           {+LineColumn::SecondCounting, +LineColumn::ThirdCounting, +LineColumn::AcceptedCounting}) {
        EXPECT_EQ(Lines().TextMatrix(row, col), "");
      }
    }
    return found;
  }

  test::SearchingScreen screen;
  test::DesktopWorld world{screen};
  SelectorRecords records{world.database.Connector()};
  comInvCounting control{world, world.Where()};
  FormWindow* window = nullptr;
  std::vector<std::string> barcodes;
  test::TimedKeys keys;
  std::mt19937 random{20260118};
  std::optional<std::string> good;   ///< whose count the next digits are
  std::optional<std::string> typed;  ///< a count without its Enter
  std::map<std::string, std::string> counts;
};

TEST_F(ScannersDay, Two_thousand_scans_and_counts_with_slips_give_every_good_its_own_count_and_no_barcode) {
  int compared = 0;
  for (int step = 0; step < 2000; ++step) {
    switch (Random(10)) {
      case 0:  // a good that is not in this counting; half of the clerks type its count all the same
        ScanUnknown(true);
        if (Random(2) == 0) TypeCount();
        if (Random(2) == 0) PressEnter();
        break;
      case 1:  // the Enter after the count is forgotten
        ScanKnown(true);
        TypeCount();
        break;
      case 2:  // the scanner sends no Enter
        ScanKnown(false);
        TypeCount();
        PressEnter();
        break;
      case 3:  // the good is scanned twice
        ScanKnown(true);
        Send(*good, true);
        TypeCount();
        PressEnter();
        break;
      case 4:  // Enter twice
        ScanKnown(true);
        TypeCount();
        PressEnter();
        PressEnter();
        break;
      case 5:  // the scanner has not read the barcode
        TypeCount();
        PressEnter();
        break;
      case 6:  // an unknown barcode without an Enter
        ScanUnknown(false);
        break;
      default:
        ScanKnown(true);
        TypeCount();
        PressEnter();
    }
    const QWidget* const focus = QApplication::focusWidget();
    const auto* const lines = window->findChild<GridView*>("flexDetail");
    ASSERT_TRUE(focus == lines || lines->isAncestorOf(focus)) << "step " << step << " needs the mouse";
    ASSERT_EQ(QApplication::activeModalWidget(), nullptr) << step;
    if (lines->IsTypedInto()) continue;  // the text of an open editor is not stored yet
    ++compared;
    ASSERT_EQ(CountsOfLines(), counts) << "step " << step;
  }
  EXPECT_GT(counts.size(), kGoods / 2U);
  EXPECT_GT(compared, 1500);
  keys.Press(Qt::Key_Return);
  StoreTyped();
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  std::map<std::string, std::string> stored;
  Recordset lines = world.database.Open(
      "select Barcode, FirstCounting from tblInventoryCountingDetail where FirstCounting is not null");
  for (; !lines.AtEnd(); lines.MoveNext())
    stored[lines.Field("Barcode").Text()] = lines.Field("FirstCounting").Text();
  EXPECT_EQ(stored, counts);
}

}  // namespace
}  // namespace koru
