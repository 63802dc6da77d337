#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "siblings/report/SuiteReportPrinter.h"
#include "tests/support/DatabaseFixture.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {

/// Counting 1 of the store انبار مركزي without lines, and a printer that lacks only its report file and keeps
/// what it shows.
class ReportDesk : public ::testing::Test, protected DatabaseFixture {
 protected:
  explicit ReportDesk(TestDatabase::Kind kind = TestDatabase::Kind::FileOrServer) : DatabaseFixture(kind) {
    database.Execute(
        "insert into tblInventory (ID, Name) values (3, 'انبار مركزي');"
        "insert into tblGoodScale (ID, Name) values (4, 'عدد');"
        "insert into tblInventoryCounting (InventoryID, CreatorID) values (3, 7)");
    printer.SetConnectionString(database.ConnectionText());
    printer.SetSQLQuery(SqlText("SELECT * From vwInventoryCountingPrint Where ID=1 order by GoodCode"));
    printer.SetFormula(1, "fmlCompanyName='شركت آفتاب'");
  }

  void WriteTemplate(const std::string& text) {
    std::ofstream(folder.File("a.rpt.txt")) << text;
    printer.SetReportFileName(folder.File("a.rpt.txt"));
  }

  /// A good of code "c" and its barcode, counted once, and its line.
  void AddLine(const std::string& barcode, const std::string& name, double counted, double book,
               double rate) {
    database.Execute("insert into tblGood (Barcode, Code, Name) values ('" + barcode + "', 'c" + barcode +
                     "', '" + name + "')");
    const std::string count = std::to_string(counted);
    database.Execute(
        "insert into tblInventoryCountingDetail (CountingID, RowNumber, Barcode, ScaleID, FirstCounting, "
        "AcceptedCounting, SystemCounting, ContradictionCounting, BaseValue) values (1, " +
        std::to_string(++rows_) + ", '" + barcode + "', 4, " + count + ", " + count + ", " +
        std::to_string(book) + ", " + std::to_string(counted - book) + ", " + std::to_string(rate) + ")");
  }

  TemporaryFolder folder;
  std::vector<std::unique_ptr<const ReportDocument>> shown;
  /// The data folder is folder.Path() / "own".
  SuiteReportPrinter printer{recording, folder.Path() / "own",
                             [this](auto report) { shown.push_back(std::move(report)); }};

 private:
  int rows_ = 0;
};

}  // namespace koru::test
