#include "desktop/forms/CountImportWindow.h"

#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <fstream>

#include "adapters/sheet/TableFile.h"
#include "lines/ImportCounts.h"
#include "lines/frmCountImport.h"
#include "tests/desktop/forms/InvCountingWindowTest.h"
#include "tests/lines/LineForm.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

/// The file of the test instead of a file dialog.
class TestTables : public TableFiles {
 public:
  [[nodiscard]] std::string Choose() override { return path; }
  [[nodiscard]] std::optional<FileTable> Read(const std::string& file, std::size_t sheet,
                                              const Progress& progress) override {
    return ReadTableFile(file, sheet, progress);
  }
  std::string path;
};

class CountImportWindowTest : public testing::Test {
 protected:
  CountImportWindowTest() {
    for (const char* const barcode : {"6261", "6262"}) {
      lines.flexDetail.AddItem({});
      lines.Set(lines.flexDetail.Rows() - 1, LineColumn::Barcode, barcode);
      lines.Set(lines.flexDetail.Rows() - 1, LineColumn::GoodName, "برنج");
    }
    shared.services.tables = &tables;
    screen.Register("frmCountImport", [](Form& form) -> std::unique_ptr<FormWindow> {
      return std::make_unique<CountImportWindow>(dynamic_cast<frmCountImport&>(form));
    });
    tables.path = folder.File("counts.csv");
    std::ofstream(tables.path) << "باركد;تعداد\n6261;۵\n9999;1\n6262;6\n";
  }

  /// Runs the command while `use` uses its window.
  std::string Import(const std::function<void(QWidget&)>& use) {
    test::WhenDialogOpens([&](QWidget& window) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
      use(window);
    });
    return ImportCounts(lines, shared).Run();
  }

  test::TemporaryFolder folder;
  DesktopScreen screen;
  test::DesktopWorld world{screen};
  TestTables tables;
  SharedState shared{world.Where()};
  LineForm lines{shared};
};

TEST_F(CountImportWindowTest, The_preview_lists_problems_first_and_the_button_imports) {
  EXPECT_EQ(Import([](QWidget& window) {
              const auto* const preview = window.findChild<GridView*>(QStringLiteral("flexPreview"));
              ASSERT_EQ(preview->model()->rowCount(), 3);
              EXPECT_EQ(preview->model()->index(0, ImportColumn::Key).data().toString(),
                        QStringLiteral("9999"));
              const QVariant problem = preview->model()->index(0, 1).data(Qt::BackgroundRole);
              EXPECT_NE(problem, preview->model()->index(1, 1).data(Qt::BackgroundRole));
              QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("cmdImport")), Qt::LeftButton);
            }),
            "2 عدد از پرونده نوشته شد.");
  EXPECT_EQ(lines.Column(LineColumn::FirstCounting), (test::Texts{"5", "6"}));
}

TEST_F(CountImportWindowTest, Another_column_chosen_by_keys_shows_another_preview) {
  Import([](QWidget& window) {
    auto* const first = window.findChild<QComboBox*>(QStringLiteral("cmbFirst"));
    first->setFocus();
    test::Press(Qt::Key_Home);  // none
    const auto* const summary = window.findChild<QLabel*>(QStringLiteral("lblSummary"));
    EXPECT_EQ(summary->text(), QStringLiteral("دست\u200cكم يك ستون شمارش را انتخاب كنيد."));
    EXPECT_FALSE(window.findChild<QPushButton*>(QStringLiteral("cmdImport"))->isEnabled());
    window.close();
  });
  EXPECT_EQ(lines.Column(LineColumn::FirstCounting), (test::Texts{"", ""}));
}

TEST_F(CountImportWindowTest, Escape_cancels) {
  EXPECT_EQ(Import([](QWidget& /*window*/) { test::Press(Qt::Key_Escape); }), "");
  EXPECT_EQ(lines.Column(LineColumn::FirstCounting), (test::Texts{"", ""}));
}

TEST_F(CountImportWindowTest, A_list_of_sheets_is_shown_for_workbooks_of_several_sheets_alone) {
  Import([](QWidget& window) {
    EXPECT_FALSE(window.findChild<QComboBox*>(QStringLiteral("cmbSheet"))->isVisible());
    window.close();
  });
}

TEST_F(InvCountingWindowTest, Counts_from_a_file_are_not_offered_by_a_host_without_files) {
  EXPECT_FALSE(window->findChild<QAction*>(QStringLiteral("mnuImport"))->isVisible());
}

}  // namespace
}  // namespace koru
