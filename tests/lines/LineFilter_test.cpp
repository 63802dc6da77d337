#include "lines/LineFilter.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

using Rows = std::vector<int>;

class LineFilterTest : public LinesTest {
 protected:
  LineFilterTest() {
    Line("6260100400116", "AB-120", "پيچ خودكار", "برج");
    Line("6260100400123", "AB-121", "مهره شش گوش", "عدد");
    Line("4001", "120", "پيچ چوب", "عدد");
  }
  void Line(std::string_view barcode, std::string_view code, std::string_view name, std::string_view unit) {
    const int row = form.AddLine(barcode);
    form.Set(row, LineColumn::GoodCode, code);
    form.Set(row, LineColumn::GoodName, name);
    form.Set(row, LineColumn::UnitName, unit);
  }
  Rows Fitting(LineKind kind, std::string_view text) {
    return LineFilter(kind, text).RowsThatFit(form.flexDetail, tally);
  }

  LineTally tally{form.flexDetail};
};

TEST_F(LineFilterTest, Without_a_kind_and_a_text_it_is_off_and_every_line_fits) {
  EXPECT_FALSE(LineFilter().IsOn());
  EXPECT_FALSE(LineFilter(LineKind::All, "  ").IsOn());
  EXPECT_TRUE(LineFilter(LineKind::All, "x").IsOn());
  EXPECT_TRUE(LineFilter(LineKind::NotCounted, "").IsOn());
  EXPECT_EQ(Fitting(LineKind::All, ""), (Rows{1, 2, 3}));
}

TEST_F(LineFilterTest, Words_are_found_in_name_code_and_barcode_and_nowhere_else) {
  EXPECT_EQ(Fitting(LineKind::All, "پیچ"), (Rows{1, 3}));
  EXPECT_EQ(Fitting(LineKind::All, "۱۲۰"), (Rows{1, 3}));
  EXPECT_EQ(Fitting(LineKind::All, "0123"), (Rows{2}));
  EXPECT_EQ(Fitting(LineKind::All, "پيچ 6260"), (Rows{1}));
  EXPECT_EQ(Fitting(LineKind::All, "برج"), Rows{}) << "a unit";
  EXPECT_EQ(Fitting(LineKind::All, "عدد"), Rows{});
}

TEST_F(LineFilterTest, A_kind_and_words_are_both_demanded) {
  form.flexDetail.UserEdit(3, LineColumn::FirstCounting, "7");
  EXPECT_EQ(Fitting(LineKind::NotCounted, ""), (Rows{1, 2}));
  EXPECT_EQ(Fitting(LineKind::NotCounted, "پيچ"), (Rows{1}));
  form.flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "7");
  EXPECT_EQ(Fitting(LineKind::NotCounted, "پيچ"), Rows{});
}

TEST_F(LineFilterTest, The_rows_are_those_of_the_present_order) {
  form.flexDetail.UserClickHeader(LineColumn::Barcode);
  EXPECT_EQ(Fitting(LineKind::All, "پيچ"), (Rows{1, 2}));
}

}  // namespace
}  // namespace koru
