// A workbook holds the texts that were written, cell by cell, read by unpacking the file again. An input's
// lines are rows, its tabs part cells.

#include "adapters/xlsx/WorkbookFile.h"

#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>

#include "adapters/xlsx/PackedFile.h"
#include "fuzz/Require.h"
#include "platform/text/Text.h"

namespace {

using koru::fuzz::Require;

std::filesystem::path File() {
  static const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("koru-fuzz-" + std::to_string(getpid()) + ".xlsx");
  return file;
}

koru::SheetTexts RowsOf(std::string_view input) {
  koru::SheetTexts rows(1, {std::string()});
  for (const char c : input) {
    if (c == '\n') {
      rows.push_back({std::string()});
    } else if (c == '\t') {
      rows.back().emplace_back();
    } else {
      rows.back().back() += c;
    }
  }
  return rows;
}

/// `text` with every `from` as `to`.
void Replace(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
}

bool IsHex(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

/// Resolves the entities of XML and the _xHHHH_ of workbooks.
std::string Plain(std::string text) {
  Replace(text, "&lt;", "<");
  Replace(text, "&gt;", ">");
  Replace(text, "&quot;", "\"");
  Replace(text, "&amp;", "&");
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool isEscape = text.compare(at, 2, "_x") == 0 && at + 7 <= text.size() && text[at + 6] == '_' &&
                          IsHex(text[at + 2]) && IsHex(text[at + 3]) && IsHex(text[at + 4]) &&
                          IsHex(text[at + 5]);
    if (!isEscape) {
      plain += text[at];
      continue;
    }
    koru::AppendCharacter(plain, static_cast<char32_t>(std::stoul(text.substr(at + 2, 4), nullptr, 16)));
    at += 6;
  }
  return plain;
}

/// What the file holds, by reference ("B3").
std::map<std::string, std::string> CellsOf(const std::string& xml) {
  std::map<std::string, std::string> cells;
  for (std::size_t at = xml.find("<c r=\""); at != std::string::npos; at = xml.find("<c r=\"", at + 1)) {
    const std::size_t name = at + 6;
    const std::size_t text = xml.find('>', xml.find("<t", at)) + 1;
    const std::size_t end = xml.find("</t>", text);
    Require(end != std::string::npos, "every cell has a text");
    cells[xml.substr(name, xml.find('"', name) - name)] = Plain(xml.substr(text, end - text));
  }
  return cells;
}

std::string Reference(std::size_t row, std::size_t col) {
  std::string letters;
  for (std::size_t rest = col + 1; rest > 0; rest = (rest - 1) / 26)
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
  return letters + std::to_string(row + 1);
}

/// As a workbook can hold it: no bytes that are not UTF-8, no characters that XML forbids.
std::string Clean(std::string_view text) {
  std::string clean;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = koru::NextCharacter(text, at);
    koru::AppendCharacter(clean, c == 0 || c == 0xFFFE || c == 0xFFFF ? 0xFFFD : c);
  }
  return clean;
}

void Compare(const koru::SheetTexts& rows, const std::map<std::string, std::string>& cells) {
  std::size_t count = 0;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t col = 0; col < rows[row].size(); ++col) {
      if (rows[row][col].empty()) continue;
      ++count;
      const auto found = cells.find(Reference(row, col));
      Require(found != cells.end() && found->second == Clean(rows[row][col]), "a cell holds its text");
    }
  }
  Require(count == cells.size(), "no cell but those that were written");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMaxSize = 4096;  // well below what one cell may hold
  const koru::SheetTexts rows = RowsOf(koru::fuzz::TextOf(data, std::min(size, kMaxSize)));
  Require(koru::WriteWorkbook(File().string(), "sheet", rows).empty(), "the workbook is written");
  std::string sheet;
  const bool whole =
      koru::ReadPackedFile(File().string(), [&](std::string_view part, std::string_view piece) {
        if (part == "xl/worksheets/sheet1.xml") sheet += piece;
      });
  Require(whole, "the file is whole");
  Compare(rows, CellsOf(sheet));
  std::filesystem::remove(File());
  return 0;
}
