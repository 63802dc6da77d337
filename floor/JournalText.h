#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "floor/AccessCodes.h"
#include "floor/FloorFigures.h"
#include "floor/Sequences.h"

namespace koru {

/// A figure and what became of it, as the journal keeps it. The desk's own figures are among them, so that it
/// can be seen later which one was the last.
struct JournalFigure {
  int count = 1;
  std::string device;  ///< its id; empty for the desk
  FloorFigure figure;
  FloorAnswer answer;
  std::string before;  ///< the cell's text before it
  std::chrono::sys_seconds time;

  [[nodiscard]] bool IsOfDesk() const { return device.empty(); }
  /// Whether it is in the cell.
  [[nodiscard]] bool IsEntered() const {
    return answer.state == FigureState::Stored || answer.state == FigureState::Warned;
  }
};

/// What a journal begins with: all that a session needs to be continued, without figures that a save holds.
struct JournalStart {
  struct Device {
    int count = 1;
    std::string id;
    std::string name;
    Sequences entered;  ///< the figures that reached the counting
  };
  std::int32_t countingID = 0;
  AccessCodes::Codes codes;
  std::vector<Device> devices;
  std::vector<UnknownBarcode> unknown;
  std::map<std::string, std::vector<int>> ordinals;  ///< FloorLines::Stored
};

/// The whole journal of a session.
struct JournalContents {
  JournalStart start;  ///< with the codes, names and unknown barcodes that came later
  std::vector<JournalFigure> figures;
  std::size_t damaged = 0;  ///< lines that could not be read, a last one that is cut off aside
  std::size_t whole = 0;    ///< the length of the text without a last line that is cut off
};

// The text form of a journal: a line for each record, of fields separated by tabs
// (platform/text/TabFields.h). The first field is the fingerprint of the rest, so that a line that was
// damaged or cut off is recognised; the second names the record.

[[nodiscard]] std::string JournalText(const JournalStart& start);
/// A journal with all that was read of another one.
[[nodiscard]] std::string JournalText(const JournalContents& contents);
[[nodiscard]] std::string JournalLine(const JournalFigure& figure);
[[nodiscard]] std::string JournalLine(const UnknownBarcode& barcode);
/// The name that a device has from now on.
[[nodiscard]] std::string JournalLine(const JournalStart::Device& device);
/// The ordinals of the stored lines of a barcode, as in JournalStart.
[[nodiscard]] std::string JournalLine(const std::string& barcode, const std::vector<int>& ordinals);
/// The code that a count has from now on.
[[nodiscard]] std::string JournalLine(int count, std::string_view code);

/// Reads a journal. A line that is damaged is left out. Throws InputError when the text is not a journal:
/// its first line, with counting and codes, is not whole.
[[nodiscard]] JournalContents ReadJournal(std::string_view text);

}  // namespace koru
