#pragma once

#include <QString>
#include <chrono>

#include "floor/FloorFigures.h"
#include "floor/FloorSession.h"

namespace koru {

/// The name of a count, 1 to kFloorCounts.
[[nodiscard]] QString TitleOfCount(int count);
/// What became of a figure, in a few words.
[[nodiscard]] QString TitleOfState(FigureState state);
/// Whether a session is open, how many devices take part, how many figures have come; or how many figures are
/// left.
[[nodiscard]] QString SentenceOn(FloorSession& session);
/// What became of left figures.
[[nodiscard]] QString SentenceOn(const ReplayedFigures& replayed);
/// What has reached a cell whose editor is open; `isTyped`: the desk has typed into it, and its text stays.
[[nodiscard]] QString SentenceOn(const FloorArrival& arrival, bool isTyped);
/// What could not be read of a journal, and where it is.
[[nodiscard]] QString SentenceOn(const JournalDamage& damage);
/// A time of the machine's time zone as 14:05:09; the date before it when it is not today's.
[[nodiscard]] QString TimeText(std::chrono::sys_seconds time);
/// A text from outside, whose direction does not reach what is around it.
[[nodiscard]] QString Isolated(const QString& text);

}  // namespace koru
