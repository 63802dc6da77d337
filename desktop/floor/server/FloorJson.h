#pragma once

#include <span>
#include <string>
#include <string_view>

#include "floor/FloorFigures.h"

namespace koru {

// The answers to devices, as JSON. It is written by hand, since QJsonDocument holds the desk for a tenth of a
// second where a counting has 32,767 lines.

[[nodiscard]] std::string HelloJson(int count, std::string_view store, bool open);
[[nodiscard]] std::string LinesJson(std::int64_t revision, int count, bool open,
                                    std::span<const FloorLine> lines);
[[nodiscard]] std::string FiguresJson(std::int64_t revision, bool open, std::span<const FloorAnswer> answers);
[[nodiscard]] std::string ChangesJson(const FloorChanges& changes);

}  // namespace koru
