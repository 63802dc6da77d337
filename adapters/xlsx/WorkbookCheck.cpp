#include "adapters/xlsx/WorkbookCheck.h"

#include <algorithm>
#include <string_view>

#include "adapters/xlsx/PackedFile.h"

namespace koru {
namespace {

constexpr std::string_view kSheet = "xl/worksheets/sheet1.xml";
constexpr std::string_view kEndOfText = "</is>";
constexpr std::string_view kEndOfSheet = "</worksheet>";

/// Counts marks in the content of a part, which arrives in pieces.
class PartCheck {
 public:
  void Add(std::string_view piece) {
    // A mark may start at the end of the previous piece.
    const std::string joined = tail_ + std::string(piece);
    for (std::size_t at = joined.find(kEndOfText); at != std::string::npos;
         at = joined.find(kEndOfText, at + kEndOfText.size())) {
      if (at + kEndOfText.size() > tail_.size()) ++texts_;
    }
    tail_ = joined.substr(joined.size() - std::min(joined.size(), kEndOfSheet.size()));
  }
  [[nodiscard]] std::size_t Texts() const { return texts_; }
  [[nodiscard]] bool EndsWith(std::string_view end) const { return std::string_view(tail_).ends_with(end); }

 private:
  std::string tail_;
  std::size_t texts_ = 0;
};

}  // namespace

bool IsWholeWorkbook(const std::string& path, std::size_t texts) {
  bool whole = true;
  bool sheetSeen = false;
  PartCheck part;
  const bool readable = ReadPackedFile(path, [&](std::string_view name, std::string_view piece) {
    part.Add(piece);
    if (!piece.empty()) return;
    if (name == kSheet) {
      sheetSeen = true;
      whole = whole && part.Texts() == texts && part.EndsWith(kEndOfSheet);
    }
    whole = whole && (part.EndsWith(">") || part.EndsWith(">\n"));
    part = PartCheck();
  });
  return readable && whole && sheetSeen;
}

}  // namespace koru
