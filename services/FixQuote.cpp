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

}  // namespace koru
