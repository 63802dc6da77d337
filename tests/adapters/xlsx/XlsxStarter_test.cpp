#include "adapters/xlsx/XlsxStarter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "platform/text/Errors.h"
#include "tests/adapters/xlsx/WorkbookReader.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RefusedWrites.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFirstName = "شمارش-1404-10-01-1.xlsx";

class ExportedWorkbook : public ::testing::Test {
 protected:
  [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() {
    XlsxStarter starter({folder.File("documents"),
                         [this](const std::string& path) {
                           opened.push_back(path);
                           return programThere;
                         },
                         [this](const std::string& sentence) { messages.push_back(sentence); }},
                        clock);
    return starter.NewWorkbook();
  }

  [[nodiscard]] std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.Path() / "documents")) {
      const std::u8string name = entry.path().filename().u8string();
      names.emplace_back(name.begin(), name.end());
    }
    return names;
  }

  TemporaryFolder folder;
  FixedClock clock{Date{std::chrono::year{2025} / 12 / 22}};
  bool programThere = true;
  std::vector<std::string> opened;
  std::vector<std::string> messages;
};

TEST_F(ExportedWorkbook, Is_right_to_left_with_a_bold_header_row_that_stays_in_sight) {
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, "   رديف");
  sheet->SetCell(1, 2, "شمارش مورد قبول  \u00A0");
  sheet->SetCell(2, 1, "1");
  sheet->LeaveOpen();
  ASSERT_EQ(opened.size(), 1U);
  const ReadSheet read = ReadWorkbook(opened[0]);
  EXPECT_EQ(read.name, "شمارش");
  EXPECT_TRUE(read.rightToLeft);
  EXPECT_EQ(read.frozenRows, 1);
  EXPECT_EQ(read.Text(1, 1), "   رديف");
  EXPECT_EQ(read.Text(1, 2), "شمارش مورد قبول  \u00A0");
  EXPECT_TRUE(read.cells.at({1, 1}).bold);
  EXPECT_FALSE(read.cells.at({2, 1}).bold);
}

TEST_F(ExportedWorkbook, Says_in_its_name_and_that_of_its_sheet_that_it_is_not_stored) {
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, "رديف");
  sheet->MarkAsUnsaved();
  sheet->LeaveOpen();
  ASSERT_EQ(opened.size(), 1U);
  EXPECT_EQ(Files(), std::vector<std::string>{"شمارش ذخيره نشده-1404-10-01-1.xlsx"});
  const ReadSheet read = ReadWorkbook(opened[0]);
  EXPECT_EQ(read.name, "شمارش ذخيره نشده");
  EXPECT_EQ(read.Text(1, 1), "رديف");
}

TEST_F(ExportedWorkbook, Texts_come_back_letter_for_letter_and_are_never_numbers_or_formulas) {
  const std::vector<std::string> texts = {"=1+1",
                                          "007",
                                          "-12.50",
                                          "1E+15",
                                          "@A1",
                                          "+1",
                                          "TRUE",
                                          "1404/10/01",
                                          "<b>&\"'",
                                          "]]>",
                                          "a\nb",
                                          "a\r\nb\tc",
                                          "😀🇮🇷",
                                          "ميله\u200Cاي",
                                          "\u00A0x\u00A0",
                                          "  x  ",
                                          "{=A1}",
                                          "http://x",
                                          std::string("\x01\x1F"),
                                          "_x0041_",
                                          "_x005F_x000a_",
                                          std::string("_x0041\x02"),
                                          "ي ك ی ک"};
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, "header");
  for (std::size_t i = 0; i < texts.size(); ++i) sheet->SetCell(2, static_cast<int>(i) + 1, texts[i]);
  sheet->LeaveOpen();
  const ReadSheet read = ReadWorkbook(opened.at(0));
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const ReadCell& cell = read.cells.at({2, static_cast<int>(i) + 1});
    EXPECT_EQ(cell.text, texts[i]);
    EXPECT_TRUE(cell.isText) << texts[i];
  }
}

