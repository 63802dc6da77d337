#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "floor/FloorFigures.h"

namespace koru::test {

/// What simulated sessions of the floor must come to: the lines of one counting at the desk and in the
/// database, and the figures of devices in its journals. Plain lists, without a form, a grid or a file.
class FloorModel {
 public:
  using Counts = std::array<std::string, kFloorCounts>;

  struct Line {
    int id = 0;  ///< its own, whatever key and row it has
    LineKey key;
    Counts counts;
  };
  struct StoredLine {
    int id = 0;
    std::string barcode;
    Counts counts;
  };
  /// A figure of a device or the desk as a journal keeps it.
  struct Record {
    int count = 1;
    bool ofFloor = false;
    FloorFigure figure;
    std::string before;
    FloorAnswer answer;
    int id = 0;  ///< of the line

    [[nodiscard]] bool IsEntered() const { return answer.state == FigureState::Stored; }
  };
  /// The count and the sequence number of a device's figure: the devices of a count have different numbers.
  using FigureKey = std::pair<int, std::int64_t>;
  /// Of the stored lines of a barcode; one line with the ordinal 1 where there are none of it.
  using Ordinals = std::map<std::string, std::vector<int>>;
  struct Journal {
    std::set<FigureKey> entered;  ///< before the records
    Ordinals ordinals;
    std::vector<Record> records;
  };
  struct LeftCell {
    int count = 1;
    LineKey line;
    std::set<std::string> known;
    std::string last;
    std::int64_t sequence = 0;
    bool ofFloor = false;
    int id = 0;                     ///< of the line that had it last
    std::string missing;            ///< what the cell held when the desk entered something over `covered`
    std::vector<LeftCell> covered;  ///< what was left then: one or none
  };
  enum class State { Running, Stopped, Ended };

  /// The counting has these lines, and no journal.
  explicit FloorModel(std::vector<StoredLine> lines);

  // The form.

  [[nodiscard]] const std::vector<Line>& Lines() const { return lines_; }
  [[nodiscard]] const std::vector<StoredLine>& Stored() const { return stored_; }
  [[nodiscard]] bool IsEdited() const { return isEdited_; }
  /// Whether nothing has been entered since the lines were stored.
  [[nodiscard]] bool IsWritten() const { return isWritten_; }
  [[nodiscard]] Line* Find(int id);
  [[nodiscard]] Line* Find(const LineKey& key);
  [[nodiscard]] std::string Cell(int id, int count) { return Find(id)->counts.at(Place(count)); }
  /// The number of lines of a barcode.
  [[nodiscard]] std::ptrdiff_t Number(const std::string& barcode) const;

  /// The desk types, undoes or redoes: the cell has the text.
  void DeskEnters(int id, int count, const std::string& text);
  void DeskAdds(int id, const std::string& barcode);
  void DeskDeletes(int id);
  /// The rows, whose lines are in this order, are saved.
  void Save(const std::vector<int>& order);
  void DeskSorts() { Change(); }
  /// The desk does not overwrite what another station has stored.
  void DoesNotSave() { isWritten_ = false; }
  /// The desk leaves the entry.
  void Cancel();
  /// Edit; lines that another station has changed are read anew.
  void Edit();
  /// The stored lines are shown instead of those on the form.
  void ShowStored();
  /// Another station writes.
  void OtherStationWrites(std::vector<StoredLine> lines);
  /// Whether another station has written since the form has read or written the lines.
  [[nodiscard]] bool IsChangedElsewhere() const { return isChangedElsewhere_; }

  /// A draft of what is on the form is written.
  void WriteDraft() { draft_ = lines_; }
  [[nodiscard]] bool HasDraft() const { return draft_.has_value(); }
  /// Whether a crash would take nothing from the desk.
  [[nodiscard]] bool DraftIsCurrent() const;

  // The floor.

  [[nodiscard]] State SessionState() const { return state_; }
  [[nodiscard]] bool IsOpen() const { return state_ == State::Running && left_.empty() && isEdited_; }
  [[nodiscard]] const std::vector<LeftCell>& Left() const { return left_; }
  /// The journals with figures that have been set aside, the last one first.
  [[nodiscard]] const std::vector<Journal>& Aside() const { return aside_; }
  /// The number of all journals that have been set aside, with figures or without.
  [[nodiscard]] std::size_t SetAside() const { return setAside_; }
  [[nodiscard]] std::size_t Journalled() const { return journal_.records.size(); }

