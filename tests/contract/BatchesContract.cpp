// Several statements at once, write batches, and the key of an inserted row.

#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "tests/contract/DatabaseContract.h"

namespace koru::test {
namespace {

SqlText InsertUser(int id) {
  return SqlText("insert into tblUser (ID,FullName) values (") + id + ",'نام " + id + "')";
}
SqlText SelectUser(int id) { return SqlText("select FullName from tblUser where ID=") + id; }

/// The results of several statements, each as `number:text;`, `number:none;` or `number:-;` without columns.
class Results {
 public:
  void RunAll(Database& database, const std::vector<SqlText>& statements) {
    database.OpenAll(statements, [&](std::size_t number, const Recordset& records) {
      text_ += std::to_string(number) + ":";
      if (records.Columns().empty()) {
        text_ += "-;";
      } else {
        text_ += records.AtEnd() ? "none;" : records.Field(0).Text() + ";";
      }
    });
  }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

TEST_P(DatabaseContract, Several_statements_give_their_results_in_order) {
  Results results;
  results.RunAll(*database_, {InsertUser(1), SelectUser(1), SelectUser(2), InsertUser(2), SelectUser(2),
                              SqlText("update tblUser set FullName='x' where ID=9"),
                              SqlText("delete tblUser where ID=1;"),
                              SqlText("select count(*) as Users from tblUser -- all")});
  EXPECT_EQ(results.Text(), "0:-;1:نام 1;2:none;3:-;4:نام 2;5:-;6:-;7:1;");
}

TEST_P(DatabaseContract, No_statement_or_one_is_a_run_as_well) {
  Results results;
  results.RunAll(*database_, {});
  EXPECT_EQ(results.Text(), "");
  results.RunAll(*database_, {InsertUser(1)});
  EXPECT_EQ(results.Text(), "0:-;");
}

TEST_P(DatabaseContract, More_statements_than_a_server_takes_at_once_all_run) {
  std::vector<SqlText> statements;
  for (int id = 1; id <= 1'203; ++id) statements.push_back(InsertUser(id));
  std::size_t next = 0;
  database_->OpenAll(statements, [&](std::size_t number, const Recordset&) { EXPECT_EQ(number, next++); });
  EXPECT_EQ(next, statements.size());
  EXPECT_EQ(Text(SqlText("select count(*) as Users from tblUser"), "Users"), "1203");
}

TEST_P(DatabaseContract, Statements_longer_than_a_server_takes_at_once_all_run) {
  const std::string notes(100'000, 'x');
  std::vector<SqlText> statements;
  for (int i = 0; i < 8; ++i) {
    statements.push_back(SqlText("insert into tblInventoryCounting (Notes) values ('") + Typed(notes) + "')");
  }
  database_->OpenAll(statements, [](std::size_t, const Recordset&) {});
  EXPECT_EQ(Text(SqlText("select count(*) as Countings from tblInventoryCounting"), "Countings"), "8");
}

TEST_P(DatabaseContract, A_failing_statement_ends_several_where_one_by_one_would) {
  const std::vector<SqlText> failing{InsertUser(1),
                                     SqlText("insert into tblUser (ID,FullName) values (9,NULL)"),
                                     SqlText("select * from tblNoSuchTable"),
                                     SqlText("select NoSuchColumn from tblUser"), SqlText("selct 1")};
  for (const SqlText& wrong : failing) {
    SCOPED_TRACE(wrong.Text());
    Open(SqlText("delete tblUser"));
    Open(InsertUser(1));
    Results results;
    try {
      results.RunAll(*database_, {InsertUser(2), SelectUser(2), wrong, InsertUser(3)});
      ADD_FAILURE() << "went through";
    } catch (const DatabaseError& failure) {
      EXPECT_EQ(failure.Statement(), wrong.Text());
      EXPECT_NE(failure.Code(), 0);
    }
    EXPECT_EQ(results.Text(), "0:-;1:نام 2;");
    EXPECT_EQ(Text(SqlText("select max(ID) as Last from tblUser"), "Last"), "2");
  }
}

TEST_P(DatabaseContract, A_failing_first_statement_leaves_nothing_of_several) {
  for (const SqlText& wrong : {SqlText("select * from tblNoSuchTable"), SqlText("selct 1"),
                               SqlText("insert into tblUser (ID,FullName) values (1,NULL)")}) {
    Results results;
    EXPECT_THROW(results.RunAll(*database_, {wrong, InsertUser(1)}), DatabaseError);
    EXPECT_EQ(results.Text(), "");
  }
  EXPECT_EQ(Open(SqlText("select ID from tblUser")).RecordCount(), 0U);
}

TEST_P(DatabaseContract, A_statement_of_several_that_is_two_is_refused_and_none_runs_after_it) {
  EXPECT_THROW(
      database_->OpenAll({InsertUser(1), SqlText("select 1 as A; delete tblUser")}, [](auto, const auto&) {}),
      DatabaseError);
  EXPECT_EQ(Open(SqlText("select ID from tblUser where ID>1")).RecordCount(), 0U);
}

TEST_P(DatabaseContract, A_write_batch_keeps_what_was_before_a_failing_statement_of_several) {
  {
    const auto batch = database_->BeginWriteBatch();
    Open(InsertUser(1));
    EXPECT_THROW(database_->OpenAll({InsertUser(2), InsertUser(1), InsertUser(3)}, [](auto, const auto&) {}),
                 DatabaseError);
    Open(InsertUser(4));
    batch->Finish();
  }
  Recordset kept = subject_->Connect()->Open(SqlText("select ID from tblUser order by ID"));
  std::string keys;
  for (; !kept.AtEnd(); kept.MoveNext()) keys += kept.Field("ID").Text() + " ";
  EXPECT_EQ(keys, "1 2 4 ");
}

TEST_P(DatabaseContract, What_a_write_batch_has_written_is_seen_by_others_when_it_ends) {
  const auto other = subject_->Connect();
  {
    const auto outer = database_->BeginWriteBatch();
    Open(InsertUser(1));
    {
      const auto inner = database_->BeginWriteBatch();
      Open(InsertUser(2));
      inner->Finish();
    }
    outer->Finish();
  }
  EXPECT_EQ(other->Open(SqlText("select ID from tblUser")).RecordCount(), 2U);
}

TEST_P(DatabaseContract, Inside_a_write_batch_the_highest_key_is_the_one_that_was_inserted) {
  const auto batch = database_->BeginWriteBatch();
  for (int time = 1; time <= 3; ++time) {
    Open(SqlText("insert into tblInventoryReceipt (Code) values (NULL)"));
    const std::int64_t highest =
        Open(SqlText("select Max(ID) as MaxID from tblInventoryReceipt")).Field("MaxID").Integer();
    EXPECT_EQ(database_->InsertedKey().value_or(highest), highest);
    EXPECT_EQ(highest, time);
  }
  batch->Finish();
}

}  // namespace
}  // namespace koru::test
