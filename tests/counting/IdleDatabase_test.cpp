#include <gtest/gtest.h>

#include <filesystem>

#include "adapters/sqlite/SqliteConnector.h"
#include "lines/LineColumns.h"
#include "platform/sql/ConnectionText.h"
#include "tests/counting/CountingWorld.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

/// A form on a database file that another program has open as well.
class IdleDatabase : public CountingWorld {
 public:
  IdleDatabase() : CountingWorld(TestDatabase::Kind::File) {}

 protected:
  void SetUp() override {
    file_ = ConnectionText::Parse(database.ConnectionText()).Get("Data Source");
    other_ = database.Connector().Connect(database.ConnectionText());
    other_->Idle();
  }
  void Save() {
    ViewAndEdit(10);
    Form().Timer1.Fire();
    ASSERT_TRUE(Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "77"));
    Click(Form().cmdTmpSave);
  }
  /// The accepted count of the first line of counting 10 in a copy of the file alone.
  std::string AcceptedInCopy() {
    const std::string copy = folder_.File("copy.koru");
    std::filesystem::remove(copy);
    std::filesystem::copy_file(file_, copy);
    Recordset line = SqliteConnector()
                         .Connect(EmbeddedConnectionText(copy))
                         ->Open(SqlText("select AcceptedCounting from tblInventoryCountingDetail where "
                                        "CountingID=10 and RowNumber=1"));
    return line.Field("AcceptedCounting").Text();
  }

  TemporaryFolder folder_;
  std::string file_;
  std::unique_ptr<Database> other_;
};

TEST_F(IdleDatabase, A_plain_copy_of_the_file_holds_a_save_once_the_user_pauses) {
  Save();
  EXPECT_EQ(AcceptedInCopy(), "10") << "the save is in the log";
  for (int tick = 0; tick < 5; ++tick) Form().Timer1.Fire();
  EXPECT_EQ(AcceptedInCopy(), "77");
}

TEST_F(IdleDatabase, A_plain_copy_of_the_file_holds_a_save_once_the_form_is_closed) {
  Save();
  Click(Form().cmdExit);
  EXPECT_EQ(AcceptedInCopy(), "77");
}

}  // namespace
}  // namespace koru::test
