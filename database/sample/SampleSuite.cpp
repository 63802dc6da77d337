#include "database/sample/SampleSuite.h"

#include <array>
#include <string_view>

#include "database/sample/SampleRows.h"

namespace koru::sample {
namespace {

struct Parameter {
  int id;
  int system;
  int value;
};

// 123 shows the counting form modally; here it does not.
constexpr std::array<Parameter, 5> kParameters = {
    {{11, 1, 1}, {37, 3, 0}, {88, 8, 1}, {123, 8, 0}, {131, 9, 1}}};

struct Template {
  int id;
  int formType;
  std::string_view title;
  std::string_view file;
};

constexpr std::array<Template, 5> kTemplates = {
    {{1, 801, "رسيد انبار", "reports/receipt.rpt.txt"},
     {2, 802, "حوالة خروج", "reports/dispatch.rpt.txt"},
     {3, 806, "شمارش با مغايرت و مبلغ", "reports/counting.rpt.txt"},
     {4, 806, "برگة شمارش انبار (بدون موجودي)", "reports/counting-sheet.rpt.txt"},
     {5, 806, "فهرست مغايرتها", "reports/differences.rpt.txt"}}};

}  // namespace

void WriteSuite(SqliteConnection& connection) {
  // No base folder: reports are those of the program, wherever it is installed.
  RowWriter::Inserts(connection, "tblPelinCompany").Write({{"ID", 1}, {"Name", "شركت پخش آفتاب كوير"}});
  RowWriter parameters = RowWriter::Inserts(connection, "tblPelinSystemParameters");
  for (const Parameter& row : kParameters) {
    parameters.Write({{"ID", row.id}, {"SystemID", row.system}, {"Value", row.value}});
  }
  RowWriter reports = RowWriter::Inserts(connection, "tblPelinReportTemplate");
  for (const Template& row : kTemplates) {
    reports.Write(
        {{"ID", row.id}, {"FormTypeID", row.formType}, {"Title", row.title}, {"FilePath", row.file}});
  }
}

}  // namespace koru::sample
