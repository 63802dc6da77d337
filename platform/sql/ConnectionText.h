#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace koru {

/// A connection text `Key=Value;Key=Value` from the host. Keys are case-insensitive; blanks around keys and
/// values are ignored. A value may be enclosed in double quotes or apostrophes; it may then contain `;`, and
/// the quote itself is doubled.
class ConnectionText {
 public:
  /// Throws DatabaseError with a message of one sentence when the text cannot be parsed.
  [[nodiscard]] static ConnectionText Parse(std::string_view text);

  /// The value of `key`; empty when the key is missing.
  [[nodiscard]] std::string Get(std::string_view key) const;
  [[nodiscard]] bool Has(std::string_view key) const;
  /// All keys as they are written, with their values, in order.
  [[nodiscard]] const std::vector<std::pair<std::string, std::string>>& Entries() const { return entries_; }

  /// The text for messages: passwords are replaced by ***.
  [[nodiscard]] std::string WithoutPassword() const;

 private:
  std::vector<std::pair<std::string, std::string>> entries_;
};

/// A driver's message with *** in place of the password. When the message contains a password of fewer than
/// six characters, the result is *** alone, because the places of the asterisks would disclose it.
[[nodiscard]] std::string WordsWithoutPassword(std::string words, const std::string& password);

/// `value` quoted for a connection text, whatever characters it contains.
[[nodiscard]] std::string QuotedForConnection(std::string_view value);

}  // namespace koru
