// The parts of a workbook are read, or refused with a sentence. A zero byte separates the shared texts from
// the sheet in an input, and the sheet from the list of sheets.

#include "adapters/sheet/SheetXml.h"

#include <QBuffer>
#include <array>

#include "fuzz/Require.h"
#include "platform/text/Errors.h"

namespace {

using koru::fuzz::Require;

/// Calls `read` with a part; returns whether it was read.
template <class Reading>
bool IsRead(std::string_view part, const Reading& read) {
  QByteArray bytes(part.data(), static_cast<qsizetype>(part.size()));
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  try {
    read(buffer);
    return true;
  } catch (const koru::InputError& refused) {
    Require(std::string_view(refused.what()).size() > 1, "a refusal is a sentence");
    return false;
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = koru::fuzz::TextOf(data, size);
  std::array<std::string_view, 3> parts;
  for (std::string_view& part : parts) {
    part = rest.substr(0, rest.find('\0'));
    rest.remove_prefix(std::min(rest.size(), part.size() + 1));
  }
  const auto goOn = [](std::int64_t) { return true; };
  std::vector<std::string> shared;
  IsRead(parts[0], [&](QIODevice& part) { shared = *koru::ReadSharedTexts(part, goOn); });
  koru::TableBuilder table;
  IsRead(parts[1], [&](QIODevice& part) {
    Require(koru::ReadCells(part, shared, table, goOn), "only a cancelled reading ends early");
  });
  for (const auto& row : table.Take().rows) Require(!row.cells.back().empty(), "a row ends with a text");
  IsRead(parts[2], [](QIODevice& part) { static_cast<void>(koru::ReadSheetList(part)); });
  IsRead(parts[2], [](QIODevice& part) { static_cast<void>(koru::ReadRelations(part)); });
  return 0;
}
