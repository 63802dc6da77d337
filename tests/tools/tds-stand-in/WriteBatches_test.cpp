// Write batches, several statements at once and inserted keys, through ODBC on the stand-in.

#include <chrono>
#include <future>
#include <string>
#include <vector>

#include "adapters/odbc/OdbcDatabase.h"
#include "adapters/odbc/OdbcDrivers.h"
#include "tests/tools/tds-stand-in/StandInServerTest.h"

namespace koru::test {
namespace {

using Fault = StandInServer::Fault;

SqlText InsertUser(int id) { return SqlText("insert into tblUser (ID,FullName) values (") + id + ",'نام')"; }
/// The server undoes the transaction with it.
SqlText NoNumber() { return SqlText("insert into tblInventoryReceipt (Code) values ('x')"); }

class ServerWriteBatches : public SuiteServerTest {
 protected:
  std::string Users(Database& database) {
    return database.Open(SqlText("select count(*) as Users from tblUser")).Field("Users").Text();
  }
  /// One that waits for another station's write batch for a second.
  [[nodiscard]] std::unique_ptr<Database> ConnectImpatient() const {
    OdbcTimeouts timeouts;
    timeouts.lock = std::chrono::seconds(1);
    return std::make_unique<OdbcDatabase>(ReadTarget(server_.ConnectionText(), InstalledDrivers()), timeouts);
  }
  /// The words of the failure of `work`.
  template <class Work>
  static std::string Failure(Work work) {
    try {
      work();
    } catch (const DatabaseError& failure) {
      return failure.ServerText();
    }
    return "went through";
  }
  static bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }
};

TEST_F(ServerWriteBatches, Show_nothing_to_others_before_they_end) {
  const auto other = Connect();
  const auto batch = database_->BeginWriteBatch();
  Open(InsertUser(1));
  EXPECT_EQ(Users(*database_), "1");
  EXPECT_EQ(Users(*other), "0");
  batch->Finish();
  EXPECT_EQ(Users(*other), "1");
}

TEST_F(ServerWriteBatches, Follow_one_another) {
  auto other = Connect();
  auto batch = database_->BeginWriteBatch();
  auto second = std::async(std::launch::async, [&] {
    const auto own = other->BeginWriteBatch();
    const std::string seen = Users(*other);
    own->Finish();
    return seen;
  });
  Open(InsertUser(1));
  batch->Finish();
  EXPECT_EQ(second.get(), "1");
}

TEST_F(ServerWriteBatches, Name_what_they_wait_for_and_write_nothing_when_it_does_not_end) {
  const auto other = ConnectImpatient();
  const auto batch = database_->BeginWriteBatch();
  Open(InsertUser(1));
  const std::string words = Failure([&] { static_cast<void>(other->BeginWriteBatch()); });
  EXPECT_TRUE(Has(words, "ايستگاه ديگري در حال ذخيره")) << words;
  EXPECT_TRUE(Has(words, "در 1 ثانيه پايان نيافت. چيزي نوشته نشد")) << words;
  batch->Finish();
  const auto next = other->BeginWriteBatch();
  other->Open(InsertUser(2));
  next->Finish();
  EXPECT_EQ(Users(*database_), "2");
}

TEST_F(ServerWriteBatches, Are_undone_whole_with_their_connection_and_send_nothing_more) {
  const auto other = Connect();
  auto batch = database_->BeginWriteBatch();
  Open(InsertUser(1));
  server_.ArrangeFault(1, Fault::CutBefore);
  const std::string first = Failure([&] { Open(InsertUser(2)); });
  EXPECT_TRUE(Has(first, "تغييرات پيشين اين فرمان نيز از دست رفت")) << first;
  const std::uint64_t sent = server_.RoundTrips();
  EXPECT_TRUE(Has(Failure([&] { Open(InsertUser(3)); }), "تغييرات اين فرمان ثبت نشد"));
  EXPECT_TRUE(Has(Failure([&] { database_->OpenAll({InsertUser(4)}, [](auto, const auto&) {}); }),
                  "تغييرات اين فرمان ثبت نشد"));
  EXPECT_TRUE(Has(Failure([&] {
                    database_->Call("spPelinHasPermission", {1, 2});
                  }),
                  "تغييرات اين فرمان ثبت نشد"));
  EXPECT_TRUE(Has(Failure([&] { batch->Finish(); }), "تغييرات اين فرمان ثبت نشد"));
  EXPECT_EQ(server_.RoundTrips(), sent);
  EXPECT_EQ(Users(*other), "0");
  batch = database_->BeginWriteBatch();
  Open(InsertUser(5));
  batch->Finish();
  EXPECT_EQ(Users(*other), "1");
}

TEST_F(ServerWriteBatches, Are_lost_with_a_deadlock_and_a_value_that_cannot_be_converted) {
  for (const bool isDeadlock : {true, false}) {
    const auto batch = database_->BeginWriteBatch();
    Open(InsertUser(1));
    if (isDeadlock) server_.ArrangeFault(1, Fault::Deadlock);
    const std::string words = Refusal(isDeadlock ? InsertUser(2) : NoNumber());
    EXPECT_TRUE(words.starts_with(isDeadlock ? "1205: " : "245: ")) << words;
    EXPECT_TRUE(Has(words, "تغييرات پيشين اين فرمان نيز از دست رفت")) << words;
    EXPECT_TRUE(Has(Failure([&] { Open(InsertUser(3)); }), "تغييرات اين فرمان ثبت نشد"));
    EXPECT_TRUE(Has(Failure([&] { batch->Finish(); }), "تغييرات اين فرمان ثبت نشد"));
    EXPECT_EQ(Users(*database_), "0");
  }
}

TEST_F(ServerWriteBatches, Are_lost_with_several_statements_one_of_which_loses_them) {
  const auto batch = database_->BeginWriteBatch();
  std::size_t done = 0;
  const std::string words = Failure([&] {
    database_->OpenAll({InsertUser(1), NoNumber(), InsertUser(2)}, [&](auto, const auto&) { ++done; });
  });
  EXPECT_TRUE(Has(words, "تغييرات پيشين اين فرمان نيز از دست رفت")) << words;
  EXPECT_EQ(done, 1U);
  EXPECT_TRUE(Has(Failure([&] { batch->Finish(); }), "تغييرات اين فرمان ثبت نشد"));
  EXPECT_EQ(Users(*database_), "0");
}

TEST_F(ServerWriteBatches, Whose_end_gets_no_answer_are_of_unknown_outcome) {
  for (const Fault fault : {Fault::CutBefore, Fault::CutAfter}) {
    Open("delete tblUser");
    const auto batch = database_->BeginWriteBatch();
    Open(InsertUser(1));
    server_.ArrangeFault(1, fault);
    EXPECT_THROW(batch->Finish(), UnansweredWrite);
    EXPECT_EQ(Users(*database_), fault == Fault::CutBefore ? "0" : "1");
  }
}

TEST_F(ServerWriteBatches, That_are_given_up_keep_what_succeeded) {
  {
    const auto batch = database_->BeginWriteBatch();
    Open(InsertUser(1));
    EXPECT_TRUE(IsRefusal(Refusal(InsertUser(1)), 2627, "tblUser"));
  }
  EXPECT_EQ(Users(*Connect()), "1");
}

TEST_F(ServerWriteBatches, Take_one_round_trip_to_begin_and_one_to_end) {
  const std::uint64_t before = server_.RoundTrips();
  const auto batch = database_->BeginWriteBatch();
  batch->Finish();
  EXPECT_EQ(server_.RoundTrips() - before, 2U);
}

TEST_F(ServerWriteBatches, Statements_take_a_round_trip_for_500) {
  for (const auto& [statements, trips] :
       std::vector<std::pair<int, std::uint64_t>>{{1, 1}, {500, 1}, {501, 2}, {1500, 3}}) {
    Open("delete tblUser");
    std::vector<SqlText> inserts;
    for (int id = 1; id <= statements; ++id) inserts.push_back(InsertUser(id));
    const std::uint64_t before = server_.RoundTrips();
    database_->OpenAll(inserts, [](auto, const auto&) {});
    EXPECT_EQ(server_.RoundTrips() - before, trips) << statements;
  }
}

TEST_F(ServerWriteBatches, An_inserted_key_is_the_connections_own) {
  const auto other = Connect();
  EXPECT_EQ(database_->InsertedKey(), std::nullopt);
  Open("insert into tblInventoryReceipt (Code) values (1)");
  other->Open(SqlText("insert into tblInventoryReceipt (Code) values (2)"));
  EXPECT_EQ(Text("select Max(ID) as MaxID from tblInventoryReceipt", "MaxID"), "2");
  EXPECT_EQ(database_->InsertedKey(), 1);
  EXPECT_EQ(other->InsertedKey(), 2);
  Open(InsertUser(9));
  EXPECT_EQ(database_->InsertedKey(), std::nullopt);
  Open("insert into tblInventoryDispatch (Code) values (1)");
  EXPECT_EQ(database_->InsertedKey(), 1);
  EXPECT_TRUE(IsRefusal(Refusal(NoNumber()), 245, "Code"));
  EXPECT_EQ(database_->InsertedKey(), std::nullopt);
}

TEST_F(ServerWriteBatches, A_key_whose_row_was_undone_is_not_given_again) {
  {
    const auto batch = database_->BeginWriteBatch();
    Open("insert into tblInventoryReceipt (Code) values (1)");
    server_.ArrangeFault(1, Fault::CutBefore);
    EXPECT_THROW(batch->Finish(), UnansweredWrite);
  }
  Open("insert into tblInventoryReceipt (Code) values (1)");
  EXPECT_EQ(database_->InsertedKey(), 2);
}

TEST_F(ServerWriteBatches, A_failure_outside_of_them_leaves_no_transaction) {
  EXPECT_TRUE(IsRefusal(Refusal("commit transaction"), 3902, "COMMIT"));
  EXPECT_TRUE(IsRefusal(Refusal("rollback transaction"), 3903, "ROLLBACK"));
  EXPECT_EQ(Text("select @@trancount as Transactions", "Transactions"), "0");
}

}  // namespace
}  // namespace koru::test
