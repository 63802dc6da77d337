#include "services/FixQuote.h"

namespace koru {

std::string FixQuote(std::string_view text) {
  std::string doubled;
  doubled.reserve(text.size());
  for (const char c : text) {
    if (c == '\'') doubled += '\'';
    doubled += c;
  }
  return doubled;
}

bool HasOpenApostrophe(std::string_view text) {
  for (std::size_t at = text.find('\''); at != std::string_view::npos; at = text.find('\'', at + 2)) {
    if (at + 1 == text.size() || text[at + 1] != '\'') return true;
  }
  return false;
}

}  // namespace koru
