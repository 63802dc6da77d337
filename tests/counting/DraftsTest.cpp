#include "tests/counting/DraftsTest.h"

namespace koru::test {

std::string Drafts::Shown() {
  const frmInvCounting& form = Counting();
  std::string shown =
      form.Caption() + "|" + std::to_string(static_cast<int>(Mode())) + "|" + form.lblIDVal.Caption() + "|";
  for (const Control* control : form.Controls()) {
    // What can be undone is not in a draft: the history ends with the program.
    if (control == &form.mnuUndo || control == &form.mnuRedo) continue;
    shown += control->Name() + (control->Enabled() ? "+" : "-");
    if (const auto* text = dynamic_cast<const TextBox*>(control)) shown += text->Text();
    if (const auto* date = dynamic_cast<const DateBox*>(control)) shown += date->PersianText();
    if (const auto* selector = dynamic_cast<const Selector*>(control)) {
      shown += std::to_string(selector->SelectedID());
    }
    shown += "|";
  }
  const Grid& grid = form.flexDetail;
  shown += std::to_string(grid.Row()) + "," + std::to_string(grid.Col()) + "," +
           std::to_string(grid.SortedCol()) + (grid.IsSortedDescending() ? " down" : "");
  for (int row = 1; row < grid.Rows(); ++row) {
    shown += "\n" + std::to_string(grid.RowBackColor(row));
    for (int col = 0; col < grid.Cols(); ++col) shown += "|" + std::string(grid.TextMatrix(row, col));
  }
  return shown;
}

std::vector<std::filesystem::path> Drafts::DraftPaths() const {
  std::vector<std::filesystem::path> paths;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path() / "drafts", none))
    if (entry.path().extension() != ".lock") paths.push_back(entry.path());
  return paths;
}

}  // namespace koru::test