TEST_F(ExportedWorkbook, A_text_longer_than_a_cell_holds_is_cut_and_reported_and_the_others_are_whole) {
  const auto sheet = NewWorkbook();
  const std::string fits(32767, 'x');
  std::string over = fits;
  over.replace(32766, 1, "😀");  // its two units do not both fit
  sheet->SetCell(1, 1, "پيش");
  sheet->SetCell(2, 1, fits);
  sheet->SetCell(3, 2, fits + "y");
  sheet->SetCell(4, 3, over);
  sheet->SetCell(5, 1, "پس");
  sheet->LeaveOpen();
  ASSERT_EQ(opened.size(), 1U);
  const ReadSheet read = ReadWorkbook(opened[0]);
  EXPECT_EQ(read.Text(1, 1), "پيش");
  EXPECT_EQ(read.Text(2, 1), fits);
  EXPECT_EQ(read.Text(3, 2), fits);
  EXPECT_EQ(read.Text(4, 3), fits.substr(1));
  EXPECT_EQ(read.Text(5, 1), "پس");
  EXPECT_EQ(messages,
            std::vector<std::string>{
                "متن 2 خانه بلندتر از 32767 نويسه بود و بريده شد؛ نخستين آنها در سطر 3 و ستون 2 است."});
}

TEST_F(ExportedWorkbook, A_long_text_that_is_overwritten_is_not_reported) {
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, std::string(40000, 'x'));
  sheet->SetCell(1, 1, "short");
  sheet->LeaveOpen();
  EXPECT_EQ(ReadWorkbook(opened.at(0)).Text(1, 1), "short");
  EXPECT_TRUE(messages.empty());
}

TEST_F(ExportedWorkbook, Bytes_that_are_no_text_do_not_spoil_the_file) {
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1,
                 "a\xFF\xFE"
                 "b");
  sheet->LeaveOpen();
  EXPECT_EQ(ReadWorkbook(opened.at(0)).Text(1, 1), "a\uFFFD\uFFFDb");
}

TEST_F(ExportedWorkbook, Cells_may_be_set_in_any_order_and_again) {
  const auto sheet = NewWorkbook();
  sheet->SetCell(3, 2, "c");
  sheet->SetCell(1, 1, "a");
  sheet->SetCell(3, 2, "d");
  sheet->SetCell(2, 17, "b");
  sheet->LeaveOpen();
  const ReadSheet read = ReadWorkbook(opened.at(0));
  EXPECT_EQ(read.cells.size(), 3U);
  EXPECT_EQ(read.Text(1, 1), "a");
  EXPECT_EQ(read.Text(2, 17), "b");
  EXPECT_EQ(read.Text(3, 2), "d");
  EXPECT_THROW(sheet->SetCell(0, 1, "x"), std::out_of_range);
  EXPECT_THROW(sheet->SetCell(1, 16385, "x"), std::out_of_range);
}

TEST_F(ExportedWorkbook, Columns_are_as_wide_as_their_texts_within_reason) {
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, "x");
  sheet->SetCell(2, 2, std::string(30, 'x'));
  sheet->SetCell(2, 3, std::string(500, 'x'));
  sheet->LeaveOpen();
  const ReadSheet read = ReadWorkbook(opened.at(0));
  EXPECT_NEAR(read.widths.at(1), 6, 1);
  EXPECT_NEAR(read.widths.at(2), 32, 1);
  EXPECT_NEAR(read.widths.at(3), 60, 1);
}

TEST_F(ExportedWorkbook, Each_export_is_a_new_file_named_after_the_date) {
  for (int i = 0; i < 2; ++i) {
    const auto sheet = NewWorkbook();
    sheet->SetCell(1, 1, std::to_string(i));
    sheet->LeaveOpen();
  }
  EXPECT_EQ(Files().size(), 2U);
  EXPECT_EQ(opened.at(0), folder.File("documents") + "/" + kFirstName);
  EXPECT_EQ(opened.at(1), folder.File("documents") + "/شمارش-1404-10-01-2.xlsx");
  EXPECT_EQ(ReadWorkbook(opened.at(0)).Text(1, 1), "0");
  EXPECT_EQ(ReadWorkbook(opened.at(1)).Text(1, 1), "1");
}

