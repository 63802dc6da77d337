// Figures of the floor that arrive while the desk works in the lines.

#include <QLineEdit>
#include <QToolTip>

#include "tests/desktop/floor/FloorDeskTest.h"

namespace koru {
namespace {

using test::Press;
using test::Type;

TEST_F(FloorDeskTest, An_arriving_figure_tints_its_cell_for_a_moment_and_marks_counts_that_differ_at_once) {
  OpenInEdit();
  auto& lines = Find<GridView>("flexDetail");
  const auto sign = [&] { return lines.model()->headerData(0, Qt::Vertical, Qt::DisplayRole).toString(); };
  EXPECT_EQ(sign(), QStringLiteral("1"));
  Set(2, kRice, "9");
  EXPECT_EQ(sign(), QStringLiteral("≠ 1"));
  EXPECT_TRUE(lines.Tint().Has(lines.Rows().CellIndex(1, LineColumn::SecondCounting)));
  EXPECT_FALSE(lines.Tint().Has(lines.Rows().CellIndex(1, LineColumn::FirstCounting)));
  EXPECT_FALSE(lines.Tint().Has(lines.Rows().CellIndex(2, LineColumn::SecondCounting)));
  EXPECT_TRUE(QTest::qWaitFor([&] { return lines.Tint().Cells() == 0; }));
  EXPECT_FALSE(lines.Tint().Has(lines.Rows().CellIndex(1, LineColumn::SecondCounting)));
  Set(2, kRice, "10", "9");
  EXPECT_EQ(sign(), QStringLiteral("1"));
}

TEST_F(FloorDeskTest, A_cell_that_the_desk_is_typing_into_keeps_its_text_and_a_hint_says_what_was_sent) {
  OpenInEdit();
  desk->Session()->Hello(2, "d2", "تبلت انبار");
  test::Open(*window);
  auto& lines = Find<GridView>("flexDetail");
  lines.setFocus();
  Counting().flexDetail.UserMoveTo(1, LineColumn::SecondCounting);
  Type("77");
  Set(2, kRice, "9");
  auto* const editor = lines.findChild<QLineEdit*>(QStringLiteral("cellEditor"));
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->text(), QStringLiteral("77"));
  EXPECT_NE(QToolTip::text().indexOf(QStringLiteral("تبلت انبار")), -1) << FromQt(QToolTip::text());
  EXPECT_NE(QToolTip::text().indexOf(QStringLiteral("9")), -1);
  EXPECT_NE(QToolTip::text().indexOf(QStringLiteral("نوشتة شما مي\u200cماند")), -1);
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "77");
  QToolTip::hideText();
}

/// The first count of rice, which is 10, is open at the desk by F2; nothing has been typed.
class FloorAtOpenCell : public FloorDeskTest {
 protected:
  void SetUp() override {
    OpenInEdit();
    desk->Session()->Hello(1, "d1", "تبلت انبار");
    test::Open(*window);
    Lines().setFocus();
    Counting().flexDetail.UserMoveTo(1, LineColumn::FirstCounting);
    Press(Qt::Key_F2);
    ASSERT_NE(Editor(), nullptr);
    QToolTip::hideText();
  }
  void TearDown() override { QToolTip::hideText(); }
  [[nodiscard]] GridView& Lines() { return Find<GridView>("flexDetail"); }
  [[nodiscard]] QLineEdit* Editor() { return Lines().findChild<QLineEdit*>(QStringLiteral("cellEditor")); }
  [[nodiscard]] std::string Hint() const { return FromQt(QToolTip::text()); }
};

