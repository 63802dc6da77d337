#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "search/frmInvSearch.h"
#include "tests/search/SearchTest.h"

namespace koru {

/// A counting search over five countings: stores 7 (with child 8, whose child is 9) and 3.
class InvSearchTest : public SearchTest {
 protected:
  void SetUp() override {
    database.Execute(
        "insert into tblUser (ID,FullName) values "
        "(5,'مريم'),(2,'احمد'),(11,'شمارنده');"
        "insert into tblInventory (ID,Name) values (3,'انبار ديگر'),(7,'انبار مركزي'),(8,'زير "
        "انبار'),(9,'قفسه');"
        "insert into tblInventoryParent (ID,ChildID) values (7,8),(8,9);"
        "insert into tblGood (Barcode,Code,Name) values ('100','K-1','كتاب'),('200','K-2','دفتر');"
        "insert into tblInventoryCounting "
        "(ID,Code,ManualCode,InventoryID,CreatorID,CreateDate,FarsiCreateDate,"
        "FromDate,FarsiFromDate,ToDate,FarsiToDate,CounterEmployeeID1,CounterEmployeeID2,CounterEmployeeID3,"
        "CounterConfirmerID,Notes) values"
        "(1,NULL,'A-1',7,5,'2024-03-20','1403/01/01','2024-01-01','1402/10/11','2024-02-01','1402/11/"
        "12',11,5,NULL,2,'سالانه'),"
        "(2,1,'A-10',8,5,'2024-03-21','1403/01/02',NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL),"
        "(3,2,NULL,9,2,'2024-03-22','1403/01/03',NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,'ماهانه'),"
        "(10,12,'9',3,2,'2024-03-23','1403/01/04',NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL),"
        "(12,3,'B',3,77,'2024-03-24','1403/01/05',NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL);"
        "insert into tblInventoryCountingDetail (CountingID,Barcode) values "
        "(1,'100'),(1,'200'),(2,'200'),(3,'999')");
    form.Load();
    NewStatements();
  }

  /// Presses Search and answers the keys that the grid then shows, sorted: the database gives them in any
  /// order.
  std::vector<int> Found() {
    EXPECT_TRUE(form.cmdSearch.UserClick());
    return Keys();
  }
  [[nodiscard]] std::vector<int> Keys() const {
    std::vector<int> keys;
    for (int row = 1; row < form.flexSearch.Rows(); ++row) keys.push_back(std::stoi(Cell(row, 1)));
    std::sort(keys.begin(), keys.end());
    return keys;
  }
  [[nodiscard]] int RowOf(int key) const {
    int row = 1;
    while (row < form.flexSearch.Rows() && Cell(row, 1) != std::to_string(key)) ++row;
    return row;
  }
  [[nodiscard]] std::string Cell(int row, int col) const {
    return std::string(form.flexSearch.TextMatrix(row, col));
  }
  [[nodiscard]] std::vector<std::string> Column(int col) const {
    std::vector<std::string> cells;
    for (int row = 1; row < form.flexSearch.Rows(); ++row) cells.push_back(Cell(row, col));
    return cells;
  }

  std::vector<std::int32_t> opened;  ///< what was opened on the counting form
  bool openedExists = true;
  frmInvSearch form{shared, [this](std::int32_t id) {
                      opened.push_back(id);
                      return openedExists;
                    }};
};

}  // namespace koru
