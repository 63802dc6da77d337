#include "adapters/odbc/EmbeddedDialect.h"

#include <gtest/gtest.h>

#include "platform/sql/DatabaseError.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

class EmbeddedDialectTest : public testing::Test {
 protected:
  test::TestFile file_;
  EmbeddedDialect dialect_{file_.File()};
};

using Literals = std::vector<Literal>;

TEST_F(EmbeddedDialectTest, Literals_are_bound_in_the_order_of_their_places) {
  const SentStatement sent = dialect_.Write("select top 2 ID from tblUser where FullName='x' and ID>7");
  EXPECT_EQ(sent.text, "select ID from tblUser where FullName=? and ID>? limit ?");
  EXPECT_EQ(sent.parameters, (Literals{"x", std::int64_t{7}, std::int64_t{2}}));
}

TEST_F(EmbeddedDialectTest, A_literal_that_the_translation_repeats_is_bound_at_each_place) {
  const SentStatement sent = dialect_.Write("select Qty from tblInventoryReceiptDetail where Barcode='6260'");
  EXPECT_EQ(sent.parameters, (Literals{"6260", "6260"})) << sent.text;
}

TEST_F(EmbeddedDialectTest, The_same_shape_takes_the_literals_of_each_statement) {
  static_cast<void>(dialect_.Write("delete tblUser where ID=1"));
  const SentStatement sent = dialect_.Write("delete tblUser where ID=2");
  EXPECT_EQ(sent.text, "delete from tblUser where ID=?");
  EXPECT_EQ(sent.parameters, (Literals{std::int64_t{2}}));
}

TEST_F(EmbeddedDialectTest, More_than_one_statement_is_refused) {
  EXPECT_THROW(static_cast<void>(dialect_.Write("delete tblUser; delete tblGood")), DatabaseError);
}

}  // namespace
}  // namespace koru
