// The key of a row that a command has inserted is that row's, also where another program inserts a row
// between the insert and the question for the highest key.

#include <gtest/gtest.h>

#include <utility>

#include "lines/LineColumns.h"
#include "platform/sql/ForwardingDatabase.h"
#include "registration/FinalRegistration.h"
#include "registration/TemporarySave.h"
#include "tests/support/BareCountingForm.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/TestDatabase.h"

namespace koru {
namespace {

/// Another program's row is inserted right after each row of this one.
class BusyDatabase : public ForwardingDatabase {
 public:
  explicit BusyDatabase(std::unique_ptr<Database> inner) : ForwardingDatabase(std::move(inner)) {}

  Recordset Open(const SqlText& statement) override {
    Recordset records = Inner().Open(statement);
    const auto insertsInto = [&](FixedSql table) {
      return statement.Text().starts_with("insert into " + std::string(table.text) + " (");
    };
    if (insertsInto("tblInventoryCounting")) {
      Follow("select max(ID) as MaxID from tblInventoryCounting",
             "insert into tblInventoryCounting (Notes) values ('theirs')");
    }
    if (insertsInto("tblInventoryReceipt")) {
      Follow("select max(ID) as MaxID from tblInventoryReceipt",
             "insert into tblInventoryReceipt (Notes) values ('theirs')");
    }
    if (insertsInto("tblInventoryDispatch")) {
      Follow("select max(ID) as MaxID from tblInventoryDispatch",
             "insert into tblInventoryDispatch (Notes) values ('theirs')");
    }
    return records;
  }
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override {
    Database::OpenAll(statements, take);
  }
  [[nodiscard]] std::optional<std::int64_t> InsertedKey() override { return key_; }

 private:
  void Follow(FixedSql newest, FixedSql theirs) {
    key_ = Inner().Open(SqlText(newest)).Field("MaxID").Integer();
    Inner().Open(SqlText(theirs));
  }

  std::optional<std::int64_t> key_;
};

class BusyConnector : public DatabaseConnector {
 public:
  explicit BusyConnector(DatabaseConnector& inner) : inner_(inner) {}
  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override {
    return std::make_unique<BusyDatabase>(inner_.Connect(connectionText));
  }

 private:
  DatabaseConnector& inner_;
};

struct HasBusyDatabase {
  test::TestDatabase database;
  BusyConnector busy{database.Connector()};
};

class OwnKeys : public ::testing::Test, protected HasBusyDatabase, protected test::ComponentFixture {
 protected:
  OwnKeys() : ComponentFixture(busy) {
    shared.data.SetConnectionString(database.ConnectionText());
    shared.user.userID = 7;
    database.Execute("insert into tblPelinUserPermission values (7,80605),(7,80606)");
    form.flexDetail.SetCols(kLineColumns);
    form.gmpInventory.Select(3);
    AddLine("100", "-2");
    AddLine("200", "5");
    shared.DocMode = DocumentMode::New;
  }
  void AddLine(const std::string& barcode, const std::string& difference) {
    Grid& grid = form.flexDetail;
    grid.AddItem({});
    const int row = grid.Rows() - 1;
    grid.SetTextMatrix(row, LineColumn::Barcode, barcode);
    grid.SetTextMatrix(row, LineColumn::GoodName, "good");
    grid.SetTextMatrix(row, LineColumn::ScaleID, "4");
    const bool isShortage = difference.front() == '-';
    grid.SetTextMatrix(row, isShortage ? LineColumn::Shortage : LineColumn::Surplus,
                       isShortage ? difference.substr(1) : difference);
  }

  SharedState shared{HostServices{busy, components, screen, clock, files, spreadsheets}};
  test::BareCountingForm form{screen};
  StoredCountingGuard guard{shared};
};

TEST_F(OwnKeys, The_lines_of_a_new_counting_are_its_own) {
  TemporarySave(form, shared, guard).Run();
  EXPECT_EQ(form.lblIDVal.Caption(), "1");
  EXPECT_EQ(database.Rows("select CountingID,Barcode from tblInventoryCountingDetail order by RowNumber"),
            "1|100\n1|200\n");
  EXPECT_EQ(database.Rows("select ID,isnull(Notes,'') as Notes from tblInventoryCounting order by ID"),
            "1|\n2|theirs\n");
}

TEST_F(OwnKeys, The_documents_of_a_registration_are_its_own) {
  FinalRegistration(form, shared, guard).Run();
  EXPECT_EQ(database.Rows("select DispatchID,ReceiptID from tblInventoryCounting where ID=1"), "1|1\n");
  EXPECT_EQ(database.Rows("select DispatchID,Barcode,Qty from tblInventoryDispatchDetail"), "1|100|2\n");
  EXPECT_EQ(database.Rows("select ReceiptID,Barcode,Qty from tblInventoryReceiptDetail"), "1|200|5\n");
}

}  // namespace
}  // namespace koru
