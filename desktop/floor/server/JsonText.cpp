#include "desktop/floor/server/JsonText.h"

#include <cstddef>

namespace koru {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// The length of the character of several bytes at the beginning of the text; 0 when there is none: bytes
/// missing, longer than needed, a surrogate or beyond U+10FFFF.
std::size_t LongCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  const std::size_t length = first >= 0xC2U && first <= 0xDFU             ? 2U
                             : first >= 0xE0U && (first & 0xF0U) == 0xE0U ? 3U
                             : first >= 0xF0U && first <= 0xF4U           ? 4U
                                                                          : 0U;
  if (length == 0 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[i])) return 0;
  }
  const auto second = static_cast<unsigned char>(text[1]);
  const bool isValid = !(first == 0xE0U && second < 0xA0U) && !(first == 0xEDU && second > 0x9FU) &&
                       !(first == 0xF0U && second < 0x90U) && !(first == 0xF4U && second > 0x8FU);
  return isValid ? length : 0;
}

void AppendEscaped(std::string& json, char c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  switch (c) {
    case '"':
      json += "\\\"";
      return;
    case '\\':
      json += "\\\\";
      return;
    case '\n':
      json += "\\n";
      return;
    case '\t':
      json += "\\t";
      return;
    default:
      break;
  }
  const auto byte = static_cast<unsigned char>(c);
  json += "\\u00";
  json += kDigits[byte >> 4U];
  json += kDigits[byte & 0xFU];
}

bool IsPlain(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x20U && byte < 0x7FU && c != '"' && c != '\\';
}

}  // namespace

void AppendJson(std::string& json, std::string_view text) {
  json += '"';
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t end = at;
    while (end < text.size() && IsPlain(text[end])) ++end;
    json.append(text, at, end - at);
    at = end;
    if (at == text.size()) break;
    if (static_cast<unsigned char>(text[at]) < 0x80U) {
      AppendEscaped(json, text[at]);
      ++at;
    } else if (const std::size_t length = LongCharacter(text.substr(at)); length > 0) {
      json.append(text, at, length);
      at += length;
    } else {
      json += kReplacement;
      ++at;
    }
  }
  json += '"';
}

}  // namespace koru
