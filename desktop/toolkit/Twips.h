#pragma once

namespace koru {

/// Twips, the component's unit of widths, to a pixel at 96 dpi.
inline constexpr int kTwipsPerPixel = 15;

}  // namespace koru
