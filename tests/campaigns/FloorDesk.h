#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "floor/FloorSession.h"
#include "platform/ports/FloorJournal.h"
#include "tests/campaigns/Station.h"

namespace koru::test {

/// The counting at a station, open to the floor.
class FloorDesk {
 public:
  FloorDesk(const std::string& file, FloorJournalStore& journals)
      : station_(file), journal_(journals.Open({"a database", kCounting})) {
    if (!station_.Open(kCounting) || !Form().cmdEdit.UserClick()) throw std::runtime_error("no counting");
    session_ = std::make_unique<FloorSession>(
        Form(), station_.Control().Shared(),
        FloorSurroundings{*journal_, [this] { return Form().EntryIsWritten(); }});
    lines_ = session_->Lines(1);
  }

  [[nodiscard]] frmInvCounting& Form() { return *station_.Control().CountingForm(); }
  [[nodiscard]] FloorSession& Session() { return *session_; }
  /// Each figure adds one to the second count of a line.
  [[nodiscard]] FloorFigure Figure(std::int64_t sequence) const {
    const auto line = static_cast<std::size_t>(sequence) % lines_.size();
    return {sequence, lines_[line].key, FloorFigure::Operation::Add, "1", {}};
  }
  /// The figures with these numbers from that device; whether all are stored and on the disk.
  [[nodiscard]] bool Send(std::int64_t first, std::int64_t last, const std::string& device = "device") {
    std::vector<FloorFigure> figures;
    for (std::int64_t sequence = first; sequence <= last; ++sequence) figures.push_back(Figure(sequence));
    for (const FloorAnswer& answer : session_->Enter(2, device, figures)) {
      if (answer.state != FigureState::Stored) return false;
    }
    return session_->Commit();
  }
  void Save() {
    Form().Timer1.Fire();
    const bool isSaved = Form().cmdTmpSave.UserClick() && Form().cmdEdit.UserClick();
    if (!isSaved) throw std::runtime_error("not saved");
  }
  /// The sum of the second counts.
  [[nodiscard]] double Sum() {
    double sum = 0;
    for (const FloorLine& line : session_->Lines(2)) sum += std::stod("0" + line.figure);
    return sum;
  }

 private:
  static constexpr int kCounting = 1;

  Station station_;
  std::unique_ptr<FloorJournal> journal_;
  std::unique_ptr<FloorSession> session_;
  std::vector<FloorLine> lines_;
};

}  // namespace koru::test
