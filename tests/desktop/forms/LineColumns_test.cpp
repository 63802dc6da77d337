#include <QHeaderView>

#include "tests/desktop/forms/InvCountingWindowTest.h"
#include "tests/support/KeptTexts.h"

namespace koru {
namespace {

/// The counting window of a host that keeps the user's settings.
class LineColumnsTest : public InvCountingWindowTest {
 protected:
  /// The lines of a program that is started again.
  class NextStart {
   public:
    NextStart(LineColumnsTest& test) : control_(test.world, test.ServicesThatKeep()) {
      control_.SetOLEConnectionString(test.world.database.ConnectionText());
      control_.SetUserID(1);
      EXPECT_TRUE(control_.View(1));
      lines_ = test.screen.WindowOf(*control_.CountingForm())->findChild<GridView*>("flexDetail");
      QApplication::processEvents();
    }
    [[nodiscard]] GridView& Lines() const { return *lines_; }

   private:
    comInvCounting control_;
    GridView* lines_ = nullptr;
  };

  [[nodiscard]] HostServices ServicesThatKeep() {
    HostServices services = world.Where();
    services.preferences = &kept;
    return services;
  }

  test::KeptTexts kept;
};

TEST_F(LineColumnsTest, Widths_and_order_of_the_lines_columns_come_back_at_the_next_start) {
  {
    const NextStart first(*this);
    QHeaderView& titles = *first.Lines().horizontalHeader();
    first.Lines().setColumnWidth(LineColumn::GoodName, 333);
    titles.moveSection(titles.visualIndex(LineColumn::Rate), titles.visualIndex(LineColumn::FirstCounting));
    QTest::mouseRelease(titles.viewport(), Qt::LeftButton);
  }
  const NextStart second(*this);
  EXPECT_EQ(second.Lines().columnWidth(LineColumn::GoodName), 333);
  const QHeaderView& titles = *second.Lines().horizontalHeader();
  EXPECT_EQ(titles.visualIndex(LineColumn::Rate), titles.visualIndex(LineColumn::FirstCounting) - 1);
  EXPECT_TRUE(second.Lines().isColumnHidden(LineColumn::ScaleID));
}

}  // namespace
}  // namespace koru
