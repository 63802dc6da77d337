// Left figures of the floor that a replay does not enter.

#include <QTableView>

#include "tests/desktop/floor/FloorDeskTest.h"

namespace koru {
namespace {

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
    return TakeAndRead([this] { EditAndRefresh(); });
  }
  /// The same from the offer that an action makes.
  [[nodiscard]] Rows TakeAndRead(const std::function<void()>& action) {
    Rows rows;
    const auto read = [&](QDialog& dialog) {
      sentence_ = FromQt(dialog.findChild<QLabel*>(QStringLiteral("notEnteredSentence"))->text());
      const auto& table = *dialog.findChild<QTableView*>(QStringLiteral("notEnteredTable"))->model();
      for (int row = 0; row < table.rowCount(); ++row) {
        rows.emplace_back();
        for (int col = FloorLog::Count; col < FloorLog::Columns; ++col) {
          rows.back().push_back(table.index(row, col).data().toString());
        }
      }
      Click(dialog, "notEnteredClose");
    };
    EXPECT_TRUE(WithDialog(
        "koru::NotEnteredDialog", [&] { EXPECT_TRUE(OffersLeft(action, "takeLeft")); }, read));
    return rows;
  }

  std::string sentence_;  ///< above the list
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

TEST_F(FloorNotEntered, Figures_are_said_to_be_kept_by_the_next_save) {
  static_cast<void>(TakeAndRead());
  EXPECT_NE(sentence_.find("با ثبت بعدي 30 روز كنار مي\u200cماند."), std::string::npos) << sentence_;
}

TEST_F(FloorNotEntered, Figures_that_a_save_has_set_aside_are_said_to_be_kept_since_then) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  world.messages.WillAnswer(Answer::Yes);
  Save();
  Edit();
  EXPECT_EQ(TakeAndRead([this] { desk->OfferLeft(); }).size(), 2U);
  EXPECT_NE(sentence_.find("پيش از اين كنار گذاشته شد و تا 30 روز پس از آن روز مي\u200cماند."),
            std::string::npos)
      << sentence_;
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
