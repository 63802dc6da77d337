#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

constexpr const char* kSuite = R"(
insert into tblInventory (ID,ParentID,Name,IsDefault) values
  (1,null,'انبارهاي تهران',0),(2,1,'انبار مركزي',1),(3,1,'انبار شمال',0);
insert into tblInventoryParent (ID,ChildID) values (1,2),(1,3);
insert into tblUser (ID,FullName) values (7,'علي رضايي'),(8,'مريم كاظمي');
insert into tblInventoryUser (UserID,InventoryID) values (7,1),(7,2),(8,3);
insert into tblPelinUserPermission (UserID,FormPermissionID) values
  (7,806),(7,80601),(7,80602),(7,80603),(7,80604),(7,80605),(7,80606),(7,80607);
insert into tblGoodScale (ID,Name,ScaleToBaseParent) values (1,'عدد',1);
insert into tblGood (Barcode,Code,Name) values ('G1','101','چاي'),('G2',null,'قند'),('G3','103','شكر');
insert into tblPelinCompany (ID,Name,BasePath) values (1,'بازرگاني كورش','/reports/');
insert into tblInventoryCounting
  (ID,Code,ManualCode,InventoryID,CreatorID,CreateDate,FarsiCreateDate,FromDate,FarsiFromDate,ToDate,FarsiToDate,
   CounterEmployeeID1,CounterEmployeeID2,CounterEmployeeID3,CounterConfirmerID,Notes) values
  (10,null,'A-10',2,7,'2025-12-20','1404/09/29','2025-03-21','1404/01/01','2025-12-21','1404/09/30',7,8,7,8,'شمارش ''پاييز'''),
  (11,1,'A-11',2,8,'2025-09-23','1404/07/01','2025-03-21','1404/01/01','2025-09-22','1404/06/31',8,null,null,7,null),
  (12,null,null,2,null,null,null,null,null,null,null,null,null,null,null,null),
  (13,null,'A-13',3,99,'2025-12-01','1404/09/10',null,null,null,null,null,null,null,null,null);
insert into tblInventoryCountingDetail
  (CountingID,Barcode,RowNumber,ScaleID,FirstCounting,SecondCounting,ThirdCounting,AcceptedCounting,SystemCounting,
   ContradictionCounting,BaseValue) values
  (10,'G1',1,1,10,10,null,10,12.5,-2.5,3),(10,'G2',2,null,4,null,null,4,1,3,2.5),(11,'G1',1,1,5,5,5,5,5,null,3);
)";

}  // namespace

CountingWorld::CountingWorld(TestDatabase::Kind kind) : DatabaseFixture(kind) {
  database.Execute(kSuite);
  clock.SetToday(std::chrono::year{2025} / 12 / 22);
  control.SetOLEConnectionString(database.ConnectionText());
  control.SetUserID(7);
}

void CountingWorld::View(std::int32_t id) {
  ASSERT_TRUE(control.View(id));
  Form().Timer1.Fire();
}

void CountingWorld::ViewAndEdit(std::int32_t id) {
  View(id);
  Click(Form().cmdEdit);
  ASSERT_EQ(Mode(), DocumentMode::Editing);
}

void CountingWorld::Click(Button& button) {
  ASSERT_TRUE(button.UserClick()) << button.Name() << " is not available";
}

}  // namespace koru::test
