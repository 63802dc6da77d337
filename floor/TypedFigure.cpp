#include "floor/TypedFigure.h"

#include <string>

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

std::string Normalized(std::string_view text) {
  return IsTypedNumber(text) ? NumberText(TypedNumber(text)) : std::string(Trim(text));
}

}  // namespace

bool IsFigure(std::string_view typed, bool mayBeEmpty) {
  if (typed.size() > kMaxFigureLength) return false;
  return IsTypedNumber(typed) || (mayBeEmpty && TypedNumberText(typed).empty());
}

bool AreSameFigure(std::string_view a, std::string_view b) { return Normalized(a) == Normalized(b); }

}  // namespace koru
