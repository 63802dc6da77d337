#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"
#include "tests/search/GoodSearchTest.h"
#include "tests/search/Matching.h"
#include "tests/support/HostileTexts.h"

namespace koru {
namespace {

/// A good that holds the text as its name, code and notes.
std::string RowOf(const std::string& number, const std::string& text) {
  return "insert into tblGood (Barcode,Name,Code,Notes) values ('G" + number + "'," + text + "," + text +
         "," + text + ");";
}

class HostileGoodSearch : public GoodSearchTest {
 protected:
  using Matches = bool (*)(const std::string& stored, const std::string& text);

  void SetUp() override {
    GoodSearchTest::SetUp();
    std::string rows = "delete from tblGood;";
    for (std::size_t i = 0; i < texts.size(); ++i) {
      rows += RowOf(std::to_string(i), Literal(texts[i]));
    }
    database.Execute(rows);
    before = database.Dump();
  }
  [[nodiscard]] Texts Expected(const std::string& text, Matches matches) const {
    Texts barcodes;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (matches(texts[i], text)) barcodes.push_back("G" + std::to_string(i));
    }
    std::sort(barcodes.begin(), barcodes.end());
    return barcodes;
  }
  /// The shape of the statement that finds by a harmless text in that box.
  std::string HarmlessShape(TextBox& box) {
    box.UserType("x");
    Found();
    return Shape(NewStatements().back());
  }
  /// Types every text into a box whose text is written into the statement unchanged.
  void TryAsTyped(TextBox& box, Matches matches) {
    SCOPED_TRACE(box.Name());
    const std::string harmless = HarmlessShape(box);
    int refused = 0;
    for (const std::string& text : texts) {
      SCOPED_TRACE(text);
      box.UserType(text);
      if (!StaysInLiteral(text)) {
        ++refused;
        EXPECT_THROW(Found(), DatabaseError);
        EXPECT_TRUE(NewStatements().empty());
        continue;
      }
      const Texts found = Found();
      EXPECT_EQ(Shape(NewStatements().back()), harmless);
      if (!HasWildcard(text)) {
        EXPECT_EQ(found, Expected(MeaningOf(text), matches));
      }
    }
    EXPECT_GT(refused, 100);
    box.UserType("");
    EXPECT_EQ(database.Dump(), before);
  }
  /// Types every text into a box whose apostrophes are doubled.
  void TryDoubled(TextBox& box, Matches matches) {
    SCOPED_TRACE(box.Name());
    const std::string harmless = HarmlessShape(box);
    int compared = 0;
    for (const std::string& text : texts) {
      SCOPED_TRACE(text);
      box.UserType(text);
      const Texts found = Found();
      EXPECT_EQ(Shape(NewStatements().back()), harmless);
      if (HasWildcard(text)) continue;
      EXPECT_FALSE(found.empty());
      EXPECT_EQ(found, Expected(std::string(Trim(text)), matches));
      ++compared;
    }
    EXPECT_GT(compared, 200);
    box.UserType("");
    EXPECT_EQ(database.Dump(), before);
  }

  const Texts texts = HostileTexts();
  std::string before;
};

TEST_F(HostileGoodSearch, Text_in_the_code_breaks_its_statement_or_finds_what_it_says) {
  TryAsTyped(form.txtCode, Equals);
  form.optNonPrecise.UserChoose();
  TryAsTyped(form.txtCode, Holds);
}

TEST_F(HostileGoodSearch, Text_in_the_barcode_breaks_its_statement_or_finds_what_it_says) {
  const auto nothing = [](const std::string& /*stored*/, const std::string& /*text*/) { return false; };
  TryAsTyped(form.txtBarCode, nothing);
  form.optNonPrecise.UserChoose();
  TryAsTyped(form.txtBarCode, nothing);
}

TEST_F(HostileGoodSearch, Text_in_the_title_is_found_as_it_was_typed) {
  TryDoubled(form.txtTitle, Equals);
  form.optNonPrecise.UserChoose();
  TryDoubled(form.txtTitle, Holds);
}

TEST_F(HostileGoodSearch, Text_in_the_notes_is_found_as_it_was_typed) {
  TryDoubled(form.txtNotes, Begins);
  form.optNonPrecise.UserChoose();
  TryDoubled(form.txtNotes, Holds);
}

TEST_F(HostileGoodSearch, Text_in_a_bound_is_never_more_than_a_number) {
  for (TextBox* box : {&form.txtMinPrice, &form.txtMaxPrice, &form.txtMinQty, &form.txtMaxQty,
                       &form.txtMinCurrencyRetailPrice, &form.txtMaxCurrencyRetailPrice,
                       &form.txtMinDiscountPercent, &form.txtMaxDiscountPercent}) {
    SCOPED_TRACE(box->Name());
    const std::string harmless = HarmlessShape(*box);
    for (const std::string& text : texts) {
      box->UserType(text);
      EXPECT_NO_THROW(Found()) << text;
      EXPECT_EQ(Shape(NewStatements().back()), harmless) << text;
    }
    box->UserType("");
  }
  EXPECT_EQ(database.Dump(), before);
}

TEST_F(HostileGoodSearch, A_picked_list_is_literals_only_or_breaks_its_statement) {
  int refused = 0;
  for (const std::string& text : texts) {
    for (const std::string& list : {text, "('','" + text + "')", "('','G1')" + text}) {
      SCOPED_TRACE(list);
      form.txtBarCode.SetTag(list);
      try {
        const Texts found = Found();
        std::string inside = Shape(NewStatements().back());
        inside.erase(0, inside.find(" in ") + 4);
        EXPECT_EQ(inside.find_first_not_of("(), tex"), std::string::npos) << inside;
        EXPECT_LE(found.size(), 1U);
      } catch (const DatabaseError&) {
        ++refused;
      }
      NewStatements();
    }
  }
  EXPECT_GT(refused, 400);
  EXPECT_EQ(database.Dump(), before);
}

}  // namespace
}  // namespace koru
