#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "platform/sql/Recordset.h"
#include "siblings/report/ReportDocument.h"
#include "siblings/report/ReportTemplate.h"

namespace koru::test {

/// A small page: title 20, header 10, rows of 6, summary 15 and footer 5 on 100 mm between the margins of A5
/// landscape (148 mm high).
inline ReportTemplate SmallTemplate(const std::string& more = {}) {
  return ParseReportTemplate(
      "page A5 landscape\n"
      "margins 24 10 24 10\n" +
          more +
          "band title\nline 20\ncell * \"{Title}\"\n"
          "band header\nline 10\ncell * \"Name\"\n"
          "band row\nline 6\ncell 20 \"{row}\" code\ncell * \"{Name}\"\ncell 30 \"{Amount}\" number 2\n"
          "band summary\nline 15\ncell * \"{sum Amount}\" number 2\n"
          "band footer\nline 5\ncell * \"{page}/{pages}\" code\n",
      "small.rpt.txt");
}

/// Records with Title, Name ("good 1" and so on) and Amount (1, 2, 3 ...).
inline Recordset Records(std::size_t count) {
  Recordset records({"Title", "Name", "Amount"});
  for (std::size_t i = 1; i <= count; ++i) {
    records.AppendText("list");
    records.AppendText("good " + std::to_string(i));
    records.AppendInteger(static_cast<std::int64_t>(i));
  }
  return records;
}

/// The text without direction marks.
inline std::string Bare(std::string text) {
  for (const std::string mark : {"\u2068", "\u2069"}) {
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark))
      text.erase(at, mark.size());
  }
  return text;
}

/// The cell texts of all bands of a kind on a page, in order.
inline std::string TextsOf(const ReportDocument& report, std::size_t page, ReportBandKind kind) {
  std::string texts;
  for (const PlacedBand& band : report.Pages().at(page).bands) {
    if (band.kind != kind) continue;
    for (const ReportLine& line : report.Template().Band(kind).lines) {
      for (const ReportCell& cell : line.cells) texts += Bare(report.CellText(cell, band, page)) + "|";
    }
  }
  return texts;
}

/// Expects every band between the margins and below the previous one.
inline void ExpectNothingIsCut(const ReportTemplate& report, const std::vector<ReportPage>& pages) {
  for (const ReportPage& page : pages) {
    double free = report.marginTop;
    for (const PlacedBand& band : page.bands) {
      ASSERT_GE(band.top, free - 1e-6);
      free = band.top + report.Band(band.kind).Height();
    }
    ASSERT_LE(free, report.pageHeight - report.marginBottom + 1e-6);
  }
}

}  // namespace koru::test
