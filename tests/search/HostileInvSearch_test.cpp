#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/text/Text.h"
#include "tests/search/InvSearchTest.h"
#include "tests/search/Matching.h"
#include "tests/support/HostileTexts.h"

namespace koru {
namespace {

/// A counting that holds the text in its notes, as a line's barcode, and as name and code of a good on its
/// lines.
std::string RowsOf(const std::string& id, const std::string& text) {
  return "insert into tblInventoryCounting (ID,Notes) values (" + id + "," + text +
         "); insert into tblGood (Barcode,Name,Code) values ('G" + id + "'," + text + "," + text +
         "); insert into tblInventoryCountingDetail (CountingID,Barcode) values (" + id + ",'G" + id +
         "'),(" + id + "," + text + ");";
}

class HostileInvSearch : public InvSearchTest {
 protected:
  void SetUp() override {
    InvSearchTest::SetUp();
    std::string rows = "delete from tblInventoryCounting; delete from tblInventoryCountingDetail;";
    for (std::size_t i = 0; i < texts.size(); ++i) {
      rows += RowsOf(std::to_string(i + 1), Literal(texts[i]));
    }
    database.Execute(rows);
    before = database.Dump();
  }
  /// The countings that hold a text.
  [[nodiscard]] std::vector<int> Holding(const std::string& text) const {
    std::vector<int> keys;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (Holds(texts[i], text)) keys.push_back(static_cast<int>(i) + 1);
    }
    return keys;
  }
  /// Types every text into one box; where `finds`, the countings that hold it must be found and no other.
  void TryAll(TextBox& box, bool finds) {
    SCOPED_TRACE(box.Name());
    form.cmdNew.UserClick();
    box.UserType("x");
    NewStatements();
    form.cmdSearch.UserClick();
    const std::vector<std::string> harmless = NewStatements();
    ASSERT_EQ(harmless.size(), 1U);
    int refused = 0;
    for (const std::string& text : texts) {
      SCOPED_TRACE(text);
      messages.Forget();
      box.UserType(text);
      const std::vector<int> found = Found();
      const std::vector<std::string> sent = NewStatements();
      const std::string trimmed(Trim(text));
      if (!StaysInLiteral(trimmed)) {
        ++refused;
        EXPECT_EQ(messages.Shown().size(), 1U);
        EXPECT_TRUE(sent.empty());
        EXPECT_TRUE(found.empty());
        continue;
      }
      EXPECT_TRUE(messages.Shown().empty());
      ASSERT_EQ(sent.size(), 1U);
      EXPECT_EQ(Shape(sent.front()), Shape(harmless.front()));
      if (finds && !HasWildcard(trimmed)) {
        EXPECT_EQ(found, Holding(MeaningOf(trimmed)));
      }
    }
    EXPECT_GT(refused, 100);
    EXPECT_EQ(database.Dump(), before);
  }

  const std::vector<std::string> texts = HostileTexts();
  std::string before;
};

TEST_F(HostileInvSearch, Text_in_a_pattern_breaks_its_statement_or_finds_what_holds_it) {
  for (TextBox* box : {&form.txtNotes, &form.txtBarCode, &form.txtName, &form.txtCode}) TryAll(*box, true);
}

TEST_F(HostileInvSearch, Text_as_a_manual_number_breaks_its_statement_or_is_compared) {
  for (TextBox* box : {&form.txtMinG, &form.txtMaxG}) TryAll(*box, false);
}

TEST_F(HostileInvSearch, Text_in_a_number_box_is_never_more_than_a_number) {
  for (TextBox* box : {&form.txtid1, &form.txtid2, &form.txtcode1, &form.txtcode2}) {
    SCOPED_TRACE(box->Name());
    form.cmdNew.UserClick();
    box->UserType("1");
    NewStatements();
    form.cmdSearch.UserClick();
    const std::string harmless = Shape(NewStatements().at(0));
    for (const std::string& text : texts) {
      if (Trim(text).empty()) continue;
      box->UserType(text);
      form.cmdSearch.UserClick();
      EXPECT_EQ(Shape(NewStatements().at(0)), harmless) << text;
    }
  }
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_EQ(database.Dump(), before);
}

}  // namespace
}  // namespace koru
