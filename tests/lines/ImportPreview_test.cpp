#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "lines/ImportCounts.h"
#include "lines/frmCountImport.h"
#include "platform/text/Errors.h"
#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

/// The files of a user who chooses one, or none.
class OneFile : public TableFiles {
 public:
  [[nodiscard]] std::string Choose() override { return path; }
  [[nodiscard]] std::optional<FileTable> Read(const std::string&, std::size_t sheet,
                                              const Progress& progress) override {
    if (damaged) throw InputError("damaged");
    if (cancelAt >= 0 && !progress(cancelAt)) return std::nullopt;
    FileTable table = sheets.at(sheet);
    table.sheet = sheet;
    if (sheets.size() > 1) table.sheets = {"one", "two"};
    return table;
  }

  std::string path = "counts.csv";
  std::vector<FileTable> sheets{1};
  bool damaged = false;
  int cancelAt = -1;
};

class ImportPreviewTest : public LinesTest {
 protected:
  void SetUp() override {
    shared.services.tables = &files;
    form.AddLine("4001");
    form.AddLine("4002");
    Put(0, {{"باركد", "تعداد"}, {"4001", "5"}, {"4444", "1"}, {"4002", "6"}});
  }

  void Put(std::size_t sheet, const std::vector<std::vector<std::string>>& rows) {
    FileTable& table = files.sheets.at(sheet);
    table.rows.clear();
    for (const auto& cells : rows) table.rows.push_back({static_cast<int>(table.rows.size()) + 1, cells});
  }
  /// Runs the command; `use` is what the user does with the preview.
  std::string Run(const std::function<void(frmCountImport&)>& use) {
    screen.OnModal = [&](Form& shown) {
      previewed = true;
      use(dynamic_cast<frmCountImport&>(shown));
    };
    return ImportCounts(form, shared).Run();
  }
  [[nodiscard]] Texts Counts() const { return form.Column(LineColumn::FirstCounting); }

  OneFile files;
  bool previewed = false;
};

void Accept(frmCountImport& preview) { preview.cmdImport.UserClick(); }

TEST_F(ImportPreviewTest, The_user_reads_what_comes_in_and_what_does_not_problems_first) {
  Run([](frmCountImport& preview) {
    ASSERT_EQ(preview.flexPreview.Rows(), 4);
    EXPECT_EQ(preview.flexPreview.TextMatrix(1, ImportColumn::FileRow), "3");
    EXPECT_EQ(preview.flexPreview.TextMatrix(1, ImportColumn::Key), "4444");
    EXPECT_EQ(preview.flexPreview.RowBackColor(1), frmCountImport::kProblemColor);
    EXPECT_EQ(preview.flexPreview.TextMatrix(2, ImportColumn::FileRow), "2");
    EXPECT_EQ(preview.flexPreview.TextMatrix(2, ImportColumn::After), "5");
    EXPECT_EQ(preview.flexPreview.RowBackColor(2), frmCountImport::kComesInColor);
    EXPECT_EQ(preview.lblSummary.Caption(),
              "2 عدد نوشته مي\u200cشود؛ 1 عدد كنار مي\u200cماند: 1 با باركد يا كد ناشناخته.");
  });
  EXPECT_TRUE(previewed);
}

TEST_F(ImportPreviewTest, Figures_come_in_when_the_user_says_so) {
  EXPECT_EQ(Run(Accept), "2 عدد از پرونده نوشته شد.");
  EXPECT_EQ(Counts(), (Texts{"5", "6"}));
}

TEST_F(ImportPreviewTest, Nothing_comes_in_without_the_word_of_the_user) {
  EXPECT_EQ(Run([](frmCountImport& preview) { preview.cmdExit.UserClick(); }), "");
  EXPECT_EQ(Run([](frmCountImport& preview) { preview.UserClose(); }), "");
  EXPECT_EQ(Counts(), (Texts{"", ""}));
}

