#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/desktop/grid/ScanningGrid.h"

namespace koru::test {

/// A state that a table begins with, and how a user gets there.
struct TableState {
  const char* name;
  void (*enter)(ScanningGrid& grid);
  /// The key is not pressed after `enter` but within it, while the current cell moves to another row, as if a
  /// handler of the move had let the user press it.
  bool withinMove = false;
};

/// What every key of the table (KeyTable.cpp) leads to in each of the states, in one line: the next states of
/// ScanMode and CellEditing (no editor: left out), the current cell, the editor's 'text' with its [selection]
/// or @cursor, the cells that have got another text, whether the row was deleted, what was copied, and where
/// the focus is.
using KeyTable = std::map<std::string, std::vector<std::string>>;

/// Presses every key in every state, each in a new window, and compares the effects with `expected`, which
/// has a row for each key and a column for each state.
void ExpectKeys(const std::vector<TableState>& states, const KeyTable& expected);

}  // namespace koru::test
