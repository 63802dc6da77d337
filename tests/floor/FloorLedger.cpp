#include "tests/floor/FloorLedger.h"

#include <algorithm>

#include "floor/JournalText.h"

namespace koru::test {
namespace {

template <typename Set>
void Remove(Set& from, const Set& what) {
  for (const auto& each : what) from.erase(each);
}

/// Whether the last figure of a device that a left cell has is among these.
bool HasLastOf(const std::vector<JournalFigure>& figures, const LeftFigures::Cell& cell) {
  return std::any_of(figures.begin(), figures.end(), [&cell](const JournalFigure& figure) {
    return figure.IsEntered() && figure.count == cell.count && figure.figure.line == cell.line &&
           figure.device == cell.device && figure.figure.sequence == cell.sequence;
  });
}

}  // namespace

void FloorLedger::Enter(const JournalFigure& record) {
  const auto& [sequence, line, operation, text, base] = record.figure;
  const Figure figure{record.count, sequence};
  decided_.erase(figure);
  if (record.before == record.answer.text) {  // nothing can be lost
    decided_.insert(figure);
    return;
  }
  Entered entered{line, {}};
  for (const auto& [other, of] : entered_) {
    if (of.line == line && other.first == record.count && form_.contains(other)) entered.under.insert(other);
  }
  entered_[figure] = std::move(entered);
  const bool isNew = form_.insert(figure).second;
  if (isNew || operation == FloorFigure::Operation::Set) return;
  twice_ = "taken twice: " + std::to_string(sequence) + " of count " + std::to_string(record.count) +
           ", which adds " + text + " to " + line.barcode;
}

void FloorLedger::Answer(int count, const FloorAnswer& answer) {
  const bool isStored = answer.state == FigureState::Stored || answer.state == FigureState::Warned;
  if (isStored) answered_.emplace(count, answer.sequence);
}

/// What the desk enters where a figure is left is that figure, or another one that it knows better, or the
/// cell is again as it was.
void FloorLedger::DeskEnters(int count, const LineKey& line, const std::string& before,
                             const std::string& text) {
  const auto found = left_.find(CellOf(count, line));
  if (found == left_.end()) return;
  Left& left = found->second;
  if (!left.held) {
    left.held = before;
    left.lacking = Lacking(left.figures);
  }
  Remove(form_, left.lacking);
  Remove(decided_, left.lacking);
  if (text == left.text) {
    form_.insert(left.lacking.begin(), left.lacking.end());
  } else if (text != *left.held) {
    decided_.insert(left.lacking.begin(), left.lacking.end());
  }
}

void FloorLedger::DeskDeletes(const LineKey& line) {
  for (const auto& [figure, entered] : entered_) {
    if (entered.line == line && form_.erase(figure) > 0) decided_.insert(figure);
  }
}

void FloorLedger::Save() {
  stored_ = form_;
  DoWithoutUnsaved();
}

void FloorLedger::ShowStored() {
  DoWithoutUnsaved();
  form_ = stored_;
}

void FloorLedger::DoWithoutUnsaved() {
  std::erase_if(answered_, [this](const Figure& figure) { return !stored_.contains(figure); });
}

FloorLedger::Figures FloorLedger::Lacking(const Figures& figures) const {
  Figures lacking = figures;
  Remove(lacking, form_);
  return lacking;
}

void FloorLedger::Offer(const std::vector<LeftFigures::Cell>& cells,
                        const std::vector<std::string>& journals) {
  left_.clear();
  for (const std::string& text : journals) {
    if (text.empty()) continue;
    const std::vector<JournalFigure> figures = ReadJournal(text).figures;
    const auto isOfThem = [&figures](const LeftFigures::Cell& cell) { return HasLastOf(figures, cell); };
    if (!std::all_of(cells.begin(), cells.end(), isOfThem)) continue;
    for (const LeftFigures::Cell& cell : cells) left_[CellOf(cell.count, cell.line)].text = cell.text;
    for (const JournalFigure& figure : figures) {
      const auto left = left_.find(CellOf(figure.count, figure.figure.line));
      if (left == left_.end() || !figure.IsEntered() || figure.IsOfDesk()) continue;
      const Figure of{figure.count, figure.figure.sequence};
      left->second.figures.insert(of);
      if (const auto entered = entered_.find(of); entered != entered_.end())
        left->second.figures.insert(entered->second.under.begin(), entered->second.under.end());
    }
    return;
  }
}

void FloorLedger::TakeInPlace(const std::string& journal,
                              const std::function<std::string(const LineKey&, int count)>& text,
                              bool areStored) {
  if (journal.empty()) return;
  const std::vector<JournalFigure> figures = ReadJournal(journal).figures;
  std::map<Cell, std::string> last;
  for (const JournalFigure& figure : figures) {
    if (figure.IsEntered()) last[CellOf(figure.count, figure.figure.line)] = figure.answer.text;
  }
  for (const JournalFigure& figure : figures) {
    if (!figure.IsEntered() || figure.IsOfDesk()) continue;
    const LineKey& line = figure.figure.line;
    if (text(line, figure.count) != last[CellOf(figure.count, line)]) continue;
    const Figure of{figure.count, figure.figure.sequence};
    if (decided_.contains(of)) continue;
    form_.insert(of);
    if (areStored) stored_.insert(of);
  }
}

void FloorLedger::Replay(const ReplayedFigures& replayed) {
  for (const auto* const notEntered : {&replayed.gone, &replayed.replaced, &replayed.refused}) {
    for (const NotEntered& cell : *notEntered) {
      decided_.merge(Lacking(left_[CellOf(cell.count, cell.line)].figures));
      left_.erase(CellOf(cell.count, cell.line));
    }
  }
  for (const auto& [cell, left] : left_) form_.insert(left.figures.begin(), left.figures.end());
  left_.clear();
}

void FloorLedger::Forgo() {
  for (const auto& [cell, left] : left_) Remove(answered_, left.figures);
  left_.clear();
}

std::string FloorLedger::Complaint(const std::vector<LeftFigures::Cell>& offered) const {
  if (!twice_.empty()) return twice_;
  Figures somewhere = form_;
  somewhere.insert(stored_.begin(), stored_.end());
  somewhere.insert(decided_.begin(), decided_.end());
  for (const LeftFigures::Cell& cell : offered) {
    const auto left = left_.find(CellOf(cell.count, cell.line));
    if (left != left_.end()) somewhere.insert(left->second.figures.begin(), left->second.figures.end());
  }
  for (const Figure& figure : answered_) {
    if (somewhere.contains(figure)) continue;
    return "answered as stored and nowhere: " + std::to_string(figure.second) + " of count " +
           std::to_string(figure.first);
  }
  return {};
}

}  // namespace koru::test
