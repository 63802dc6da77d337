#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/ports/GoodsPicker.h"
#include "search/frmGoodSearch.h"
#include "tests/search/SearchTest.h"

namespace koru {

/// What a goods picker received, and what the user picks in it.
struct PickerScenario {
  std::string connection;
  std::int32_t userID = 0;
  std::int32_t inventory = -1;
  bool several = false;
  int shown = 0;
  std::string list, name, barcode, code;
};

class ScenarioPicker : public GoodsPicker {
 public:
  explicit ScenarioPicker(PickerScenario& scenario) : scenario_(scenario) {}
  void SetConnectionString(const std::string& connectionString) override {
    scenario_.connection = connectionString;
  }
  void SetUserID(std::int32_t userID) override { scenario_.userID = userID; }
  void SetInventory(std::int32_t id) override { scenario_.inventory = id; }
  void SetSeveralGoods(bool several) override { scenario_.several = several; }
  void Show() override { ++scenario_.shown; }
  [[nodiscard]] std::string List() const override { return scenario_.list; }
  [[nodiscard]] std::string Name() const override { return scenario_.name; }
  [[nodiscard]] std::string Barcode() const override { return scenario_.barcode; }
  [[nodiscard]] std::string Code() const override { return scenario_.code; }

 private:
  PickerScenario& scenario_;
};

/// A goods search over a few goods.
class GoodSearchTest : public SearchTest {
 protected:
  void SetUp() override {
    database.Execute(
        "insert into tblPelinCurrencyType (ID,Name) values (3,'يورو'),(4,'دلار');"
        "insert into tblGoodType (ID,Name) values (9,'مصرفي'),(2,'كالا');"
        "insert into tblGoodGroupParent (ID,ChildID) values (12,13),(13,14);"
        "insert into tblBPLocationChilds (ID,ChildID) values (20,21),(21,22);"
        "insert into tblInventoryReceipt (ID,InventoryID) values (1,7),(2,8);"
        "insert into tblInventoryReceiptDetail (ReceiptID,Barcode) values (1,'100'),(2,'200');"
        "insert into tblGood "
        "(Barcode,Code,Name,RetailPrice,StandardDiscountPercent,CCurrencyTypeID,TypeID,GoodGroupID,"
        "TmpLocationID,Notes) values"
        "('','Z','بدون باركد',1500,5,3,9,12,20,NULL),"
        "('100','K-1','كتاب',1500,NULL,3,9,12,20,'نرم'),"
        "('200','K-2','كتابچه',900,0,4,2,13,21,'سخت و نرم'),"
        "('300',NULL,'O''Neil',NULL,10,NULL,NULL,14,22,NULL)");
    components.Register(std::string(GoodsPicker::kClassName),
                        [this] { return std::make_unique<ScenarioPicker>(picker); });
    form.Load(chosenStore);
    NewStatements();
  }

  /// Presses Search and runs the condition as the counting form does; the barcodes found, sorted.
  std::vector<std::string> Found() {
    EXPECT_TRUE(form.cmdSearch.UserClick());
    std::vector<std::string> barcodes;
    Recordset found =
        shared.data.rssqlINVGood.Open(SqlText("Select tblGood.barcode,isnull(tblGood.Code,'') as "
                                              "GoodCode,tblGood.Name as GoodName from tblGood "
                                              "Where ") +
                                      condition);
    for (; !found.AtEnd(); found.MoveNext()) barcodes.push_back(found.Field("Barcode").Text());
    std::sort(barcodes.begin(), barcodes.end());
    return barcodes;
  }
  std::string Condition() {
    EXPECT_TRUE(form.cmdSearch.UserClick());
    return condition.Text();
  }

  PickerScenario picker;
  SqlText condition;
  std::int32_t chosenStore = -1;  ///< on the counting form
  frmGoodSearch form{shared, [this](SqlText text) { condition = std::move(text); }};
};

}  // namespace koru
