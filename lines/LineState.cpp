#include "lines/LineState.h"

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {

GivenCounts CountsOf(const Grid& lines, int row) {
  GivenCounts counts;
  double first = 0;
  for (int col = LineColumn::FirstCounting; col <= LineColumn::ThirdCounting; ++col) {
    const std::string_view text = Trim(lines.TextMatrix(row, col));
    if (text.empty()) continue;
    const double count = Val(text);
    if (++counts.number == 1) {
      counts.first = text;
      first = count;
    } else if (count != first) {
      counts.agree = false;
    }
  }
  return counts;
}

LineState LineState::Of(const Grid& lines, int row) {
  unsigned bits = 0;
  const GivenCounts counts = CountsOf(lines, row);
  if (counts.number > 0) bits |= kCounted;
  if (counts.number > 1) bits |= counts.agree ? kAgree : kDisagree;
  if (!Trim(lines.TextMatrix(row, LineColumn::AcceptedCounting)).empty()) {
    bits |= kCounted | kAccepted;
    const auto isSet = [&](int col) { return Val(lines.TextMatrix(row, col)) > 0; };
    if (isSet(LineColumn::Shortage)) bits |= kShort;
    if (isSet(LineColumn::Surplus)) bits |= kOver;
  }
  LineState state;
  state.bits_ = static_cast<std::uint8_t>(bits);
  return state;
}

bool LineState::Is(LineKind kind) const {
  switch (kind) {
    case LineKind::All:
      return true;
    case LineKind::NotCounted:
      return !IsCounted();
    case LineKind::CountsDisagree:
      return CountsDisagree();
    case LineKind::NotAccepted:
      return !IsAccepted();
    case LineKind::Short:
      return (bits_ & kShort) != 0;
    case LineKind::Over:
      return (bits_ & kOver) != 0;
    case LineKind::Exact:
      return IsAccepted() && (bits_ & (kShort | kOver)) == 0;
  }
  return false;
}

}  // namespace koru
