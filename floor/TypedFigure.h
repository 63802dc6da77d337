#pragma once

#include <cstddef>
#include <string_view>

namespace koru {

inline constexpr std::size_t kMaxFigureLength = 100;  ///< of a typed figure, in bytes

/// Whether a typed figure is wholly a number by the project's rule for typed numbers, or nothing, where that
/// takes a count away.
[[nodiscard]] bool IsFigure(std::string_view typed, bool mayBeEmpty);

/// Whether two texts of a count mean the same: 7 is ۷ and 7.0, but no count is not the count 0.
[[nodiscard]] bool AreSameFigure(std::string_view a, std::string_view b);

}  // namespace koru
