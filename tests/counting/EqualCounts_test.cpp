#include <gtest/gtest.h>

#include "lines/LineColumns.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

/// Accepting equal counts on the form. In counting 10, the first line was counted twice and has the accepted
/// count 10, the second line was counted once and has the accepted count 4.
class EqualCounts : public CountingWorld {
 protected:
  void Edit(int row, int col, const std::string& text) { Form().flexDetail.UserEdit(row, col, text); }
  Texts Accept() {
    Form().Timer1.Fire();
    Texts said;
    const Subscription listening =
        Form().CommandReported.Subscribe([&said](const std::string& text) { said.push_back(text); });
    EXPECT_TRUE(Form().mnuAcceptEqual.UserClick());
    return said;
  }
};

TEST_F(EqualCounts, Can_be_accepted_while_lines_are_entered) {
  const auto available = [this] {
    Form().Timer1.Fire();
    return Form().mnuAcceptEqual.Enabled();
  };
  View(10);
  EXPECT_FALSE(available());
  Click(Form().cmdEdit);
  EXPECT_TRUE(available());
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdDeleteAll);
  EXPECT_FALSE(available()) << "there are no lines";
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdCancel);
  EXPECT_FALSE(available());
  control.ClearShow();
  Click(Form().cmdNew);
  EXPECT_FALSE(available());
}

TEST_F(EqualCounts, A_sentence_says_how_many_lines_were_filled) {
  ViewAndEdit(10);
  Edit(1, LineColumn::AcceptedCounting, "");
  EXPECT_EQ(Accept(), Texts{"شمارش 1 سطر قبول شد؛ 1 سطر از پيش همان را داشت."});
  EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "10");
}

TEST_F(EqualCounts, A_sentence_says_how_many_lines_were_left_and_why) {
  ViewAndEdit(10);
  Edit(1, LineColumn::SecondCounting, "11");
  Edit(2, LineColumn::AcceptedCounting, "");
  messages.WillAnswer(FakeMessages::Answer::No);
  EXPECT_EQ(Accept(), Texts{"شمارش 0 سطر قبول شد؛ 2 سطر ماند: 1 با يك شمارش، "
                            "1 با شمارش‌هاي ناهمخوان."});
  EXPECT_EQ(Cell(2, LineColumn::AcceptedCounting), "");
  Edit(1, LineColumn::SecondCounting, "10");
  Edit(1, LineColumn::AcceptedCounting, "12");
  Edit(2, LineColumn::SecondCounting, "");
  Edit(2, LineColumn::FirstCounting, "");
  messages.WillAnswer(FakeMessages::Answer::No);
  EXPECT_EQ(Accept(), Texts{"شمارش 0 سطر قبول شد؛ 2 سطر ماند: 1 بدون شمارش، 1 با شمارش مورد قبول ديگر."});
  EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "12");
}

TEST_F(EqualCounts, What_was_accepted_is_stored) {
  ViewAndEdit(10);
  Edit(1, LineColumn::AcceptedCounting, "");
  Accept();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(database.Scalar("select AcceptedCounting from tblInventoryCountingDetail where CountingID=10 and "
                            "RowNumber=1"),
            "10");
}

}  // namespace
}  // namespace koru::test
