#include "desktop/manual/ManualPrint.h"

#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <cmath>
#include <fstream>

#include "desktop/toolkit/QtText.h"
#include "platform/text/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

/// Paper of A4 within its margins, at 96 dots per inch.
QImage Paper() {
  constexpr int kDotsPerMeter = 3780;
  QImage paper(688, 1016, QImage::Format_RGB32);
  paper.setDotsPerMeterX(kDotsPerMeter);
  paper.setDotsPerMeterY(kDotsPerMeter);
  paper.fill(Qt::white);
  return paper;
}

class ManualPrintTest : public testing::Test {
 protected:
  QString Write(const std::string& bodyClass, const std::string& body) {
    std::ofstream(folder_.Path() / "a.html")
        << "<html dir=\"rtl\"><head><meta charset=\"utf-8\"><title>برگه</title></head><body dir=\"rtl\" "
           "class=\""
        << bodyClass << "\">" << body << "</body></html>";
    return ToQt((folder_.Path() / "a.html").string());
  }

  test::TemporaryFolder folder_;
};

/// The column that has the top of a block, and the one that has its end.
std::pair<int, int> ColumnsOf(const PrintedManual& printed, const QTextBlock& block) {
  const QRectF place = printed.Text().documentLayout()->blockBoundingRect(block);
  const double height = printed.Text().pageSize().height();
  return {static_cast<int>(std::floor(place.top() / height)),
          static_cast<int>(std::floor((place.bottom() - 1) / height))};
}

const QString kSheet = QStringLiteral(KORU_SOURCES "/docs/fa/keys.html");

TEST_F(ManualPrintTest, The_sheet_of_keys_is_two_sides_of_a_paper_at_most) {
  QImage paper = Paper();
  const PrintedManual printed(kSheet, paper);
  EXPECT_GE(printed.Sheets(), 1);
  EXPECT_LE(printed.Sheets(), 2);
}

TEST_F(ManualPrintTest, Each_section_of_the_sheet_of_keys_is_in_one_column) {
  QImage paper = Paper();
  const PrintedManual printed(kSheet, paper);
  int sections = 0;
  int column = 0;
  for (QTextBlock block = printed.Text().begin(); block.isValid(); block = block.next()) {
    const auto [first, last] = ColumnsOf(printed, block);
    if (block.blockFormat().headingLevel() == 2) {
      ++sections;
      column = first;
    }
    if (block.text().isEmpty()) continue;  // after a table
    EXPECT_EQ(first, column) << block.text().toStdString();
    EXPECT_EQ(last, column) << block.text().toStdString();
  }
  EXPECT_GE(sections, 11);
}

TEST_F(ManualPrintTest, All_keys_are_on_the_sheet_whole_and_the_links_are_not) {
  QImage paper = Paper();
  const PrintedManual printed(kSheet, paper);
  const QString text = printed.Text().toPlainText();
  for (const char* key : {"Ctrl+Shift+Delete", "Ctrl+Shift+R", "Alt+Home", "F12"})
    EXPECT_TRUE(text.contains(QLatin1String(key))) << key;
  EXPECT_TRUE(text.contains(QStringLiteral("فهرست شمارش\u200Cها")));
  EXPECT_FALSE(text.contains(QStringLiteral("پیشین:"))) << "the links to other pages";
  for (QTextBlock block = printed.Text().begin(); block.isValid(); block = block.next()) {
    if (block.text() == QStringLiteral("\u200F\u200ECtrl+Shift+Delete\u200E\u200F")) {
      EXPECT_EQ(block.layout()->lineCount(), 1);
    }
  }
}

TEST_F(ManualPrintTest, The_first_column_is_at_the_right) {
  QImage paper = Paper();
  PrintedManual printed(Write("sheet", "<h2>کلید</h2><p>جستجو</p>"), paper);
  QPainter painter(&paper);
  printed.Paint(painter, 0);
  painter.end();
  const auto hasInk = [&](int from, int to) {
    for (int x = from; x < to; ++x) {
      for (int y = 0; y < 300; ++y) {
        if (paper.pixel(x, y) != qRgb(255, 255, 255)) return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(hasInk(paper.width() / 2, paper.width()));
  EXPECT_FALSE(hasInk(0, paper.width() / 2));
}

TEST_F(ManualPrintTest, A_heading_is_on_the_sheet_of_what_follows_it) {
  std::string paragraphs;
  for (int count = 1; count < 60; ++count) {
    paragraphs += "<p>انبار</p>";
    QImage paper = Paper();
    const PrintedManual printed(Write("", paragraphs + "<h2>بخش</h2><p>شمارش</p>"), paper);
    const QTextBlock last = printed.Text().lastBlock();
    ASSERT_EQ(last.previous().blockFormat().headingLevel(), 2);
    EXPECT_EQ(ColumnsOf(printed, last.previous()).first, ColumnsOf(printed, last).second) << count;
  }
}

TEST_F(ManualPrintTest, A_wide_picture_fits_the_paper) {
  QImage(2000, 300, QImage::Format_RGB32).save(ToQt((folder_.Path() / "wide.png").string()));
  QImage paper = Paper();
  const PrintedManual printed(Write("", "<p><img src=\"wide.png\"></p>"), paper);
  EXPECT_LE(printed.Text().idealWidth(), paper.width());
  EXPECT_GT(printed.Text().idealWidth(), paper.width() / 2.0);
}

TEST_F(ManualPrintTest, A_page_is_saved_as_PDF_or_the_file_is_named) {
  const std::string pdf = (folder_.Path() / "keys.pdf").string();
  WriteManualPdf(kSheet, ToQt(pdf));
  std::ifstream stream(pdf, std::ios::binary);
  std::string begin(4, ' ');
  stream.read(begin.data(), 4);
  EXPECT_EQ(begin, "%PDF");
  const std::string nowhere = (folder_.Path() / "none" / "keys.pdf").string();
  try {
    WriteManualPdf(kSheet, ToQt(nowhere));
    ADD_FAILURE() << "nothing was thrown";
  } catch (const InputError& failure) {
    EXPECT_NE(std::string(failure.what()).find(nowhere), std::string::npos) << failure.what();
  }
}

}  // namespace
}  // namespace koru
