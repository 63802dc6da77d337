#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "floor/FloorSession.h"
#include "lines/LineColumns.h"
#include "tests/counting/CountingWorld.h"
#include "tests/floor/MemoryJournal.h"

namespace koru::test {

using Answer = FakeMessages::Answer;

// Lines of counting 20.
inline const LineKey kTeaLine{"G1", 1};
inline const LineKey kOtherTeaLine{"G1", 2};
inline const LineKey kSugarLine{"G2", 1};

/// Counting 20 is being edited at the desk and open to the floor: G1, G2, G3 and G1 once more, book stock 10
/// and rate 3 each, nothing counted. Devices "d1", "d2" and "d3" take part in counts 1, 2 and 3.
class FloorWorld : public CountingWorld {
 protected:
  explicit FloorWorld(TestDatabase::Kind kind = TestDatabase::Kind::FileOrServer);

  /// Starts the program and opens counting 20; Open begins its session, or continues that of the journal.
  void Start();
  /// Starts the program alone.
  void StartProgram();
  void Open();
  void StartAndOpen() {
    Start();
    Open();
  }
  /// The program ends without warning, and the machine loses what is not on its disk.
  void Crash();

  [[nodiscard]] frmInvCounting& Desk() { return *program_->CountingForm(); }
  [[nodiscard]] Grid& Lines() { return Desk().flexDetail; }
  [[nodiscard]] DocumentMode DeskMode() { return program_->Shared().DocMode; }
  /// A cell of a line by its key; "none" when there is no such line.
  [[nodiscard]] std::string Count(const LineKey& line, int count);
  [[nodiscard]] std::string CellOf(int row, int col) { return std::string(Lines().TextMatrix(row, col)); }
  /// The user at the desk types what a window would hand over.
  bool Type(int row, int col, const std::string& text);
  void Delete(int row);
  void Save();
  void SaveAndEdit();
  /// The form shows what was cancelled, and the next session begins with it.
  void CancelAndEdit();
  /// The form shows what is stored, and the next session begins with it.
  void ViewEditAndOpen();
  void OpenNextSession();
  void ViewAndEdit();

  /// A figure from the device of a count; the answer after it is on the disk.
  FloorAnswer Send(int count, const FloorFigure& figure);
  FloorAnswer Set(int count, const LineKey& line, const std::string& text, const std::string& base = "");
  FloorAnswer Add(int count, const LineKey& line, const std::string& text);
  [[nodiscard]] static std::string Device(int count) { return "d" + std::to_string(count); }

  MemoryJournal journal_;
  DraftStore* drafts_ = nullptr;  ///< of the programs that are started from now on
  std::unique_ptr<comInvCounting> program_;
  std::vector<FloorArrival> arrivals_;
  std::vector<std::string> failures_;
  std::int64_t sequence_ = 0;
  std::uint32_t random_ = 1;
  std::int64_t now_ = 1'770'000'000;
  std::unique_ptr<FloorSession> session_;
};

}  // namespace koru::test
