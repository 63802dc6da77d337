#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlLexer.h"
#include "platform/text/Text.h"
#include "tests/lines/StoredLinesTest.h"
#include "tests/support/HostileTexts.h"

namespace koru {
namespace {

/// What a statement does, whatever its texts say.
std::string Shape(const std::string& statement) {
  SqlLexer lexer(statement);
  std::string shape;
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    shape += token.kind == SqlTokenKind::String ? "text" : std::string(lexer.TextOf(token));
    shape += ' ';
  }
  return shape;
}

class HostileBarcodes : public StoredLinesTest {
 protected:
  void SetUp() override {
    Execute(
        "insert into tblInventory (ID,Name) values (1,'انبار');"
        "insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (2,'عدد',1);"
        "insert into tblGood (Barcode,Name) values ('A','گچ');"
        "insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (1,1,1,'2001-01-01');"
        "insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (1,'A',10,4);"
        "insert into tblInventoryCounting (ID,InventoryID) values (1,1)");
    form.gmpInventory.Select(1);
    form.AddLine("nobody knows it");
  }
  Texts SentShapes() {
    Texts shapes;
    for (const std::string& statement : NewStatements()) shapes.push_back(Shape(statement));
    return shapes;
  }
};

TEST_F(HostileBarcodes, Never_become_more_than_a_text_in_a_statement) {
  form.quantity.CalculateAllLines();
  const Texts harmless = SentShapes();
  ASSERT_EQ(harmless.size(), 6U);
  const std::string before = database.Dump();
  int refused = 0;
  int calculated = 0;
  for (const std::string& barcode : HostileTexts()) {
    form.Set(1, LineColumn::Barcode, barcode);
    if (StaysInLiteral(Trim(barcode))) {
      ++calculated;
      EXPECT_NO_THROW(form.quantity.CalculateAllLines()) << barcode;
      EXPECT_EQ(SentShapes(), harmless) << barcode;
      EXPECT_EQ(form.Cell(1, LineColumn::SystemCounting), "0") << barcode;
    } else {
      ++refused;
      EXPECT_THROW(form.quantity.CalculateAllLines(), DatabaseError) << barcode;
      EXPECT_EQ(NewStatements(), Texts{}) << barcode;
    }
  }
  EXPECT_GE(refused, 100);
  EXPECT_GE(calculated, 100);
  EXPECT_EQ(database.Dump(), before);
}

TEST_F(HostileBarcodes, Are_refused_by_the_book_stock_of_a_good) {
  const std::string before = database.Dump();
  for (const std::string& barcode :
       {std::string("x'; delete tblGood --"), std::string("x\0'", 3), std::string("'")}) {
    EXPECT_THROW(static_cast<void>(form.quantity.GetQTy(1, barcode)), DatabaseError);
  }
  EXPECT_EQ(NewStatements(), Texts{});
  EXPECT_EQ(database.Dump(), before);
}

TEST_F(HostileBarcodes, A_stored_barcode_with_an_apostrophe_is_shown_like_any_other) {
  Execute(
      "insert into tblGood (Barcode,Name) values ('x''; delete tblGood --','گچ');"
      "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber) values (1,'x''; delete tblGood "
      "--',1)");
  form.lines.FillInvCounterDetailData(1);
  EXPECT_EQ(form.Column(LineColumn::Barcode), Texts{"x'; delete tblGood --"});
}

}  // namespace
}  // namespace koru
