#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace koru {

/// A connection text `Key=Value;Key=Value`, as hosts hand it over. Keys are compared regardless of case;
/// blanks around keys and values do not count; a value may stand in double quotes or apostrophes, where `;`
/// is part of it and the quote itself is written twice.
class ConnectionText {
 public:
  /// Throws DatabaseError with one sentence when the text cannot be read.
  [[nodiscard]] static ConnectionText Parse(std::string_view text);

  /// The value of a key; empty when the text does not have it.
  [[nodiscard]] std::string Get(std::string_view key) const;
  [[nodiscard]] bool Has(std::string_view key) const;
  [[nodiscard]] const std::vector<std::pair<std::string, std::string>>& Entries() const { return entries_; }

  /// The text for people: passwords are written as ***.
  [[nodiscard]] std::string WithoutPassword() const;

 private:
  std::vector<std::pair<std::string, std::string>> entries_;
};

/// A value as it is written in a connection text, whatever characters it has.
[[nodiscard]] std::string QuotedForConnection(std::string_view value);

}  // namespace koru
