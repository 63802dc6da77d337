#include "tests/campaigns/GeneratedStatements.h"

#include <iterator>
#include <vector>

namespace koru::test {
namespace {

constexpr const char* kBarcodes[] = {"G1",   "g1",     " G1",  "G1 ",  "G2",    "G2  ", "۶۲۶۰",
                                     "6260", " 6260 ", "كاشي", "کاشی", "it''s", ""};

/// The same text in both, but for `isnull`, whose name differs.
GeneratedStatement Both(std::string text) {
  std::string plain = text;
  for (std::size_t at = plain.find("isnull("); at != std::string::npos; at = plain.find("isnull(", at))
    plain.replace(at, 6, "ifnull");
  for (std::size_t at = plain.find("Isnull("); at != std::string::npos; at = plain.find("Isnull(", at))
    plain.replace(at, 6, "ifnull");
  return {std::move(text), std::move(plain)};
}

std::string Joined(const std::vector<std::string>& parts, const std::string& with) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : with) + part;
  return text;
}

}  // namespace

std::string StatementGenerator::Barcode() { return kBarcodes[Random(std::size(kBarcodes))]; }
std::string StatementGenerator::Date() {
  return "'2025-0" + std::to_string(1 + Random(9)) + "-1" + std::to_string(Random(10)) + "'";
}
std::string StatementGenerator::Number() {
  const std::string whole = std::to_string(Random(40));
  return Random(3) == 0 ? whole + "." + std::to_string(Random(100)) : whole;
}

/// Registered documents of a period, store and its children.
std::string StatementGenerator::Scope() {
  std::string scope;
  if (Random(4) != 0) scope += "ReceiveDate>=" + Date() + " and ";
  if (Random(4) != 0) scope += "ReceiveDate<=" + Date() + " and ";
  const std::string store = std::to_string(1 + Random(5));
  return scope + " Code is not NULL and (InventoryID=" + store +
         " or InventoryID in (Select ChildID from tblInventoryParent Where ID=" + store + "))";
}

GeneratedStatement StatementGenerator::Stock() {
  const std::string kind = Random(2) == 0 ? "Receipt" : "Dispatch";
  const std::string barcode = Barcode();
  GeneratedStatement statement =
      Both("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventory" + kind +
           "Detail where LTrim(RTrim(Barcode))='" + barcode + "'~ and " + kind +
           "ID in (select ID from tblInventory" + kind + " where " + Scope() + ")");
  // Only SQLite needs the collation: of an expression it takes none.
  statement.sent.replace(statement.sent.find('~'), 1, "");
  statement.plain.replace(statement.plain.find('~'), 1, " collate KORU");
  return statement;
}

GeneratedStatement StatementGenerator::Rates() {
  const std::string kind = Random(2) == 0 ? "Receipt" : "Dispatch";
  GeneratedStatement statement =
      Both("Select isnull(Value,0) as Value from tblInventory" + kind + "Detail,tblInventory" + kind +
           " Where ID=" + kind + "ID and Barcode='" + Barcode() + "' and Isnull(Value,0)>0 and " + Scope() +
           " Order By ReceiveDate Desc");
  // The embedded database completes the order: what was entered last comes first.
  statement.plain += ",ID Desc,tblInventory" + kind + "Detail.rowid Desc";
  statement.isOrdered = true;
  return statement;
}

GeneratedStatement StatementGenerator::Units() {
  if (Random(4) == 0) {
    return Both("Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 Order by ID");
  }
  return Both(
      "Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in (Select ScaleID from "
      "tblGoodSaleScale Where Barcode = '" +
      Barcode() + "')");
}

GeneratedStatement StatementGenerator::Countings() {
  std::vector<std::string> parts{"ID<>-1"};
  const auto maybe = [&](const std::string& condition) {
    if (Random(4) == 0) parts.push_back(condition);
  };
  const std::string store = std::to_string(1 + Random(5));
  maybe("ID >=" + std::to_string(Random(30)));
  maybe("ID <=" + std::to_string(Random(30)));
  maybe("ManualCode >='A-" + std::to_string(Random(20)) + "'");
  maybe("Code >=" + std::to_string(Random(9)));
  maybe("CreatorID =" + std::to_string(7 + Random(3)));
  maybe("CreateDate >=" + Date());
  maybe("FromDate <=" + Date());
  maybe("(Code is null) ");
  maybe("(Code is not null) ");
  maybe("(2=3) ");
  maybe("(InventoryID =" + store + ")");
  maybe("(InventoryID =" + store +
        " or InventoryID in (Select ChildID from tblInventoryParent where tblInventoryParent.ID=" + store +
        "))");
  maybe("Notes like '%پاييز%'");
  maybe("ID in (Select CountingID from tblInventoryCountingDetail where Barcode like '%" + Barcode() + "%')");
  maybe(
      "ID in (Select CountingID from tblInventoryCountingDetail where Barcode in (Select Barcode from "
      "tblGood where "
      "Name like '%" +
      Barcode() + "%'))");
  return Both(
      "Select ID, Code,isnull(ManualCode,'') as ManualCode,InvName,FullName,isnull(FarsiCreateDate,'') as "
      "FarsiCreateDate,isnull(Notes,'') as Notes,Counter1,Accepter from vwInventoryCounting where " +
      Joined(parts, " and "));
}

