#include "desktop/report/ReportOutput.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPageLayout>
#include <QPrinter>
#include <QRegularExpression>

#include "desktop/toolkit/QtText.h"
#include "platform/text/Errors.h"
#include "tests/siblings/report/ReportSamples.h"
#include "tests/support/RefusedWrites.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

QByteArray Content(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// The number of pages in a PDF file.
qsizetype PagesIn(const QString& path) {
  static const QRegularExpression kPage(QStringLiteral("/Type\\s*/Page\\b"));
  const QString text = QString::fromLatin1(Content(path));
  qsizetype pages = 0;
  for (auto at = kPage.globalMatch(text); at.hasNext(); at.next()) ++pages;
  return pages;
}

class SavedReport : public ::testing::Test {
 protected:
  [[nodiscard]] QString Path(const char* name) const { return ToQt(folder.File(name)); }
  [[nodiscard]] qsizetype FilesThere() const {
    return QDir(ToQt(folder.File(""))).entryList(QDir::Files).size();
  }

  test::TemporaryFolder folder;
  ReportDocument report{test::SmallTemplate(), test::Records(40), {}};
};

TEST_F(SavedReport, A_pdf_has_all_pages_on_the_templates_paper) {
  std::size_t reported = 0;
  EXPECT_TRUE(WriteReportPdf(report, Path("a.pdf"), [&](std::size_t done, std::size_t all) {
    EXPECT_EQ(done, ++reported);
    EXPECT_EQ(all, 4U);
    return true;
  }));
  EXPECT_EQ(reported, 4U);
  EXPECT_TRUE(Content(Path("a.pdf")).startsWith("%PDF-"));
  EXPECT_EQ(PagesIn(Path("a.pdf")), 4);
  const QSizeF paper = PaperOf(report).fullRect(QPageLayout::Millimeter).size();
  EXPECT_NEAR(paper.width(), 210, 0.5);
  EXPECT_NEAR(paper.height(), 148, 0.5);
}

TEST_F(SavedReport, A_cancelled_pdf_leaves_the_file_that_was_there) {
  QFile before(Path("a.pdf"));
  ASSERT_TRUE(before.open(QIODevice::WriteOnly));
  before.write("before");
  before.close();
  EXPECT_FALSE(WriteReportPdf(report, Path("a.pdf"), [](std::size_t done, std::size_t) { return done < 2; }));
  EXPECT_EQ(Content(Path("a.pdf")), "before");
  EXPECT_FALSE(WriteReportPdf(report, Path("b.pdf"), [](std::size_t, std::size_t) { return false; }));
  EXPECT_EQ(FilesThere(), 1);
}

TEST_F(SavedReport, A_place_that_takes_no_file_is_an_error_that_names_it) {
  std::filesystem::create_directory(folder.Path() / "folder");
  std::filesystem::create_directory(folder.Path() / "folder.pdf");
  const test::LockedFolder locked(folder.Path() / "folder");
  ASSERT_TRUE(locked.Locked());
  for (const char* const place : {"no such folder/a.pdf", "folder/a.pdf", "folder.pdf"}) {
    try {
      WriteReportPdf(report, Path(place), {});
      ADD_FAILURE() << "no failure: " << place;
    } catch (const InputError& failure) {
      EXPECT_NE(std::string(failure.what()).find(place), std::string::npos);
      EXPECT_NE(std::string(failure.what()).find('('), std::string::npos) << "no reason: " << failure.what();
    }
  }
  EXPECT_EQ(FilesThere(), 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path() / "folder"));
}

TEST_F(SavedReport, A_full_disk_is_an_error_and_leaves_the_file_that_was_there) {
  QFile before(Path("a.pdf"));
  ASSERT_TRUE(before.open(QIODevice::WriteOnly));
  before.write("before");
  before.close();
  for (const int bytes : {0, 100, 4096, 8192}) {
    const test::FullDisk full(static_cast<rlim_t>(bytes));
    EXPECT_THROW(WriteReportPdf(report, Path("a.pdf"), {}), InputError) << bytes;
    EXPECT_THROW(WriteReportPdf(report, Path("b.pdf"), {}), InputError) << bytes;
  }
  EXPECT_EQ(Content(Path("a.pdf")), "before");
  EXPECT_EQ(FilesThere(), 1);
}

TEST_F(SavedReport, A_printer_gets_the_pages_that_were_asked_for) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(Path("all.pdf"));
  EXPECT_TRUE(PrintReport(report, printer, {}));
  EXPECT_EQ(PagesIn(Path("all.pdf")), 4);

  QPrinter some(QPrinter::HighResolution);
  some.setOutputFormat(QPrinter::PdfFormat);
  some.setOutputFileName(Path("some.pdf"));
  some.setPrintRange(QPrinter::PageRange);
  some.setFromTo(2, 9);
  EXPECT_TRUE(PrintReport(report, some, {}));
  EXPECT_EQ(PagesIn(Path("some.pdf")), 3);
}

TEST_F(SavedReport, Printing_ends_where_the_user_cancels_it) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(Path("half.pdf"));
  std::size_t reported = 0;
  EXPECT_FALSE(PrintReport(report, printer, [&](std::size_t done, std::size_t) {
    reported = done;
    return done < 2;
  }));
  EXPECT_EQ(reported, 2U);
}

}  // namespace
}  // namespace koru
