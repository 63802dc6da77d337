#pragma once

#include <span>
#include <string>
#include <string_view>

#include "floor/FloorFigures.h"

namespace koru {

// The answers to devices, as JSON. It is written by hand, since QJsonDocument holds the desk for a tenth of a
// second where a counting has 32,767 lines.

[[nodiscard]] std::string HelloJson(int count, std::string_view store, std::string_view counting, bool open);
/// The beginning of an answer with lines; AppendLines appends them, and kLinesEnd ends it.
[[nodiscard]] std::string LinesJson(std::int64_t revision, int count, bool open);
/// `isFirst`: no lines have been appended before.
void AppendLines(std::string& json, std::span<const FloorLine> lines, bool isFirst);
inline constexpr std::string_view kLinesEnd = "]}";
[[nodiscard]] std::string FiguresJson(std::int64_t revision, bool open, std::span<const FloorAnswer> answers);
[[nodiscard]] std::string ChangesJson(const FloorChanges& changes);

}  // namespace koru
