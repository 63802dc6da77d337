#include "adapters/sheet/TableBuilder.h"

#include <utility>

#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {

void CheckCellLength(std::string_view text) {
  if (text.size() > kMaxCellLength && Utf16Length(text) > kMaxCellLength)
    throw InputError("خانه\u200cاي بيش از " + std::to_string(kMaxCellLength) + " نويسه دارد.");
}

void TableBuilder::AddCell(int column, std::string_view text) {
  if (text.empty()) return;
  if (column < 0 || column >= kMaxTableColumns)
    throw InputError("بيش از " + std::to_string(kMaxTableColumns) + " ستون دارد.");
  CheckCellLength(text);
  const auto at = static_cast<std::size_t>(column);
  if (row_.cells.size() <= at) {
    bytes_ += (at + 1 - row_.cells.size()) * sizeof(std::string);
    row_.cells.resize(at + 1);
  }
  bytes_ += text.size();
  if (bytes_ > kMaxTableBytes) throw InputError("نوشته\u200cهاي آن براي يك شمارش بيش از اندازه است.");
  row_.cells[at] = text;
}

void TableBuilder::EndRow() {
  if (row_.cells.empty()) return;
  if (table_.rows.size() == kMaxTableRows)
    throw InputError("بيش از " + std::to_string(kMaxTableRows) +
                     " سطر دارد؛ آن را به چند پرونده تقسيم كنيد.");
  table_.rows.push_back(std::move(row_));
  row_ = {};
}

}  // namespace koru