TEST_F(FloorAtOpenCell, A_figure_for_another_count_of_the_line_leaves_what_the_next_key_replaces) {
  Set(2, kRice, "9");
  EXPECT_EQ(Hint(), "");
  Type("5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, LineColumn::FirstCounting), "5");
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorAtOpenCell, A_figure_for_the_cell_is_its_text_which_the_next_key_replaces) {
  Set(1, kRice, "12", "10");
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("12"));
  Type("5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, LineColumn::FirstCounting), "5");
}

TEST_F(FloorAtOpenCell, A_figure_for_the_cell_stays_when_nothing_is_typed) {
  Set(1, kRice, "12", "10");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, LineColumn::FirstCounting), "12");
}

TEST_F(FloorAtOpenCell, A_figure_for_the_cell_is_said_to_be_its_text_while_nothing_was_typed) {
  Set(1, kRice, "12", "10");
  EXPECT_NE(Hint().find("\u2068تبلت انبار\u2069 در اين خانه \u206812\u2069 فرستاد. اكنون رقم خانه همين است"),
            std::string::npos)
      << Hint();
  EXPECT_EQ(Hint().find("نوشتة شما مي\u200cماند"), std::string::npos) << Hint();
}

TEST_F(FloorAtOpenCell, The_same_figure_once_more_is_not_worth_a_hint) {
  Set(1, kRice, "10", "10");
  EXPECT_EQ(Hint(), "");
  EXPECT_EQ(Editor()->selectedText(), QStringLiteral("10"));
}

TEST_F(FloorAtOpenCell, A_figure_that_is_taken_away_empties_the_cell_and_says_so) {
  Set(1, kRice, "", "10");
  EXPECT_EQ(Editor()->text(), QString());
  EXPECT_NE(Hint().find("\u2068تبلت انبار\u2069 اين خانه را خالي كرد."), std::string::npos) << Hint();
}

TEST_F(FloorAtOpenCell, A_text_that_was_typed_stays_also_when_the_figure_is_taken_away) {
  Type("5");
  Set(1, kRice, "", "10");
  EXPECT_EQ(Editor()->text(), QStringLiteral("5"));
  EXPECT_NE(Hint().find("اين خانه را خالي كرد. نوشتة شما مي\u200cماند"), std::string::npos) << Hint();
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, LineColumn::FirstCounting), "5");
}

TEST_F(FloorAtOpenCell, A_text_that_was_typed_and_taken_back_is_typed_text) {
  Press(Qt::Key_End);
  Type("5");
  Press(Qt::Key_Backspace);
  Set(1, kRice, "12", "10");
  EXPECT_EQ(Editor()->text(), QStringLiteral("10"));
  EXPECT_NE(Hint().find("نوشتة شما مي\u200cماند"), std::string::npos) << Hint();
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, LineColumn::FirstCounting), "10");
}

TEST_F(FloorDeskTest, A_figure_for_another_cell_gives_no_hint) {
  OpenInEdit();
  test::Open(*window);
  Find<GridView>("flexDetail").setFocus();
  Counting().flexDetail.UserMoveTo(1, LineColumn::SecondCounting);
  Type("77");
  Set(2, kOil, "9");
  EXPECT_EQ(QToolTip::text(), QString());
  Press(Qt::Key_Escape);
}

TEST_F(FloorDeskTest, In_blind_entry_figures_of_other_counts_are_neither_tinted_nor_in_the_log) {
  OpenInEdit();
  Find<QAction>("blindEntry1").trigger();
  auto& lines = Find<GridView>("flexDetail");
  Set(2, kRice, "954");
  Set(1, kRice, "12", "10");
  desk->Refresh();
  EXPECT_FALSE(lines.Tint().Has(lines.Rows().CellIndex(1, LineColumn::SecondCounting)));
  EXPECT_TRUE(lines.Tint().Has(lines.Rows().CellIndex(1, LineColumn::FirstCounting)));
  EXPECT_EQ(desk->Log().Csv().indexOf("954"), -1);
  EXPECT_NE(desk->Log().Csv().indexOf("12"), -1);
  Find<QAction>("blindEntry1").trigger();
  EXPECT_NE(desk->Log().Csv().indexOf("954"), -1);
}

}  // namespace
}  // namespace koru
