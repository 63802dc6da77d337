#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <memory>

#include "component/comInvCounting.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/grid/GridView.h"
#include "lines/LineColumns.h"
#include "tests/desktop/WindowTools.h"
#include "tests/desktop/forms/DesktopWorld.h"
#include "tests/desktop/forms/SearchingScreen.h"

namespace koru {

/// A temporary counting (1) of two goods in the default store, on the screen in viewing mode.
class InvCountingWindowTest : public testing::Test {
 protected:
  InvCountingWindowTest() {
    world.database.Execute(
        "insert into tblInventory (ID,Name,IsDefault) values (1,'انبار مركزي',1),(2,'انبار شعبه',0);"
        "insert into tblInventoryUser (UserID,InventoryID) values (1,1),(1,2);"
        "insert into tblUser (ID,FullName) values (1,'زهرا كريمي'),(2,'مريم احمدي');"
        "insert into tblGoodScale (ID,Name) values (1,'عدد');"
        "insert into tblGood (Barcode,Code,Name) values ('6261','101','برنج'),('6262','102','روغن');"
        "insert into tblInventoryCounting "
        "(ID,Code,ManualCode,InventoryID,CreatorID,CreateDate,FarsiCreateDate,"
        "CounterEmployeeID1) values (1,NULL,'م-1',1,1,'2025-04-04','1404/01/15',2);"
        "insert into tblInventoryCountingDetail "
        "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,AcceptedCounting,"
        "SystemCounting,ContradictionCounting,BaseValue) values (1,'6261',1,1,10,10,12.5,-2.5,3000),"
        "(1,'6262',2,NULL,7,7,5,2,400)");
    screen.Register("frmInvCounting", [this](Form& form) -> std::unique_ptr<FormWindow> {
      return std::make_unique<InvCountingWindow>(dynamic_cast<frmInvCounting&>(form), records);
    });
    control.SetOLEConnectionString(world.database.ConnectionText());
    control.SetUserID(1);
    world.database.Execute(
        "insert into tblPelinUserPermission (UserID,FormPermissionID) values "
        "(1,806),(1,80601),(1,80602),(1,80605)");
    EXPECT_TRUE(control.View(1));
    window = screen.WindowOf(Counting());
    window->resize(1280, 740);
    QApplication::processEvents();
  }

  [[nodiscard]] frmInvCounting& Counting() const { return *control.CountingForm(); }
  template <class Widget>
  [[nodiscard]] Widget& Find(const char* name) const {
    return *window->findChild<Widget*>(QLatin1String(name));
  }
  void Tick() { Counting().Timer1.Fire(); }
  void TypeRefusedFigure() {
    window->activateWindow();
    QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
    Tick();
    Find<GridView>("flexDetail").setFocus();
    Counting().flexDetail.SetCurrent(1, LineColumn::AcceptedCounting);
    test::Type("-1");
  }

  test::SearchingScreen screen;
  test::DesktopWorld world{screen};
  SelectorRecords records{world.database.Connector()};
  comInvCounting control{world, world.Where()};
  FormWindow* window = nullptr;
};

}  // namespace koru
