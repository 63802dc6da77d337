#include "host/NewDatabase.h"

#include <gtest/gtest.h>

#include <fstream>

#include "adapters/provider/ConnectorByProvider.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/system/TemporaryFolder.h"
#include "database/sqlserver/CheckDatabase.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

TEST(NewDatabase, It_is_in_order_and_its_one_user_may_do_everything) {
  const TemporaryFolder folder;
  const std::string file = (folder.Path() / "new.db").string();
  MakeEmptyDatabase(file);
  ConnectorByProvider databases;
  for (const CheckedThing& thing : CheckDatabase(databases, EmbeddedConnectionText(file)))
    EXPECT_TRUE(thing.ok) << thing.what << ": " << thing.sentence;
  const auto database = databases.Connect(EmbeddedConnectionText(file));
  EXPECT_EQ(database->Open(SqlText("select FullName from tblUser")).RecordCount(), 1U);
  EXPECT_EQ(database->Open(SqlText("select ID from vwInventoryCounting")).RecordCount(), 0U);
  for (const int right : {806, 80601, 80602, 80603, 80604, 80605, 80606, 80607})
    EXPECT_EQ(database->Call("spPelinHasPermission", {1, right}), 1) << right;
}

TEST(NewDatabase, A_file_that_exists_is_not_written_over) {
  const TemporaryFolder folder;
  const std::string file = (folder.Path() / "new.db").string();
  std::ofstream(file) << "mine";
  EXPECT_THROW(MakeEmptyDatabase(file), InputError);
  EXPECT_EQ(std::filesystem::file_size(file), 4U);
}

}  // namespace
}  // namespace koru
