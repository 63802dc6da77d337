#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// The three counts of a counting, made by different counters who do not see each other's figures.
inline constexpr int kFloorCounts = 3;

/// What identifies a line for the floor, whatever row it has: its barcode, and its place among the lines of
/// the same barcode, from 1.
struct LineKey {
  std::string barcode;
  int ordinal = 1;

  friend bool operator==(const LineKey&, const LineKey&) = default;
};

/// A figure as a counter enters it on a device.
struct FloorFigure {
  enum class Operation {
    Set,  ///< the text is the count; an empty one takes the count away
    Add   ///< the number is added to the count, whatever that is
  };
  std::int64_t sequence = 0;  ///< of the device, different for each figure; the same when it is sent again
  LineKey line;
  Operation operation = Operation::Set;
  std::string text;  ///< as typed: digits of any keyboard
  std::string base;  ///< for Set: the count that the counter saw
};

enum class FigureState {
  Stored,    ///< in the cell
  Warned,    ///< in the cell, and the form's message is for the counter to read
  Refused,   ///< no number, or refused by the form with a message
  Conflict,  ///< not stored: the cell is not what the counter saw
  Gone,      ///< not stored: the counting has no such line any more
  Paused     ///< not taken: the counting is not being edited; to be sent again
};

/// What became of a figure.
struct FloorAnswer {
  std::int64_t sequence = 0;
  FigureState state = FigureState::Paused;
  std::string text;     ///< the cell's text after it
  std::string message;  ///< the form's own sentences, or why the figure was not read
  std::string by;       ///< for Conflict: the device whose figure is in the cell; empty for the desk's

  friend bool operator==(const FloorAnswer&, const FloorAnswer&) = default;
};

/// A line as a device sees it: never stock, rate, amounts or another count.
struct FloorLine {
  LineKey key;
  std::string code;
  std::string name;
  std::string unit;
  std::string figure;  ///< of the device's own count

  friend bool operator==(const FloorLine&, const FloorLine&) = default;
};

/// What has changed for a device since a revision.
struct FloorChanges {
  struct Cell {
    LineKey line;
    std::string figure;

    friend bool operator==(const Cell&, const Cell&) = default;
  };
  std::int64_t revision = 0;  ///< to ask with the next time
  bool open = false;          ///< whether figures are taken now
  bool linesChanged = false;  ///< the lines are to be read anew, and `cells` is empty
  std::vector<Cell> cells;
};

/// A device that has been in contact with the desk.
struct FloorDevice {
  int count = 1;  ///< 1 to kFloorCounts
  std::string id;
  std::string name;  ///< as its counter gave it
  std::chrono::sys_seconds lastContact;
  std::int64_t received = 0;  ///< figures that were decided, each once
  std::int64_t refused = 0;   ///< those of them that are not in the counting

  /// The name for people: its own, or its id while it has none.
  [[nodiscard]] const std::string& ShownName() const { return name.empty() ? id : name; }
};

/// A barcode that a device scanned and no line has.
struct UnknownBarcode {
  std::string barcode;
  int count = 1;
  std::string device;  ///< the id of the first one

  friend bool operator==(const UnknownBarcode&, const UnknownBarcode&) = default;
};

/// A figure that has reached a cell of the form: a window can tint the cell, and say what the floor has sent
/// where the desk is typing into it, whose text stays.
struct FloorArrival {
  int row = 0;
  int col = 0;
  std::string before;
  std::string text;
  std::string device;  ///< its name
};

}  // namespace koru
