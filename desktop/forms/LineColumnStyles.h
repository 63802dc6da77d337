#pragma once

#include <QColor>

namespace koru {

class GridView;

inline constexpr QColor kShortageColor(0xA8, 0x1E, 0x16);
inline constexpr QColor kSurplusColor(0x17, 0x4E, 0xA6);

/// Sets how the columns of a counting's lines look, which of them are scanned, and which take figures.
void SetUpLineColumns(GridView& lines);

/// Whether the lines whose counts differ have their sign.
void ShowUnequalCounts(GridView& lines, bool shown);

}  // namespace koru
