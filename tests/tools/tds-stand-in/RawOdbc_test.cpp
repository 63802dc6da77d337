#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "adapters/odbc/OdbcDrivers.h"
#include "adapters/odbc/OdbcHandle.h"
#include "adapters/odbc/OdbcTarget.h"
#include "adapters/odbc/WideText.h"
#include "tests/tools/tds-stand-in/StandInServerTest.h"

namespace koru::test {
namespace {

using Answer = TdsServer::Answer;
using Statement = OdbcHandle<SQL_HANDLE_STMT>;

/// A connection of a program that speaks to the driver itself.
class RawConnection {
 public:
  explicit RawConnection(const std::string& connectionText) {
    std::u16string text = ToUtf16(ReadTarget(connectionText, InstalledDrivers()).odbcText);
    const SQLRETURN connected =
        SQLDriverConnectW(connection_.Get(), nullptr, Units(text), static_cast<SQLSMALLINT>(text.size()),
                          nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(connected)) throw std::runtime_error("not connected");
  }
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;
  ~RawConnection() { SQLDisconnect(connection_.Get()); }

  [[nodiscard]] SQLHDBC Get() const { return connection_.Get(); }

 private:
  OdbcEnvironment environment_;
  OdbcHandle<SQL_HANDLE_DBC> connection_{environment_.Get()};
};

SQLRETURN Execute(const Statement& statement, std::u16string text) {
  return SQLExecDirectW(statement.Get(), Units(text), static_cast<SQLINTEGER>(text.size()));
}

/// What a batch comes to, result by result: the number of rows written, `rows`, or `refused`.
std::string Results(const RawConnection& connection, const std::u16string& text) {
  const Statement statement(connection.Get());
  std::string results;
  SQLRETURN result = Execute(statement, text);
  do {
    SQLLEN written = -1;
    SQLSMALLINT columns = 0;
    if (result == SQL_ERROR) {
      results += "refused ";
    } else if (SQLNumResultCols(statement.Get(), &columns); columns > 0) {
      results += "rows ";
    } else {
      SQLRowCount(statement.Get(), &written);
      results += std::to_string(written) + " ";
    }
    result = SQLMoreResults(statement.Get());
  } while (result != SQL_NO_DATA);
  return results;
}

class RawOdbc : public SuiteServerTest {
 protected:
  [[nodiscard]] std::string Results(const std::u16string& text) const {
    return test::Results(connection_, text);
  }

  RawConnection connection_{server_.ConnectionText()};
};

TEST_F(RawOdbc, A_write_says_how_many_rows_it_wrote) {
  EXPECT_EQ(Results(u"insert into tblUser (ID,FullName) values (1,'a'),(2,'b'),(3,'c')"), "3 ");
  EXPECT_EQ(Results(u"update tblUser set FullName='d' where ID>1"), "2 ");
  EXPECT_EQ(Results(u"update tblUser set FullName='e' where ID>3"), "0 ");
  EXPECT_EQ(Results(u"select ID from tblUser"), "rows ");
  EXPECT_EQ(Results(u"delete tblUser"), "3 ");
  EXPECT_EQ(Results(u"create table tblOther (ID int null)"), "-1 ");
  EXPECT_EQ(Results(u"truncate table tblOther"), "-1 ");
  EXPECT_EQ(Results(u"set identity_insert tblInventoryReceipt on insert into tblInventoryReceipt (ID) values "
                    u"(4),(9) set identity_insert tblInventoryReceipt off"),
            "2 ");
}

TEST_F(RawOdbc, A_date_that_is_made_of_an_empty_text_counts_once) {
  EXPECT_EQ(Results(u"insert into tblInventoryCounting (CreateDate,FromDate) values ('',''),('','')"), "2 ");
  EXPECT_EQ(Results(u"update tblInventoryCounting set ToDate='' where ID=1"), "1 ");
}

TEST_F(RawOdbc, A_selection_that_is_given_up_in_the_middle_leaves_the_connection_usable) {
  for (int id = 1; id <= 2'000; ++id)
    Open(SqlText("insert into tblUser (ID,FullName) values (") + id + ",'x')");
  for (int time = 1; time <= 3; ++time) {
    const Statement statement(connection_.Get());
    EXPECT_EQ(Execute(statement, u"select ID,FullName from tblUser"), SQL_SUCCESS) << time;
    EXPECT_EQ(SQLFetch(statement.Get()), SQL_SUCCESS) << time;
  }
}

Answer Written(std::uint64_t rows) {
  Answer answer;
  answer.written = rows;
  return answer;
}

/// A server whose every batch has a write, one that is refused, one that says nothing, a selection and a
/// write.
class LongBatches : public testing::Test {
 protected:
  TdsServer server_{{.greets = [] { return true; },
                     .signIn = [](int, const std::string&) { return Answer{}; },
                     .batch = [](int, const std::string& batch) { return Answers(batch); },
                     .call = [](int, const ProcedureCall&) { return Answer{}; }}};

 private:
  static std::vector<Answer> Answers(const std::string& batch) {
    if (batch.starts_with("SET ")) return {Answer{}, Answer{}, Answer{}};
    Recordset rows({"ID"});
    rows.AppendInteger(806);
    return {Written(3),
            {Answer::Kind::Refusal, 2627, "Violation of PRIMARY KEY constraint."},
            Answer{},
            {Answer::Kind::Rows, 0, {}, rows},
            Written(1)};
  }
};

TEST_F(LongBatches, Each_of_their_statements_is_answered) {
  EXPECT_EQ(Results(RawConnection(server_.ConnectionText()), u"batch"), "3 refused rows 1 ");
}

TEST_F(LongBatches, Are_refused_when_one_of_their_statements_is_and_the_connection_stays) {
  const std::unique_ptr<Database> database = OdbcConnector().Connect(server_.ConnectionText());
  for (int time = 1; time <= 3; ++time) {
    try {
      database->Open(SqlText("delete T"));
      FAIL() << "went through";
    } catch (const DatabaseError& failure) {
      EXPECT_EQ(failure.Code(), 2627) << failure.ServerText();
    }
  }
}

}  // namespace
}  // namespace koru::test
