#include "adapters/odbc/EmbeddedDialect.h"

#include <gtest/gtest.h>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

class EmbeddedDialectTest : public testing::Test {
 protected:
  EmbeddedDialect dialect_;
};

using Literals = std::vector<Literal>;

TEST_F(EmbeddedDialectTest, Literals_are_bound_in_the_order_of_their_places) {
  const SentStatement sent = dialect_.Write("select top 2 ID from tblUser where FullName='x' and ID>7");
  EXPECT_EQ(sent.text, "select ID from tblUser where FullName=? and ID>? limit ?");
  EXPECT_EQ(sent.parameters, (Literals{"x", std::int64_t{7}, std::int64_t{2}}));
}

TEST_F(EmbeddedDialectTest, The_same_statement_takes_the_literals_of_each_statement) {
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
