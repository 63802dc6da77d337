#include "adapters/sheet/SeparatedTexts.h"

#include <algorithm>
#include <string>

#include "adapters/sheet/TableBuilder.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

constexpr char kQuote = '"';
constexpr int kRowsPerStep = 512;

char SeparatorOf(std::string_view text) {
  constexpr std::string_view kSeparators = "\t;,";
  constexpr std::size_t kSampled = 4096;
  const std::string_view sample = text.substr(0, kSampled);
  char best = ',';
  std::ptrdiff_t most = 0;
  for (const char separator : kSeparators) {
    bool quoted = false;
    const auto count = std::count_if(sample.begin(), sample.end(), [&](char c) {
      if (c == kQuote) quoted = !quoted;
      return !quoted && c == separator;
    });
    if (count <= most) continue;
    most = count;
    best = separator;
  }
  return best;
}

/// Reads field by field.
class Fields {
 public:
  Fields(std::string_view text, char separator) : text_(text), separator_(separator) {}

  [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }
  [[nodiscard]] std::size_t Position() const { return at_; }

  /// Reads one field; returns whether the row continues after it.
  bool Next(std::string& field, int row) {
    field.clear();
    if (at_ < text_.size() && text_[at_] == kQuote) ReadQuoted(field, row);
    const std::size_t end = std::min(text_.find_first_of(Ends(), at_), text_.size());
    field += text_.substr(at_, end - at_);
    at_ = end;
    if (AtEnd()) return false;
    const char ended = text_[at_++];
    if (ended == '\r' && !AtEnd() && text_[at_] == '\n') ++at_;
    return ended == separator_;
  }

 private:
  [[nodiscard]] std::string Ends() const { return {separator_, '\r', '\n'}; }

  void ReadQuoted(std::string& field, int row) {
    ++at_;
    while (true) {
      const std::size_t quote = text_.find(kQuote, at_);
      if (quote == std::string_view::npos)
        throw InputError("گيومة سطر " + std::to_string(row) + " بسته نشده است.");
      field += text_.substr(at_, quote - at_);
      at_ = quote + 1;
      if (AtEnd() || text_[at_] != kQuote) return;
      field += kQuote;
      ++at_;
    }
  }

  std::string_view text_;
  char separator_;
  std::size_t at_ = 0;
};

}  // namespace

std::optional<FileTable> ReadSeparatedTexts(std::string_view text, const TableFiles::Progress& progress) {
  constexpr std::size_t kPermille = 1000;
  TableBuilder table;
  Fields fields(text, SeparatorOf(text));
  std::string field;
  for (int row = 1; !fields.AtEnd(); ++row) {
    table.BeginRow(row);
    bool more = true;
    for (int column = 0; more; ++column) {
      more = fields.Next(field, row);
      table.AddCell(column, field);
    }
    table.EndRow();
    const auto permille = static_cast<int>(fields.Position() * kPermille / text.size());
    if (row % kRowsPerStep == 0 && !progress(permille)) return std::nullopt;
  }
  return table.Take();
}

}  // namespace koru
