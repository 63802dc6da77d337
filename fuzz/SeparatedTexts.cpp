// Texts that are written with quotes are read as they were. An input's lines are rows, its tabs part cells.

#include "adapters/sheet/SeparatedTexts.h"

#include <algorithm>
#include <string>
#include <vector>

#include "adapters/sheet/TableBuilder.h"
#include "fuzz/Require.h"
#include "platform/text/Errors.h"

namespace {

using koru::fuzz::Require;
using Rows = std::vector<std::vector<std::string>>;

Rows RowsOf(std::string_view input) {
  Rows rows(1, {std::string()});
  for (const char c : input) {
    if (c == '\n') {
      rows.push_back({std::string()});
    } else if (c == '\t') {
      rows.back().emplace_back();
    } else {
      rows.back().back() += c == '\v' ? '\n' : c;
    }
  }
  return rows;
}

std::string Written(const Rows& rows) {
  std::string text;
  for (const auto& row : rows) {
    for (const std::string& cell : row) {
      text += &cell == &row.front() ? "\"" : ",\"";
      for (const char c : cell) text += c == '"' ? std::string("\"\"") : std::string(1, c);
      text += '"';
    }
    text += '\n';
  }
  return text;
}

void Compare(const Rows& rows, const koru::FileTable& table) {
  auto read = table.rows.begin();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    auto cells = rows[i];
    while (!cells.empty() && cells.back().empty()) cells.pop_back();
    if (cells.empty()) continue;
    Require(read != table.rows.end(), "no row is lost");
    Require(read->number == static_cast<int>(i) + 1, "a row has its number");
    Require(read->cells == cells, "a row has its texts");
    ++read;
  }
  Require(read == table.rows.end(), "no row is added");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMaxSize = 4096;
  const std::string_view input = koru::fuzz::TextOf(data, std::min(size, kMaxSize));
  const auto goOn = [](int) { return true; };
  const Rows rows = RowsOf(input);
  try {
    Compare(rows, *koru::ReadSeparatedTexts(Written(rows), goOn));
  } catch (const koru::InputError&) {
    const bool isWide = std::any_of(rows.begin(), rows.end(), [](const auto& row) {
      return row.size() > static_cast<std::size_t>(koru::kMaxTableColumns);
    });
    Require(isWide, "only a wide row is refused");
  }
  try {
    static_cast<void>(koru::ReadSeparatedTexts(input, goOn));  // as it is: read or refused
  } catch (const koru::InputError&) {
  }
  return 0;
}
