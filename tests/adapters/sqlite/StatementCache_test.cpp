#include "adapters/sqlite/StatementCache.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

class StatementCacheOfTwo : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
  SqliteConnection connection_{folder_.File("a.db"), SqliteConnection::Mode::Create, std::chrono::seconds(0)};
  std::vector<std::string> prepared_;
  StatementCache<SqliteStatement> cache_{2, [this](const std::string& text) {
                                           SqliteStatement statement = connection_.Prepare(text);
                                           prepared_.push_back(text);
                                           return statement;
                                         }};
};

TEST_F(StatementCacheOfTwo, Prepares_a_text_once) {
  cache_.Get("select 1");
  cache_.Get("select 1");
  EXPECT_EQ(prepared_, std::vector<std::string>{"select 1"});
}

TEST_F(StatementCacheOfTwo, Evicts_the_least_recently_used) {
  cache_.Get("select 1");
  cache_.Get("select 2");
  cache_.Get("select 1");
  cache_.Get("select 3");
  EXPECT_EQ(cache_.Size(), 2U);
  cache_.Get("select 1");
  EXPECT_EQ(prepared_.size(), 3U);
  cache_.Get("select 2");
  EXPECT_EQ(prepared_, (std::vector<std::string>{"select 1", "select 2", "select 3", "select 2"}));
}

TEST_F(StatementCacheOfTwo, Keeps_nothing_of_a_statement_that_cannot_be_prepared) {
  EXPECT_THROW(cache_.Get("selekt 1"), DatabaseError);
  EXPECT_EQ(cache_.Size(), 0U);
  EXPECT_TRUE(cache_.Get("select 1").Step());
}

}  // namespace
}  // namespace koru
