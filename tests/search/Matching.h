#pragma once

#include <string>

#include "platform/text/PersianText.h"

namespace koru {

/// As texts are compared; here blanks at the end count.
inline std::string Folded(const std::string& text) {
  std::string folded = FoldPersian(text + ".");
  folded.pop_back();
  return folded;
}

inline bool Holds(const std::string& stored, const std::string& text) {
  return Folded(stored).find(Folded(text)) != std::string::npos;
}
inline bool Equals(const std::string& stored, const std::string& text) {
  return FoldPersian(stored) == FoldPersian(text);
}
inline bool Begins(const std::string& stored, const std::string& text) {
  return Folded(stored).starts_with(Folded(text));
}

/// Whether a text is more than itself in a pattern.
inline bool HasWildcard(const std::string& text) { return text.find_first_of("%_[*") != std::string::npos; }

}  // namespace koru
