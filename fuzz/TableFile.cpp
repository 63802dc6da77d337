// Any bytes are read as a table within its limits, or refused with a sentence.

#include "adapters/sheet/TableFile.h"

#include "adapters/sheet/TableBuilder.h"
#include "fuzz/Require.h"
#include "platform/text/Errors.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using koru::fuzz::Require;
  try {
    const auto table = koru::ReadTable(koru::fuzz::TextOf(data, size), 0, [](int) { return true; });
    Require(table.has_value(), "only a cancelled reading gives no table");
    Require(table->rows.size() <= koru::kMaxTableRows, "the table is within its limits");
    for (const auto& row : table->rows) {
      Require(!row.cells.empty() && row.cells.size() <= koru::kMaxTableColumns, "a row has its cells");
      Require(!row.cells.back().empty(), "a row ends with a text");
    }
  } catch (const koru::InputError& refused) {
    Require(std::string_view(refused.what()).size() > 1, "a refusal is a sentence");
  }
  return 0;
}
