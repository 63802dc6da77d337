#include "scenario/ScenarioTables.h"

#include <fstream>

#include "adapters/xlsx/WorkbookFile.h"
#include "platform/text/FilePath.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

SheetTexts TextsOf(const ScenarioStep& step) {
  SheetTexts texts;
  for (const auto& row : step.rows) {
    auto& cells = texts.emplace_back();
    for (const ScenarioWord& word : row) cells.push_back(word.text);
  }
  return texts;
}

std::string Separated(const SheetTexts& texts) {
  std::string all;
  for (const auto& row : texts) {
    for (const std::string& text : row) {
      all += &text == &row.front() ? "\"" : ",\"";
      for (const char c : text) all += c == '"' ? std::string("\"\"") : std::string(1, c);
      all += '"';
    }
    all += '\n';
  }
  return all;
}

}  // namespace

void ScenarioTables::Put(const ScenarioStep& step, const std::filesystem::path& folder,
                         const std::filesystem::path& exported) {
  const std::filesystem::path name = PathOf(step.Text(1));
  if (step.rows.empty()) {
    if (!std::filesystem::exists(exported / name))
      throw ScenarioFailure("there is no workbook " + step.Text(1));
    chosen_ = TextOf(exported / name);
    return;
  }
  chosen_ = TextOf(folder / name);
  if (name.extension() == ".xlsx") {
    const std::string failure = WriteWorkbook(chosen_, "sheet", TextsOf(step));
    if (!failure.empty()) throw ScenarioFailure("the workbook cannot be written: " + failure);
  } else {
    std::ofstream(folder / name, std::ios::binary) << Separated(TextsOf(step));
  }
}

std::optional<FileTable> ScenarioTables::Read(const std::string& path, std::size_t sheet,
                                              const Progress& progress) {
  return read_(path, sheet, progress);
}

}  // namespace koru