GeneratedStatement StatementGenerator::Goods() {
  std::vector<std::string> parts{" tblGood.Barcode<>'' "};
  const auto maybe = [&](const std::string& condition) {
    if (Random(4) == 0) parts.push_back(" " + condition);
  };
  const std::string group = std::to_string(10 + Random(4));
  maybe("RetailPrice <= " + Number());
  maybe("RetailPrice >= " + Number());
  maybe("TotalQty <= " + Number());
  maybe("StandardDiscountPercent is null");
  maybe("StandardDiscountPercent is not null");
  maybe("tblGood.BarCode  like '" + Barcode() + "%'");
  maybe("Name like '%" + Barcode() + "%'");
  maybe("tblGood.Code like '1%'");
  maybe("TypeID = " + std::to_string(Random(4)));
  maybe("(GoodGroupID=" + group +
        " or GoodGroupID in (Select ChildID from tblGoodGroupParent where ID = " + group + "))");
  maybe(
      "tblGood.BarCode in (Select Barcode From tblInventoryReceiptDetail,tblInventoryReceipt Where "
      "ReceiptID=ID and "
      "InventoryID = " +
      std::to_string(1 + Random(5)) + ")");
  maybe("tblGood.BarCode in ('','" + Barcode() + "','" + Barcode() + "')");
  return Both(
      "Select tblGood.barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from tblGood "
      "Where " +
      Joined(parts, " and "));
}

GeneratedStatement StatementGenerator::Lines() {
  return Both(
      "select round(isnull(BaseValue,0),0) as Value, "
      "tblGood.barcode,FirstCounting,AcceptedCounting,SystemCounting,"
      "ContradictionCounting,isnull(ScaleID,-1) as ScaleID,isnull(tblGoodScale.Name,'') as UnitName,isnull("
      "tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from tblInventoryCountingDetail Inner Join "
      "tblGood on "
      "tblInventoryCountingDetail.Barcode=tblGood.Barcode Left Outer Join tblGoodScale On "
      "ScaleID=tblGoodScale.ID where CountingID =" +
      std::to_string(Random(30)) + " Order By RowNumber");
}

GeneratedStatement StatementGenerator::Differences() {
  const bool shortage = Random(2) == 0;
  return Both(std::string("Select Barcode,sum(") + (shortage ? "-" : "") +
              "ContradictionCounting) as Qty,ScaleID from " +
              "tblInventoryCountingDetail where ContradictionCounting " + (shortage ? "<" : ">") +
              " 0 and CountingID=" + std::to_string(Random(30)) + " Group By Barcode,ScaleID");
}

GeneratedStatement StatementGenerator::Top() {
  const std::string count = std::to_string(1 + Random(6));
  const std::string rest =
      " ID,Notes from tblInventoryCounting where ID>" + std::to_string(Random(30)) + " order by ID";
  return {"Select top " + count + rest, "select" + rest + " limit " + count};
}

GeneratedStatement StatementGenerator::Write() {
  const std::string id = std::to_string(1 + Random(29));
  GeneratedStatement statement;
  switch (Random(6)) {
    case 0:
      statement = {"Delete tblInventoryCountingDetail Where CountingID = " + id,
                   "delete from tblInventoryCountingDetail where CountingID = " + id};
      break;
    case 1:
      statement = {
          "Delete tblInventoryReceiptDetail Where ReceiptID in (Select ReceiptID from tblInventoryCounting "
          "Where "
          "ID = " +
              id + ")",
          "delete from tblInventoryReceiptDetail where ReceiptID in (select ReceiptID from "
          "tblInventoryCounting "
          "where ID = " +
              id + ")"};
      break;
    case 2:
      statement = Both("update tblInventoryCounting set inventoryID=2,Notes='" + Barcode() +
                       " پاييز',ManualCode='A-" + std::to_string(Random(30)) +
                       "',CounterEmployeeID1=NULL where id=" + id);
      break;
    case 3:
      statement =
          Both("Update tblInventoryCounting set Code = Code-1 Where Code > " + std::to_string(Random(12)));
      break;
    case 4:
      statement =
          Both("insert into tblInventoryCounting (inventoryid,creatorid,CreateDate,Notes) values (2,7," +
               Date() + ",'" + Barcode() + "')");
      break;
    default:
      statement = Both(
          "Insert Into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,AcceptedCounting,"
          "SystemCounting,ContradictionCounting,BaseValue) Values(" +
          id + ",'" + Barcode() + "',1,NULL," + Number() + "," + Number() + ",-" + Number() + ",Null)");
      break;
  }
  statement.writes = true;
  return statement;
}

