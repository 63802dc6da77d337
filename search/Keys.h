#pragma once

namespace koru {

// The virtual key codes and shift states that the search forms handle.
inline constexpr int kKeyDelete = 46;
inline constexpr int kKeyN = 78;
inline constexpr int kKeyS = 83;
inline constexpr int kKeyZ = 90;
inline constexpr int kKeyF1 = 112;
inline constexpr int kKeyF3 = 114;
inline constexpr int kShiftCtrl = 2;

}  // namespace koru
