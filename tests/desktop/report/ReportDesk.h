#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/report/DesktopReportPrinter.h"
#include "tests/support/RecordingDatabase.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestDatabase.h"

namespace koru::test {

/// Counting 1 of the store انبار مركزي without lines, and a printer with everything set but the report file.
class ReportDesk : public ::testing::Test {
 protected:
  ReportDesk() {
    database.Execute(
        "insert into tblInventory (ID, Name) values (3, 'انبار مركزي');"
        "insert into tblGoodScale (ID, Name) values (4, 'عدد');"
        "insert into tblInventoryCounting (InventoryID, CreatorID) values (3, 7)");
    printer.SetConnectionString(database.ConnectionText());
    printer.SetSQLQuery(SqlText("SELECT * From vwInventoryCountingPrint Where ID=1 order by GoodCode"));
    printer.SetFormula(1, "fmlCompanyName='شركت آفتاب'");
  }

  /// Adds a good with the code "c" and its barcode, and a line with one count.
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

  TestDatabase database;
  TemporaryFolder folder;
  RecordingConnector recording{database.Connector()};
  std::vector<std::string> told;
  DesktopReportPrinter printer{recording, [this](const std::string& sentence) { told.push_back(sentence); }};

 private:
  int rows_ = 0;
};

}  // namespace koru::test
