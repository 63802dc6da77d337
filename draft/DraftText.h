#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// The text form of a draft: a line for each record, of fields separated by tabs, the first of which names
/// what it is. The first line names the format, the last one holds the fingerprint of all before it, so that
/// a draft that was damaged or cut off is recognised. `\\`, `\t` and `\n` are escapes in fields.
class DraftWriter {
 public:
  explicit DraftWriter(std::size_t expectedSize);

  /// Begins a record.
  void Record(std::string_view name);
  /// Appends a field to it.
  void Field(std::string_view text);
  void Field(std::int64_t number) { Field(std::to_string(number)); }
  /// The whole text. The writer is empty afterwards.
  [[nodiscard]] std::string Finish();

 private:
  std::string text_;
};

/// Reads that form. Everything throws InputError when the text is not in order.
class DraftReader {
 public:
  /// `text` must outlive the reader.
  explicit DraftReader(std::string_view text);

  /// Moves to the next record; false after the last one.
  bool Next();
  [[nodiscard]] const std::string& Name() const { return fields_.front(); }
  /// The fields after the name.
  [[nodiscard]] std::size_t Count() const { return fields_.size() - 1; }
  [[nodiscard]] const std::string& Text(std::size_t field) const;
  [[nodiscard]] std::int32_t Number(std::size_t field) const;
  [[nodiscard]] std::uint64_t LongNumber(std::size_t field) const;
  [[noreturn]] static void Fail();

 private:
  std::string_view rest_;
  std::vector<std::string> fields_{std::string()};
};

}  // namespace koru
