// A report file is read, or refused with its name and the reason; what was read can be laid out on a page.

#include "siblings/report/ReportTemplate.h"

#include <cmath>
#include <string>

#include "fuzz/Require.h"
#include "platform/text/Errors.h"

namespace {

using koru::fuzz::Require;

void CheckBand(const koru::ReportBand& band) {
  Require(std::isfinite(band.Height()) && band.Height() >= 0, "a band has a height");
  for (const koru::ReportLine& line : band.lines) {
    Require(line.height >= 0, "a line has a height");
    for (const koru::ReportCell& cell : line.cells) {
      Require(std::isfinite(cell.width) && cell.width >= 0, "a cell has a width");
      Require(std::isfinite(cell.fontSize) && cell.fontSize >= 0, "a font has a size");
      Require(!cell.decimals || (*cell.decimals >= 0 && *cell.decimals <= 9), "decimals are 0 to 9");
      Require(cell.sourceLine > 0, "a cell knows its line");
    }
  }
}

void Check(const koru::ReportTemplate& report) {
  Require(report.ContentWidth() > 0 && report.ContentHeight() > 0, "a page has room");
  Require(!report.Band(koru::ReportBandKind::Row).lines.empty(), "a report has rows");
  for (const koru::ReportBand& band : report.bands) CheckBand(band);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    Check(koru::ParseReportTemplate(koru::fuzz::TextOf(data, size), "fuzzed.rpt.txt"));
  } catch (const koru::InputError& refused) {
    Require(std::string(refused.what()).find("fuzzed.rpt.txt") != std::string::npos,
            "a refusal names the file");
  }
  return 0;
}
