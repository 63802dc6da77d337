#include "platform/sql/ConnectionText.h"

#include <algorithm>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr int kNoSuchConnection = 0;

bool IsPassword(std::string_view key) { return EqualsNoCase(key, "Password") || EqualsNoCase(key, "PWD"); }

[[noreturn]] void Unreadable(const std::string& why) {
  throw DatabaseError("رشته اتصال خوانا نيست: " + why, kNoSuchConnection, {});
}

/// Reads the quoted value at `at` and advances `at` past the closing quote.
std::string QuotedValue(std::string_view text, std::size_t& at, const std::string& key) {
  const char quote = text[at++];
  std::string value;
  while (at < text.size()) {
    const char c = text[at++];
    if (c == quote) {
      if (at >= text.size() || text[at] != quote) return value;
      ++at;
    }
    value += c;
  }
  Unreadable("گيومة مقدار " + key + " بسته نشده است.");
}

std::string_view PlainValue(std::string_view text, std::size_t& at) {
  const std::size_t end = std::min(text.find(';', at), text.size());
  const std::string_view value = Trim(text.substr(at, end - at));
  at = end;
  return value;
}

}  // namespace

ConnectionText ConnectionText::Parse(std::string_view text) {
  ConnectionText parsed;
  std::size_t at = 0;
  while (at < text.size()) {
    if (text[at] == ';' || text[at] == ' ') {
      ++at;
      continue;
    }
    const std::size_t equals = text.find('=', at);
    const std::size_t end = text.find(';', at);
    if (equals == std::string_view::npos || end < equals) {
      Unreadable("بخشي از آن به شكل «نام=مقدار» نيست.");
    }
    const std::string key(Trim(text.substr(at, equals - at)));
    at = std::min(text.find_first_not_of(' ', equals + 1), text.size());
    const bool quoted = at < text.size() && (text[at] == '"' || text[at] == '\'');
    std::string value = quoted ? QuotedValue(text, at, key) : std::string(PlainValue(text, at));
    parsed.entries_.emplace_back(key, std::move(value));
  }
  return parsed;
}

std::string ConnectionText::Get(std::string_view key) const {
  for (const auto& [name, value] : entries_) {
    if (EqualsNoCase(name, key)) return value;
  }
  return {};
}

bool ConnectionText::Has(std::string_view key) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [&](const auto& entry) { return EqualsNoCase(entry.first, key); });
}

std::string ConnectionText::WithoutPassword() const {
  std::string text;
  for (const auto& [name, value] : entries_) text += name + "=" + (IsPassword(name) ? "***" : value) + ";";
  return text;
}

std::string WordsWithoutPassword(std::string words, const std::string& password) {
  constexpr std::size_t kMinLength = 6;
  constexpr const char* kLeftOut = "***";
  if (password.empty() || words.find(password) == std::string::npos) return words;
  if (Utf16Length(password) < kMinLength) return kLeftOut;
  for (std::size_t at = words.find(password); at != std::string::npos; at = words.find(password, at + 3)) {
    words.replace(at, password.size(), kLeftOut);
  }
  return words;
}

std::string QuotedForConnection(std::string_view value) {
  std::string quoted = "\"";
  for (const char c : value) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

}  // namespace koru
