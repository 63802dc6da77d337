#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "lines/AcceptedCounts.h"
#include "lines/EntryHistory.h"
#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

constexpr std::array kEntered = {LineColumn::FirstCounting, LineColumn::SecondCounting,
                                 LineColumn::ThirdCounting, LineColumn::AcceptedCounting, LineColumn::Rate};

/// A user who types, pastes, accepts, imports, sorts, deletes, adds, undoes and redoes at random.
class RandomEntry : public LinesTest {
 protected:
  void Begin(unsigned seed) {
    random.seed(seed);
    history.Clear();
    start.clear();
    form.flexDetail.SetRows(1);
    for (int lines = Up(1, 8); lines > 0; --lines) Add();
    form.lines.UpdateTotalQty();
  }

  void Act() {
    switch (Up(0, 9)) {
      case 0:
        return Paste();
      case 1:
        return AcceptEqual();
      case 2:
        return Import();
      case 3:
        return Sort();
      case 4:
        return Delete();
      case 5:
        return Add();
      case 6:
        return ExpectNothingKept(history.Undo());
      case 7:
        return ExpectNothingKept(history.Redo());
      default:
        return Type(RandomRow(), RandomColumn());
    }
  }

  void UndoAll() {
    while (history.CanUndo()) ExpectNothingKept(history.Undo());
  }
  void RedoAll() {
    while (history.CanRedo()) ExpectNothingKept(history.Redo());
  }

  using Lines = std::map<std::uint32_t, Texts>;

  /// The cells of each line but its number.
  Lines Now() {
    Lines now;
    for (int row = 1; row < form.flexDetail.Rows(); ++row) now[form.flexDetail.RowID(row)] = CellsOf(row);
    return now;
  }
  /// What the lines that remain held when they were loaded or added.
  Lines AtStart() {
    Lines remaining;
    for (const auto& [line, cells] : Now()) remaining[line] = start.at(line);
    return remaining;
  }
  Texts Sums() {
    return {form.txtTotalBelowValue.Text(), form.txtTotalAboveValue.Text(), form.txtTotalValue.Text()};
  }

 private:
  int Up(int first, int last) { return std::uniform_int_distribution(first, last)(random); }
  int RandomRow() { return Up(1, std::max(1, form.flexDetail.Rows() - 1)); }
  int RandomColumn() { return kEntered.at(static_cast<std::size_t>(Up(0, kEntered.size() - 1))); }
  /// Few figures, so that counts agree often; some are written as a database or a user may write them, some
  /// are refused.
  std::string RandomFigure() {
    static const Texts kFigures = {"", "", "5", "5", "7", "12.0", "0.125", "007", "0", "-1"};
    return kFigures.at(static_cast<std::size_t>(Up(0, static_cast<int>(kFigures.size()) - 1)));
  }
  Texts CellsOf(int row) {
    Texts cells;
    for (int col = 1; col < kLineColumns; ++col) cells.push_back(form.Cell(row, col));
    return cells;
  }

  void Type(int row, int col) {
    if (row < form.flexDetail.Rows()) form.flexDetail.UserEdit(row, col, RandomFigure());
  }
  void Paste() {
    const BatchEdit batch(form.flexDetail);
    const int col = RandomColumn();
    for (int row = RandomRow(), last = row + Up(0, 3); row <= last; ++row) Type(row, col);
  }
  void Import() {
    const BatchEdit batch(form.flexDetail);
    for (int figures = Up(0, 6); figures > 0; --figures) Type(RandomRow(), RandomColumn());
  }
  void AcceptEqual() {
    const auto answer = [this] { return Up(0, 1) == 0 ? Answers::Yes : Answers::No; };
    messages.WillAnswer(answer());
    messages.WillAnswer(answer());
    accept.Run();
  }
  void Sort() {
    const auto order = static_cast<RowOrder>(Up(0, 2));
    form.flexDetail.UserSort({Up(1, kLineColumns - 1), order});
  }
  void Delete() {
    if (form.flexDetail.Rows() > 1) form.flexDetail.RemoveItem(RandomRow());
    form.lines.UpdateTotalQty();
  }
  /// A line as it may have been stored: its differences and amounts need not follow from its figures.
  void Add() {
    const int row = form.AddLine(std::to_string(4000 + Up(0, 3)));
    for (int col = LineColumn::FirstCounting; col < kLineColumns; ++col) {
      const std::string figure = RandomFigure();
      form.Set(row, col, figure == "-1" ? "" : figure);
    }
    form.lines.UpdateTotalQty();
    start[form.flexDetail.RowID(row)] = CellsOf(row);
  }
  static void ExpectNothingKept(const EntryHistory::Result& result) { EXPECT_EQ(result.kept, 0); }

  std::mt19937 random;
  Lines start;
  EntryHistory history{form};
  AcceptedCounts accept{form, shared.messages};
};

TEST_F(RandomEntry, Undoing_all_comes_back_to_the_start_exactly_and_redoing_all_to_the_end) {
  std::size_t compared = 0;
  for (unsigned seed = 1; seed <= 1000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Begin(seed);
    for (int actions = 0; actions < 30; ++actions) Act();
    RedoAll();
    const Lines end = Now();
    form.lines.UpdateTotalQty();
    const Texts sumsAtEnd = Sums();
    UndoAll();
    ASSERT_EQ(Now(), AtStart());
    RedoAll();
    ASSERT_EQ(Now(), end);
    ASSERT_EQ(Sums(), sumsAtEnd);
    compared += end == AtStart() ? 0 : 1;
    if (HasFailure()) return;
  }
  EXPECT_GT(compared, 800U);  // the others ended as they began, most of them without lines
}

}  // namespace
}  // namespace koru
