// Left figures of the floor that a replay does not enter.

#include <QTableView>

#include "tests/desktop/floor/FloorDeskTest.h"

namespace koru {
namespace {

constexpr const char* kRice = "6261";
constexpr const char* kOil = "6262";

/// A program has ended with three figures that it has not saved: of rice in the first and second count, of
/// oil in the third. Since then another station has stored a first count of rice and removed the oil.
class FloorNotEntered : public FloorDeskTest {
 protected:
  using Rows = std::vector<std::vector<QString>>;

  void SetUp() override {
    OpenInEdit();
    desk->Session()->Hello(1, "d1", "تبلت انبار");
    desk->Session()->Hello(3, "d3", "گوشي مريم");
    Set(1, kRice, "12", "10");
    Set(2, kRice, "9");
    Set(3, kOil, "8");
    world.database.Execute(
        "update tblInventoryCountingDetail set FirstCounting=20 where CountingID=1 and RowNumber=1;"
        "delete from tblInventoryCountingDetail where CountingID=1 and RowNumber=2");
    StartAnew();
  }
  /// Takes the left figures; returns the texts of what is listed as not entered, without the times.
  [[nodiscard]] Rows TakeAndRead() {
    Rows rows;
    const auto read = [&](QDialog& dialog) {
      const auto& table = *dialog.findChild<QTableView*>(QStringLiteral("notEnteredTable"))->model();
      for (int row = 0; row < table.rowCount(); ++row) {
        rows.emplace_back();
        for (int col = FloorLog::Count; col < FloorLog::Columns; ++col) {
          rows.back().push_back(table.index(row, col).data().toString());
        }
      }
      Click(dialog, "notEnteredClose");
    };
    const auto take = [this] {
      Edit();
      desk->Refresh();
    };
    EXPECT_TRUE(WithDialog(
        "koru::NotEnteredDialog",
        [&] {
          EXPECT_TRUE(WithDialog("koru::LeftFiguresDialog", take,
                                 [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
        },
        read));
    return rows;
  }
};

TEST_F(FloorNotEntered, Figures_are_listed_with_their_line_their_device_and_the_reason) {
  std::string said;
  const Subscription reported =
      Counting().CommandReported.Subscribe([&](const std::string& text) { said = text; });
  EXPECT_EQ(
      TakeAndRead(),
      (Rows{{"شمارش سوم", "گوشي مريم", "", "6262", "8", "وارد نشد: سطر ديگر نيست"},
            {"شمارش اول", "تبلت انبار", "برنج", "6261", "12", "وارد نشد: خانه رقم ديگري دارد (20 از ميز)"}}));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
  EXPECT_EQ(said.find("1 رقم از گوشي\u200cها بازگردانده شد."), 0U) << said;
}

TEST_F(FloorNotEntered, Figures_stay_in_the_log) {
  EXPECT_EQ(TakeAndRead().size(), 2U);
  EXPECT_EQ(desk->Log().rowCount(), 2);
  Find<QAction>("floorCommand").trigger();
  EXPECT_EQ(desk->Log().rowCount(), 2) << "when the floor is opened";
  EXPECT_NE(desk->Log().Csv().indexOf("6262"), -1);
}

TEST_F(FloorNotEntered, Figures_of_a_count_that_a_blind_desk_may_not_see_have_no_text) {
  Find<QAction>("blindEntry3").trigger();
  const Rows rows = TakeAndRead();
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0][4], QStringLiteral("8"));
  EXPECT_EQ(rows[1][4], QStringLiteral("پنهان"));
  EXPECT_EQ(rows[1][5], QStringLiteral("وارد نشد: خانه رقم ديگري دارد")) << "nor what the cell has";
}

}  // namespace
}  // namespace koru
