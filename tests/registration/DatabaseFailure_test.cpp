#include <gtest/gtest.h>

#include <cstdlib>
#include <iomanip>
#include <iostream>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"
#include "registration/AdjustmentDocuments.h"
#include "registration/FinalRegistration.h"
#include "registration/ReturnToTemporary.h"
#include "registration/TemporarySave.h"
#include "tests/registration/CountingDesk.h"

// Every command is stopped at each of its statements in turn. What the statements before the failing one
// wrote must be in the database and nothing else, and the command must be able to run again, also when
// several statements share a round trip. With
// KORU_PRINT_FAILURES=1 each command prints a table of what it leaves in the database.

namespace koru {
namespace {

/// A command, the desk that it starts from, and what must be true once it has run through.
struct Command {
  const char* name;
  void (*prepare)(CountingDesk&);
  void (*run)(CountingDesk&);
  void (*check)(CountingDesk&);
};

// What a command starts from
// -----------------------------------------------------------------------------------------

/// Two countings of others stand around, with the numbers 1 and 2.
void PutOthers(CountingDesk& desk) {
  desk.Execute(
      "insert into tblInventoryCounting (ID, Code, Notes) values (1, NULL, 'before'), (2, 1, 'other'), (3, "
      "2, 'other');"
      "insert into tblInventoryCountingDetail (CountingID, Barcode, ContradictionCounting) values (2, '9', "
      "-1);"
      "insert into tblInventoryDispatch (ID, Notes) values (5, 'other');"
      "insert into tblInventoryReceipt (ID, Notes) values (6, 'other');"
      "update tblInventoryCounting set DispatchID = 5, ReceiptID = 6 where ID = 2");
}

void PrepareNew(CountingDesk& desk) {
  PutOthers(desk);
  desk.FillHeader();
  desk.AddLine({.barcode = "100", .accepted = "7", .system = "2", .surplus = "5"});
  desk.AddLine({.barcode = "200", .accepted = "2", .system = "5", .shortage = "3"});
  desk.shared.DocMode = DocumentMode::New;
}

void PrepareEdited(CountingDesk& desk) {
  PrepareNew(desk);
  desk.form.lblIDVal.SetCaption("1");
  desk.StoreLine(1, "300", "-8");
  desk.shared.DocMode = DocumentMode::Editing;
}

/// Counting 1 is saved and has the number 3; of documents it has those of a registration before.
void PrepareRegistered(CountingDesk& desk) {
  PrepareEdited(desk);
  desk.StoreLine(2, "400", "2");
  desk.Execute(
      "insert into tblInventoryDispatch (ID, Notes) values (7, 'own');"
      "insert into tblInventoryDispatchDetail (DispatchID, Barcode) values (7, '300');"
      "insert into tblInventoryReceipt (ID, Notes) values (8, 'own');"
      "insert into tblInventoryReceiptDetail (ReceiptID, Barcode) values (8, '400');"
      "update tblInventoryCounting set Code = 3, DispatchID = 7, ReceiptID = 8 where ID = 1;"
      "insert into tblInventoryCounting (Code) values (4)");
  desk.form.txtCode.SetText("3");
  desk.shared.DocMode = DocumentMode::Viewing;
}

// The commands
// -------------------------------------------------------------------------------------------------------

void Save(CountingDesk& desk) { TemporarySave(desk.form, desk.shared, desk.guard).Run(); }
void Register(CountingDesk& desk) { FinalRegistration(desk.form, desk.shared, desk.guard).Run(); }
void Adjust(CountingDesk& desk) { AdjustmentDocuments(desk.form, desk.shared).CreateAdjustmentDocuments(); }
void Return(CountingDesk& desk) {
  desk.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  desk.returning.Run();
}

// What must be true in the end
// ---------------------------------------------------------------------------------------

std::string Shown(CountingDesk& desk) { return desk.form.lblIDVal.Caption(); }

void CheckSaved(CountingDesk& desk) {
  EXPECT_EQ(desk.Rows("select ManualCode, Notes from tblInventoryCounting where ID = " + Shown(desk)),
            Texts{"م-12|شمارش 'پايان' سال"});
  EXPECT_EQ(desk.Rows("select RowNumber, Barcode, ContradictionCounting from tblInventoryCountingDetail "
                      "where CountingID = " +
                      Shown(desk) + " order by RowNumber"),
            (Texts{"1|100|5", "2|200|-3"}));
  EXPECT_EQ(desk.shared.DocMode, DocumentMode::Viewing);
}

/// Documents of exactly the lines that the counting has.
void CheckDocuments(CountingDesk& desk, const Texts& dispatchLines, const Texts& receiptLines) {
  EXPECT_EQ(desk.Rows("select Barcode, Qty from tblInventoryDispatchDetail where DispatchID = "
                      "(select DispatchID from tblInventoryCounting where ID = " +
                      Shown(desk) + ")"),
            dispatchLines);
  EXPECT_EQ(desk.Rows("select Barcode, Qty from tblInventoryReceiptDetail where ReceiptID = "
                      "(select ReceiptID from tblInventoryCounting where ID = " +
                      Shown(desk) + ")"),
            receiptLines);
  EXPECT_EQ(desk.Rows("select ID from tblInventoryDispatch where Notes = 'own'"), Texts{});
  EXPECT_EQ(desk.Rows("select ID from tblInventoryReceipt where Notes = 'own'"), Texts{});
}

void CheckRegistered(CountingDesk& desk) {
  CheckSaved(desk);
  CheckDocuments(desk, {"200|3"}, {"100|5"});
  EXPECT_EQ(desk.Rows("select Code from tblInventoryCounting where ID = " + Shown(desk)),
            Texts{desk.form.txtCode.Text()});
}

void CheckAdjusted(CountingDesk& desk) { CheckDocuments(desk, {"300|8"}, {"400|2"}); }

void CheckReturned(CountingDesk& desk) {
  EXPECT_EQ(desk.Rows("select Code from tblInventoryCounting order by ID"), (Texts{"NULL", "1", "2", "3"}));
  CheckDocuments(desk, {}, {});
  EXPECT_EQ(desk.form.txtCode.Text(), "");
}

// The sweep
// ----------------------------------------------------------------------------------------------------------

/// What the command sends when nothing fails, questions for rights included.
Texts StatementsOf(const Command& command) {
  CountingDesk desk;
  command.prepare(desk);
  desk.StartRecording();
  command.run(desk);
  command.check(desk);
  return desk.recording.Statements();
}

/// How the database must look before statement 1, 2, ... of the command: the statements, one by one, without
/// it.
Texts DumpsBefore(const Command& command, const Texts& statements) {
  CountingDesk desk;
  command.prepare(desk);
  Texts dumps;
  for (const std::string& statement : statements) {
    dumps.push_back(desk.Dump());
    if (statement.starts_with("{?")) continue;
    SqlText sql;
    sql += Typed(statement);  // its literals were checked when it was sent first
    desk.database.Connector().Connect(desk.database.ConnectionText())->Open(sql);
  }
  return dumps;
}

std::string Summary(CountingDesk& desk) {
  const auto count = [&](const std::string& table) {
    return desk.database.Scalar("select count(*) from " + table);
  };
  std::string numbers = desk.database.Rows("select Code from tblInventoryCounting order by ID");
  std::replace(numbers.begin(), numbers.end(), '\n', ' ');
  return "countings " + count("tblInventoryCounting") + ", lines " + count("tblInventoryCountingDetail") +
         ", dispatches " + count("tblInventoryDispatch") + "/" + count("tblInventoryDispatchDetail") +
         ", receipts " + count("tblInventoryReceipt") + "/" + count("tblInventoryReceiptDetail") +
         ", numbers " + numbers;
}

/// Whoever saves again first opens the counting for editing, which the failed command left in viewing.
void TryAgain(const Command& command, CountingDesk& desk) {
  if (command.run == &Save && desk.shared.DocMode == DocumentMode::Viewing) {
    desk.shared.DocMode = DocumentMode::Editing;
  }
  command.run(desk);
}

void FailAt(const Command& command, std::size_t perTrip, int n, const std::string& statement,
            const std::string& expected) {
  SCOPED_TRACE(std::string(command.name) + ", statement " + std::to_string(n) + ", " +
               std::to_string(perTrip) + " in a trip: " + statement);
  CountingDesk desk;
  desk.server.trips.statementsPerTrip = perTrip;
  command.prepare(desk);
  desk.failing.Plan().FailAt(n);
  try {
    command.run(desk);
    // After everything is written, the stored counting is read once more; nothing depends on that.
    EXPECT_TRUE(test::LooksForChanges(statement)) << "the failure did not reach the caller";
    return;
  } catch (const DatabaseError& failure) {
    EXPECT_EQ(failure.ServerText(), test::FaultPlan::kServerText);
    EXPECT_EQ(failure.Code(), test::FaultPlan::kCode);
    if (!statement.starts_with("{?")) {
      EXPECT_EQ(failure.Statement(), statement);
    }
  }
  EXPECT_EQ(desk.failing.Plan().Count(), n) << "something was sent after the failure";
  EXPECT_EQ(desk.Dump(), expected);
  EXPECT_EQ(desk.screen.CurrentCursor(), Cursor::Normal);
  EXPECT_FALSE(desk.form.pgbStatus.Visible());
  const std::string left = Summary(desk);
  TryAgain(command, desk);
  command.check(desk);
  if (std::getenv("KORU_PRINT_FAILURES") != nullptr) {
    std::cout << std::setw(3) << n << " | " << Utf16Prefix(statement, 60) << " | " << left << " | "
              << Summary(desk) << '\n';
  }
}

void Sweep(const Command& command) {
  const Texts statements = StatementsOf(command);
  const Texts dumps = DumpsBefore(command, statements);
  ASSERT_GT(statements.size(), 3U);
  if (std::getenv("KORU_PRINT_FAILURES") != nullptr) {
    std::cout << command.name << ": n | failing statement | left behind | after a second try\n";
  }
  for (std::size_t i = 0; i < statements.size(); ++i) {
    for (const std::size_t perTrip : {1U, 3U}) {
      FailAt(command, perTrip, static_cast<int>(i) + 1, statements[i], dumps[i]);
    }
  }
}

TEST(DatabaseFailure, Saving_a_new_counting_keeps_what_was_written_before_the_failure) {
  Sweep({"save, new", &PrepareNew, &Save, &CheckSaved});
}

TEST(DatabaseFailure, Saving_an_edited_counting_keeps_what_was_written_before_the_failure) {
  Sweep({"save, edited", &PrepareEdited, &Save, &CheckSaved});
}

TEST(DatabaseFailure, Registering_a_new_counting_keeps_what_was_written_before_the_failure) {
  Sweep({"registration, new", &PrepareNew, &Register, &CheckRegistered});
}

TEST(DatabaseFailure, Registering_an_edited_counting_keeps_what_was_written_before_the_failure) {
  Sweep({"registration, edited", &PrepareEdited, &Register, &CheckRegistered});
}

TEST(DatabaseFailure, Writing_adjustment_documents_keeps_what_was_written_before_the_failure) {
  Sweep({"adjustment documents", &PrepareRegistered, &Adjust, &CheckAdjusted});
}

TEST(DatabaseFailure, Returning_a_counting_keeps_what_was_written_before_the_failure) {
  Sweep({"return to temporary", &PrepareRegistered, &Return, &CheckReturned});
}

}  // namespace
}  // namespace koru
