#include "tests/campaigns/Store.h"

#include <filesystem>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "database/Schema.h"
#include "platform/text/Numbers.h"
#include "tests/campaigns/Station.h"

namespace koru::test {
namespace {

constexpr const char* kSuite = R"(
insert into tblInventory (ID,ParentID,Name,IsDefault) values (1,null,'انبارها',0),(2,1,'انبار مركزي',1);
insert into tblInventoryParent (ID,ChildID) values (1,2);
insert into tblUser (ID,FullName) values (7,'علي رضايي');
insert into tblInventoryUser (UserID,InventoryID) values (7,1),(7,2);
insert into tblPelinUserPermission (UserID,FormPermissionID) values
  (7,806),(7,80601),(7,80602),(7,80603),(7,80604),(7,80605),(7,80606),(7,80607);
insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (1,'عدد',1);
insert into tblGood (Barcode,Code,Name) values ('G1','101','چاي'),('G2','102','قند'),('G3','103','شكر'),
  ('G4','104','برنج'),('G5','105','روغن'),('G6','106','نمك');
insert into tblPelinCompany (ID,Name,BasePath) values (1,'بازرگاني كورش','/reports/');
insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate) values (1,1,2,'2025-04-01');
insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (1,'G1',10,2),(1,'G2',20,3),(1,'G3',30,4);
insert into tblInventoryCounting (ID,InventoryID,CreatorID,CreateDate,FarsiCreateDate,Notes) values
  (1,2,7,'2025-12-20','1404/09/29','a'),(2,2,7,'2025-12-20','1404/09/29','b'),(3,2,7,'2025-12-20','1404/09/29','c'),
  (4,2,7,'2025-12-20','1404/09/29','d'),(5,2,7,'2025-12-20','1404/09/29','e'),(6,2,7,'2025-12-20','1404/09/29','f'),
  (7,2,7,'2025-12-20','1404/09/29','g'),(8,2,7,'2025-12-20','1404/09/29','h'),(9,2,7,'2025-12-20','1404/09/29','i');
insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,AcceptedCounting,SystemCounting,
  ContradictionCounting,BaseValue) select ID,'G'||n,n,1,n*2,10,n*2-10,3 from tblInventoryCounting,
  (select 1 as n union select 2 union select 3 union select 4 union select 5 union select 6);
)";

/// Rows of a query, each as one text.
std::vector<std::string> Found(SqliteConnection& connection, const std::string& sql) {
  std::vector<std::string> rows;
  SqliteStatement statement = connection.Prepare(sql);
  while (statement.Step()) rows.emplace_back(statement.Text(0));
  return rows;
}

struct Rule {
  const char* sentence;
  const char* broken;  ///< a query for what breaks it
};
constexpr const char* kOfCounting = "Notes like 'سند ايجاد شده از روي شمارش%'";
const Rule kRules[] = {
    {"line without a counting, of ",
     "select distinct CountingID from tblInventoryCountingDetail where CountingID not in (select ID from "
     "tblInventoryCounting)"},
    {"line without a receipt, of ",
     "select distinct ReceiptID from tblInventoryReceiptDetail where ReceiptID not in (select ID from "
     "tblInventoryReceipt)"},
    {"line without a dispatch, of ",
     "select distinct DispatchID from tblInventoryDispatchDetail where DispatchID not in (select ID from "
     "tblInventoryDispatch)"},
    {"number that is not one of 1 to n: ",
     "select Code from (select Code, row_number() over (order by Code) as place from tblInventoryCounting "
     "where Code "
     "is not null) where Code <> place"},
};

}  // namespace

Store::Store() : file_(folder_.File("store.koru")) {
  CreateDatabaseFile(file_, EmbeddedSchema(),
                     [](SqliteConnection& connection) { connection.Execute(kSuite); });
  Station station(file_);
  for (int id = kFirstFinal; id <= kLastStored; ++id) station.Do(Work::Register, id, 0);
}

void Store::CopyTo(const std::string& file) const {
  for (const char* suffix : {"-wal", "-shm", "-journal"}) std::filesystem::remove(file + suffix);
  std::filesystem::copy_file(file_, file, std::filesystem::copy_options::overwrite_existing);
}

std::map<int, StoredCounting> StoredCountings(const std::string& file) {
  SqliteConnection connection(file, SqliteConnection::Mode::Existing, std::chrono::seconds(5));
  std::map<int, StoredCounting> countings;
  SqliteStatement headers = connection.Prepare("select ID, ifnull(Code, '') from tblInventoryCounting");
  while (headers.Step()) countings[static_cast<int>(headers.Integer(0))].code = headers.Text(1);
  SqliteStatement lines = connection.Prepare(
      "select CountingID, Barcode, AcceptedCounting from tblInventoryCountingDetail order by CountingID, "
      "RowNumber");
  while (lines.Step()) {
    const auto found = countings.find(static_cast<int>(lines.Integer(0)));
    if (found == countings.end()) continue;
    found->second.lines += std::string(lines.Text(1)) + "=" + NumberText(lines.Real(2)) + ";";
  }
  return countings;
}

std::vector<std::string> Violations(const std::string& file) {
  SqliteConnection connection(file, SqliteConnection::Mode::Existing, std::chrono::seconds(5));
  connection.Execute("BEGIN");  // all rules are about one moment
  std::vector<std::string> violations;
  const auto add = [&](const std::string& sentence, const std::string& query) {
    for (const std::string& row : Found(connection, query)) violations.push_back(sentence + row);
  };
  add("the file is not whole: ", "select * from pragma_integrity_check where integrity_check <> 'ok'");
  for (const Rule& rule : kRules) add(rule.sentence, rule.broken);
  for (const std::string kind : {"Receipt", "Dispatch"}) {
    add(kind + " without a counting: ", "select ID from tblInventory" + kind + " where " + kOfCounting +
                                            " and ID not in (select " + kind +
                                            "ID from tblInventoryCounting where " + kind + "ID is not null)");
  }
  return violations;
}

std::vector<std::string> DocumentViolations(const std::string& file, int counting) {
  SqliteConnection connection(file, SqliteConnection::Mode::Existing, std::chrono::seconds(5));
  std::vector<std::string> violations;
  const std::string id = std::to_string(counting);
  for (const std::string kind : {"Receipt", "Dispatch"}) {
    const std::string sign = kind == "Receipt" ? "" : "-";
    const std::string asked = "select Barcode, " + sign +
                              "ContradictionCounting from tblInventoryCountingDetail where " + sign +
                              "ContradictionCounting > 0 and CountingID=" + id;
    const std::string written = "select Barcode, Qty from tblInventory" + kind + "Detail where " + kind +
                                "ID=(select " + kind + "ID from tblInventoryCounting where ID=" + id + ")";
    for (const auto& [more, less] : {std::pair(asked, written), std::pair(written, asked)}) {
      for (const std::string& barcode : Found(connection, more + " except " + less))
        violations.push_back(kind + " of " + id + " differs from its lines at " + barcode);
    }
  }
  return violations;
}

}  // namespace koru::test
