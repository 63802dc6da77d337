#include "desktop/suite/DesktopSuite.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTableView>

#include "desktop/forms/comInvCountingWidget.h"
#include "desktop/toolkit/QtText.h"
#include "tests/desktop/WindowTools.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

class DesktopSuiteTest : public testing::Test {
 protected:
  DesktopSuiteTest() {
    file.Execute(
        "insert into tblInventory (ID,Name,IsDefault) values (1,'انبار مركزي',1);"
        "insert into tblInventoryUser (UserID,InventoryID) values (7,1);"
        "insert into tblUser (ID,FullName) values (7,'زهرا كريمي');"
        "insert into tblPelinUserPermission (UserID,FormPermissionID) values (7,806),(7,80601);"
        "insert into tblInventoryCounting (ID,InventoryID,CreatorID) values (17,1,7)");
    counting.SetOLEConnectionString(ToQt(file.ConnectionText()));
    counting.SetUserID(7);
  }

  /// The visible window of that object name; nullptr when there is none.
  static QWidget* Window(const char* name) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QLatin1String(name) && window->isVisible()) return window;
    }
    return nullptr;
  }

  test::TestFile file;
  DesktopSuite suite;
  comInvCountingWidget counting{suite.Services()};
};

TEST_F(DesktopSuiteTest, A_widget_over_it_lists_the_temporary_countings_and_opens_one) {
  test::Open(counting);
  EXPECT_EQ(counting.findChild<QTableView*>("flexTempDocs")->model()->rowCount(), 1);
  EXPECT_TRUE(counting.View(17));
  ASSERT_NE(Window("frmInvCounting"), nullptr);
  Window("frmInvCounting")->close();
  EXPECT_EQ(Window("frmInvCounting"), nullptr);
}

TEST_F(DesktopSuiteTest, Messages_are_shown_in_its_dialog) {
  std::string shown;
  test::WhenDialogOpens([&](QWidget& dialog) {
    shown = FromQt(dialog.findChild<QLabel*>(QStringLiteral("message"))->text());
    dialog.findChild<QAbstractButton*>(QStringLiteral("ok"))->click();
  });
  EXPECT_FALSE(counting.View(18));
  EXPECT_NE(shown, "");
}

/// Whether the counting window has the command of counting on the floor.
bool OffersFloor(const QWidget& window) { return window.findChild<QAction*>("floorCommand") != nullptr; }

TEST_F(DesktopSuiteTest, Counting_on_the_floor_is_offered_where_the_host_wants_it_and_the_build_has_it) {
  EXPECT_TRUE(counting.View(17));
  EXPECT_FALSE(OffersFloor(*Window("frmInvCounting")));
  Window("frmInvCounting")->close();
  suite.OfferFloor(file.Folder().Path() / "floor");
  EXPECT_TRUE(counting.View(17));
  EXPECT_EQ(OffersFloor(*Window("frmInvCounting")), KORU_HAS_FLOOR);
  EXPECT_FALSE(std::filesystem::exists(file.Folder().Path() / "floor"));
  Window("frmInvCounting")->close();
}

/// Counts the connections that are made.
class CountingConnector : public DatabaseConnector {
 public:
  explicit CountingConnector(int& made) : made_(made) {}
  std::unique_ptr<Database> Connect(const std::string& connectionText) override {
    ++made_;
    return inner_.Connect(connectionText);
  }

 private:
  ConnectorByProvider inner_;
  int& made_;
};

TEST_F(DesktopSuiteTest, Every_connection_is_made_by_the_hosts_connector) {
  int made = 0;
  DesktopSuite hosted(std::make_unique<CountingConnector>(made));
  comInvCountingWidget widget(hosted.Services());
  widget.SetOLEConnectionString(ToQt(file.ConnectionText()));
  widget.SetUserID(7);
  EXPECT_TRUE(widget.View(17));
  EXPECT_GT(made, 0);
  Window("frmInvCounting")->close();
}

}  // namespace
}  // namespace koru