  /// A session begins, or continues the journal.
  void Begin();
  void Stop() { state_ = State::Stopped; }
  void Reopen() { state_ = State::Running; }
  FloorAnswer Take(int count, const FloorFigure& figure);
  void Replay();
  void Forgo();
  bool TakeBackSetAside();
  /// The program ends and is started anew, with the lines of the draft or the stored ones; the journal has
  /// that number of records. A draft that is not restored is discarded.
  void Crash(std::size_t kept, bool isRestored);
  /// The lines that have drawn ordinals, with these ones. Until then, each has one below 0.
  void TakeDrawn(const std::map<int, int>& ordinalsByLine);

  static constexpr int kFirstDrawn = 1'000'000'001;  // FloorLines::kFirstDrawn

  /// An acknowledged figure that nobody has entered anything after, and that is nowhere; empty if there is
  /// none.
  [[nodiscard]] std::string Lost() const;
  /// Figures that a replay has entered into another line than theirs, which was on the form.
  [[nodiscard]] const std::vector<std::string>& Misplaced() const { return misplaced_; }

 private:
  struct Acknowledged {
    std::string barcode;
    std::string text;
    std::vector<std::string> under;  ///< while the desk has typed where it is left: what the cell held
  };

  [[nodiscard]] int FreeOrdinal(const std::string& barcode);
  [[nodiscard]] static std::size_t Place(int count) { return static_cast<std::size_t>(count - 1); }
  void Change() {
    if (isEdited_) areStored_ = isWritten_ = false;
  }
  void ReadStored();
  void GiveKeys(bool onStored);
  [[nodiscard]] int Draw() { return --lastDrawn_; }
  [[nodiscard]] bool ArePlain() const;
  void SetJournalAside();
  void KeepEndAside();
  void Settle(bool isWritten);
  void LeaveOutLeft();
  void ForgetLeft(const std::vector<LeftCell>& left, std::vector<Record>& records);
  [[nodiscard]] std::vector<Record> ExtractInPlace(std::vector<Record>& records);
  void End();
  void KeepOrdinals();
  void BeginJournalAnew();
  void Keep(const Record& record);
  void Acknowledge(const Line& line, int count);
  void DropSame(const Line& line, int count);
  void NotePlace(const LeftCell& cell, const Line& line);
  void Supersede(const std::vector<StoredLine>& lines);
  void Supersede(const Line& line, int count, const std::string& before, const std::string& text);
  [[nodiscard]] bool IsLeft(const LineKey& line, int count) const;
  [[nodiscard]] static std::vector<LeftCell> Trails(const std::vector<Record>& records);
  [[nodiscard]] std::vector<LeftCell> Lacking(const std::vector<Record>& records);
  [[nodiscard]] bool CanBeEntered(const std::vector<LeftCell>& cells);
  [[nodiscard]] bool IsSomewhere(int id, int count, const Acknowledged& figure) const;

  std::vector<Line> lines_;  // in the order of the stored ones, then those that were added since
  std::vector<StoredLine> stored_;
  bool isEdited_ = true;
  bool areStored_ = true;  // the lines, as they are
  bool isWritten_ = true;
  bool isChangedElsewhere_ = false;
  std::vector<Line> begun_;                 // those with which the entry has begun
  std::optional<std::vector<Line>> draft_;  // those of the draft

  State state_ = State::Ended;
  bool hasJournal_ = false;
  Journal journal_;
  Ordinals ordinals_;
  bool isContinued_ = false;       // the counting has had a session
  std::set<std::string> several_;  // barcodes of which the journal has figures of several lines
  std::optional<Ordinals> last_;   // of the journal that was set aside last, with figures or without
  std::vector<Record> lastRecords_;
  std::size_t setAside_ = 0;
  int lastDrawn_ = 0;
  std::vector<Journal> aside_;  // the last one first
  std::map<FigureKey, FloorAnswer> answered_;
  std::set<FigureKey> entered_;
  std::set<FigureKey> enteredAtEnd_;  // of the session that has ended last
  std::vector<LeftCell> left_;
  std::vector<Record> leftRecords_;
  std::set<FigureKey> enteredBeforeLeft_;
  bool leftIsAside_ = false;
  bool holdsLeft_ = false;
  bool hasUnsaved_ = false;
  std::vector<std::string> misplaced_;
  std::map<std::pair<int, int>, Acknowledged> acknowledged_;  // by line and count: the last of a device
};

}  // namespace koru::test
