#include "platform/text/DigitGroups.h"

#include <algorithm>

namespace koru {

std::string WithGroups(std::string_view text) {
  std::string shown(text);
  const std::size_t end = std::min(shown.find('.'), shown.size());
  const std::size_t begin = shown.starts_with('-') ? 1 : 0;
  const std::string_view whole = text.substr(begin, end - begin);
  const bool isPlain = std::all_of(whole.begin(), whole.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (!isPlain) return shown;
  for (std::size_t at = end; at > begin + 3;) shown.insert(at -= 3, 1, ',');
  return shown;
}

}  // namespace koru