TEST_F(ExportedWorkbook, Without_a_program_to_open_it_a_message_names_the_file) {
  programThere = false;
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, "x");
  sheet->LeaveOpen();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_NE(messages[0].find(folder.File("documents") + "/" + kFirstName), std::string::npos);
  EXPECT_EQ(ReadWorkbook(opened.at(0)).Text(1, 1), "x");
}

TEST_F(ExportedWorkbook, A_folder_that_cannot_be_is_an_error_that_names_it) {
  std::ofstream(folder.File("documents")) << "a file, not a folder";
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, "x");
  try {
    sheet->LeaveOpen();
    FAIL() << "no failure";
  } catch (const InputError& failure) {
    EXPECT_NE(std::string(failure.what()).find(folder.File("documents")), std::string::npos);
  }
  EXPECT_TRUE(opened.empty());
}

TEST_F(ExportedWorkbook, A_folder_that_may_not_be_written_to_is_an_error_that_names_the_file) {
  fs::create_directory(folder.Path() / "documents");
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, "x");
  {
    const LockedFolder locked(folder.Path() / "documents");
    ASSERT_TRUE(locked.Locked());
    try {
      sheet->LeaveOpen();
      ADD_FAILURE() << "no failure";
    } catch (const InputError& failure) {
      EXPECT_NE(std::string(failure.what()).find(folder.File("documents") + "/" + kFirstName),
                std::string::npos);
    }
  }
  EXPECT_EQ(Files(), std::vector<std::string>{});
  EXPECT_TRUE(opened.empty());
}

TEST_F(ExportedWorkbook, A_failure_names_the_file_that_would_have_been_written_not_one_that_is_whole) {
  const auto first = NewWorkbook();
  first->SetCell(1, 1, "x");
  first->LeaveOpen();
  EXPECT_EQ(first->File(), folder.File("documents") + "/" + kFirstName);
  const auto second = NewWorkbook();
  second->SetCell(1, 1, "x");
  const LockedFolder locked(folder.Path() / "documents");
  ASSERT_TRUE(locked.Locked());
  try {
    second->LeaveOpen();
    ADD_FAILURE() << "no failure";
  } catch (const InputError& failure) {
    EXPECT_NE(std::string(failure.what()).find("/شمارش-1404-10-01-2.xlsx"), std::string::npos)
        << failure.what();
  }
  EXPECT_EQ(second->File(), "");
}

TEST_F(ExportedWorkbook, A_folder_of_the_workbooks_name_is_left_alone) {
  fs::create_directories(folder.Path() / "documents" / kFirstName);
  const auto sheet = NewWorkbook();
  sheet->SetCell(1, 1, "x");
  sheet->LeaveOpen();
  EXPECT_EQ(opened.at(0), folder.File("documents") + "/شمارش-1404-10-01-2.xlsx");
  EXPECT_TRUE(fs::is_directory(folder.Path() / "documents" / kFirstName));
}

TEST_F(ExportedWorkbook, A_full_disk_is_an_error_and_leaves_no_half_file) {
  const auto sheet = NewWorkbook();
  for (int row = 1; row <= 2000; ++row) sheet->SetCell(row, 1, std::to_string(row * 7919));
  {
    const FullDisk full(8192);
    EXPECT_THROW(sheet->LeaveOpen(), InputError);
  }
  EXPECT_EQ(Files(), std::vector<std::string>{});
  EXPECT_TRUE(opened.empty());
  sheet->LeaveOpen();  // the disk has space again
  EXPECT_EQ(ReadWorkbook(opened.at(0)).Text(2000, 1), std::to_string(2000 * 7919));
}

}  // namespace
}  // namespace koru::test