TEST_F(ImportPreviewTest, A_choice_of_columns_and_rules_shows_another_preview) {
  Put(0, {{"كجا", "چند", "باركد"}, {"4002", "3", "x"}, {"4002", "4", "y"}});
  Run([](frmCountImport& preview) {
    EXPECT_FALSE(preview.cmdImport.Enabled());
    EXPECT_EQ(preview.lblSummary.Caption(), "دست\u200cكم يك ستون شمارش را انتخاب كنيد.");
    preview.cmbSecond.UserChoose(2);
    preview.cmbBarcode.UserChoose(0);
    EXPECT_EQ(preview.lblSummary.Caption(),
              "0 عدد نوشته مي\u200cشود؛ 2 عدد كنار مي\u200cماند: 2 بدون باركد و كد.");
    preview.cmbBarcode.UserChoose(1);
    EXPECT_EQ(preview.lblSummary.Caption(), "0 عدد نوشته مي\u200cشود؛ 2 عدد كنار مي\u200cماند: 2 تكراري.");
    EXPECT_FALSE(preview.cmdImport.Enabled());
    preview.cmbRepeated.UserChoose(1);
    EXPECT_EQ(preview.lblSummary.Caption(), "1 عدد نوشته مي\u200cشود.");
    Accept(preview);
  });
  EXPECT_EQ(form.Cell(2, LineColumn::SecondCounting), "7");
}

TEST_F(ImportPreviewTest, A_column_that_is_not_typed_into_cannot_be_chosen) {
  form.flexDetail.SetEditMask("00000001110001000");
  Run([](frmCountImport& preview) {
    EXPECT_FALSE(preview.cmbFirst.Enabled());
    EXPECT_EQ(preview.cmbFirst.ListIndex(), 0);
    EXPECT_TRUE(preview.cmbSecond.Enabled());
  });
}

TEST_F(ImportPreviewTest, Another_sheet_can_be_chosen) {
  files.sheets.resize(2);
  Put(1, {{"باركد", "تعداد"}, {"4002", "8"}});
  Run([](frmCountImport& preview) {
    EXPECT_TRUE(preview.cmbSheet.Visible());
    preview.cmbSheet.UserChoose(1);
    Accept(preview);
  });
  EXPECT_EQ(Counts(), (Texts{"", "8"}));
}

TEST_F(ImportPreviewTest, A_sheet_that_cannot_be_read_leaves_the_preview_of_the_other) {
  files.sheets.resize(2);
  Run([this](frmCountImport& preview) {
    files.damaged = true;
    preview.cmbSheet.UserChoose(1);
    EXPECT_EQ(preview.cmbSheet.ListIndex(), 0);
    EXPECT_EQ(NewMessages(), Texts{"damaged"});
    Accept(preview);
  });
  EXPECT_EQ(Counts(), (Texts{"5", "6"}));
}

TEST_F(ImportPreviewTest, A_damaged_file_changes_nothing) {
  files.damaged = true;
  EXPECT_THROW(Run(Accept), InputError);
  EXPECT_FALSE(previewed);
  EXPECT_FALSE(form.pgbStatus.Visible());
  EXPECT_FALSE(form.cmdStop.Visible());
}

TEST_F(ImportPreviewTest, Reading_can_be_cancelled) {
  files.cancelAt = 300;
  const Subscription moving = form.pgbStatus.StateChanged.Subscribe([this] { form.cmdStop.UserClick(); });
  EXPECT_EQ(Run(Accept), "");
  EXPECT_FALSE(previewed);
  EXPECT_EQ(Counts(), (Texts{"", ""}));
}

TEST_F(ImportPreviewTest, Without_a_file_nothing_happens) {
  files.path.clear();
  EXPECT_EQ(Run(Accept), "");
  EXPECT_FALSE(previewed);
}

TEST_F(ImportPreviewTest, A_counting_without_lines_is_reported) {
  form.flexDetail.SetRows(1);
  EXPECT_EQ(Run(Accept), "");
  EXPECT_EQ(NewMessages(), Texts{"شمارش هنوز سطري ندارد: نخست «كالاها» را بزنيد."});
}

TEST_F(ImportPreviewTest, A_viewed_counting_asks_for_no_file) {
  form.flexDetail.SetLocked(true);
  EXPECT_EQ(Run(Accept), "");
  EXPECT_FALSE(previewed);
}

}  // namespace
}  // namespace koru