GeneratedStatement StatementGenerator::Next() {
  switch (Random(12)) {
    case 0:
    case 1:
    case 2:
      return Stock();
    case 3:
    case 4:
      return Rates();
    case 5:
      return Units();
    case 6:
      return Countings();
    case 7:
      return Goods();
    case 8:
      return Lines();
    case 9:
      return Differences();
    case 10:
      return Top();
    default:
      return Write();
  }
}

std::string GeneratedRows(unsigned seed) {
  std::mt19937 random(seed);
  const auto below = [&](unsigned count) { return std::to_string(random() % count); };
  const auto barcode = [&] {
    return "'" + std::string(kBarcodes[random() % (std::size(kBarcodes) - 1)]) + "'";
  };
  const auto orNull = [&](std::string value) {
    return random() % 6 == 0 ? std::string("NULL") : std::move(value);
  };
  const auto day = [&] { return "'2025-0" + std::to_string(1 + random() % 9) + "-1" + below(10) + "'"; };
  std::string rows =
      "insert into tblInventory (ID,ParentID,Name,IsDefault) values "
      "(1,null,'a',0),(2,1,'b',1),(3,1,'c',0),(4,3,'d',0);"
      "insert into tblInventoryParent (ID,ChildID) values (1,2),(1,3),(1,4),(3,4);"
      "insert into tblUser (ID,FullName) values (7,'علي'),(8,'مريم');"
      "insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (1,'عدد',1),(2,'كارتن',12),(3,'متر',1);"
      "insert into tblGoodSaleScale (Barcode,ScaleID) values ('G1',2),('G1',3),('6260',1),('كاشي',3);"
      "insert into tblGoodGroupParent (ID,ChildID) values (10,11),(10,12),(11,12);";
  for (const char* good : {"G1", " G1", "G2", "6260", "كاشي", "it''s", ""}) {
    rows += std::string(
                "insert into tblGood (Barcode,Code,Name,RetailPrice,TotalQty,StandardDiscountPercent,TypeID,"
                "GoodGroupID) values ('") +
            good + "'," + orNull("'1" + below(9) + "'") + ",'كالاي " + good + "'," + orNull(below(40)) + "," +
            orNull(below(40) + ".5") + "," + orNull(below(9)) + "," + below(4) + "," +
            std::to_string(10 + random() % 4) + ");";
  }
  for (int document = 1; document <= 40; ++document) {
    for (const std::string kind : {"Receipt", "Dispatch"}) {
      rows += "insert into tblInventory" + kind + " (ID,Code,InventoryID,ReceiveDate) values (" +
              std::to_string(document) + "," + orNull("1") + "," + std::to_string(1 + random() % 5) + "," +
              day() + ");";
      for (int line = 0; line < 6; ++line) {
        rows += "insert into tblInventory" + kind + "Detail (" + kind + "ID,Barcode,Qty,Value) values (" +
                std::to_string(document) + "," + barcode() + "," + orNull(below(50)) + "," +
                orNull(below(9)) + ");";
      }
    }
  }
  for (int counting = 1; counting <= 20; ++counting) {
    rows +=
        "insert into tblInventoryCounting "
        "(ID,Code,ManualCode,InventoryID,CreatorID,CreateDate,FromDate,Notes,ReceiptID,"
        "DispatchID) values (" +
        std::to_string(counting) + "," + orNull(below(12)) + ",'A-" + below(20) + "'," +
        std::to_string(1 + random() % 5) + "," + std::to_string(7 + random() % 3) + "," + day() + "," +
        orNull(day()) + "," + orNull("'شمارش پاييز'") + "," + orNull(below(40)) + "," + orNull(below(40)) +
        ");";
    for (int line = 1; line <= 4; ++line) {
      rows +=
          "insert into tblInventoryCountingDetail "
          "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,AcceptedCounting,"
          "SystemCounting,ContradictionCounting,BaseValue) values (" +
          std::to_string(counting) + "," + barcode() + "," + std::to_string(line) + "," + orNull(below(4)) +
          "," + orNull(below(9)) + "," + below(9) + "," + below(9) + ",-" + below(9) + "," +
          orNull(below(99) + ".5") + ");";
    }
  }
  return rows;
}

}  // namespace koru::test
