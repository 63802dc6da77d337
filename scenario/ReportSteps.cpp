#include <algorithm>
#include <fstream>
#include <sstream>

#include "adapters/system/TemporaryFolder.h"
#include "scenario/ScenarioWorld.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

const ReportDocument& OpenReport(ScenarioWorld& world) {
  const ReportDocument* const report = world.driver->Report();
  if (report == nullptr) throw ScenarioFailure("no report is shown");
  return *report;
}

/// The texts of the cells of a page, from top to bottom and from right to left, without direction marks.
std::vector<std::string> TextsOfPage(const ReportDocument& report, std::size_t page) {
  std::vector<std::string> texts;
  for (const PlacedBand& band : report.Pages()[page].bands) {
    for (const ReportLine& line : report.Template().Band(band.kind).lines) {
      for (const ReportCell& cell : line.cells) {
        std::string& text = texts.emplace_back(report.CellText(cell, band, page));
        for (const std::string_view mark : {"\u2068", "\u2069"}) {
          for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at))
            text.erase(at, mark.size());
        }
      }
    }
  }
  return texts;
}

void ExpectPages(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("pages of the report", step.Text(2), std::to_string(OpenReport(world).Pages().size()));
}

void ExpectNoReport(ScenarioWorld& world, const ScenarioStep&) {
  if (world.driver->Report() != nullptr) throw ScenarioFailure("a report is shown");
}

void ExpectPage(ScenarioWorld& world, const ScenarioStep& step) {
  const ReportDocument& report = OpenReport(world);
  const std::int32_t page = step.Number(3);
  if (page < 1 || static_cast<std::size_t>(page) > report.Pages().size())
    throw ScenarioFailure("the report has no page " + step.Text(3));
  const std::vector<std::string> texts = TextsOfPage(report, static_cast<std::size_t>(page) - 1);
  auto from = texts.begin();
  for (std::size_t i = 4; i < step.words.size(); ++i) {
    const auto found = std::find(from, texts.end(), step.Text(i));
    if (found == texts.end()) {
      const std::string after = i == 4 ? std::string() : " after " + QuotedForScenario(step.Text(i - 1));
      throw ScenarioFailure("page " + step.Text(3) + " of the report does not show " +
                            QuotedForScenario(step.Text(i)) + after);
    }
    from = found + 1;
  }
}

/// The number of pages that a PDF file says it has, as text.
std::string PagesOfPdf(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  constexpr std::string_view kCount = "/Count ";
  const std::string text = content.str();
  const std::size_t at = text.find(kCount);
  if (!text.starts_with("%PDF-") || at == std::string::npos) return "no PDF file";
  const std::size_t begin = at + kCount.size();
  return text.substr(begin, text.find_first_not_of("0123456789", begin) - begin);
}

void SaveReport(ScenarioWorld& world, const ScenarioStep&) {
  const std::string pages = std::to_string(OpenReport(world).Pages().size());
  const TemporaryFolder folder;
  const std::filesystem::path file = folder.Path() / "report.pdf";
  if (world.driver->SaveReport(file)) MustBe("pages of the PDF file", pages, PagesOfPdf(file));
}

void CloseReport(ScenarioWorld& world, const ScenarioStep&) {
  static_cast<void>(OpenReport(world));
  if (!world.driver->CloseReport()) throw ScenarioFailure("the user cannot close the report");
}

constexpr StepKind kKinds[] = {
    {"expect report NUMBER pages", ExpectPages},
    {"expect report none", ExpectNoReport},
    {"expect report page NUMBER TEXT...", ExpectPage},
    {"save report", SaveReport},
    {"close report", CloseReport},
};

}  // namespace

std::span<const StepKind> ReportSteps() { return kKinds; }

}  // namespace koru
