#include "host/play/FormStage.h"

#include <memory>
#include <utility>

#include "host/play/PlayedComponents.h"

namespace koru {
namespace {

/// A person who turns to another control leaves the grid first.
void LeaveGridFor(const Control& control) {
  auto* const grid = dynamic_cast<Grid*>(control.Parent().Focus());
  if (grid != nullptr && grid != &control && control.Enabled() && control.Visible()) grid->UserLeave();
}

}  // namespace

void FormStage::RegisterComponents(ComponentRegistry& components) {
  components.Register(std::string(MessageComponent::kClassName),
                      [this] { return std::make_unique<PlayedMessage>(person_); });
  components.Register(std::string(GoodsPicker::kClassName),
                      [this] { return std::make_unique<PlayedPicker>(databases_, person_); });
  components.Register(std::string(ReportPrinter::kClassName),
                      [this] { return std::make_unique<PlayedPrinter>(databases_, report_); });
  const auto addDocument = [&](std::string_view className, const DocumentKind& kind) {
    components.Register(std::string(className), [this, &components, &kind] {
      return std::make_unique<PlayedDocument>(kind, databases_, components, person_);
    });
  };
  addDocument(DocumentComponent::kReceiptClassName, ReceiptKind());
  addDocument(DocumentComponent::kDispatchClassName, DispatchKind());
}

void FormStage::Show(Form& form, bool modal) {
  if (modal) person_.UseModalForm(form);
}

bool FormStage::Click(Button& button) {
  LeaveGridFor(button);
  return button.UserClick();
}

bool FormStage::Click(MenuItem& item) { return item.UserClick(); }

bool FormStage::Type(TextBox& box, const std::string& text) {
  LeaveGridFor(box);
  return box.UserType(text);
}

bool FormStage::Pick(Selector& selector, std::int32_t id) {
  LeaveGridFor(selector);
  return selector.UserSelect(id);
}

bool FormStage::SetDate(DateBox& box, std::optional<Date> date) {
  LeaveGridFor(box);
  return box.UserSet(date);
}

bool FormStage::Check(CheckBox& box, bool checked) {
  LeaveGridFor(box);
  return box.UserCheck(checked);
}

bool FormStage::Choose(ComboBox& list, int index) {
  LeaveGridFor(list);
  return list.UserChoose(index);
}

bool FormStage::Choose(OptionButton& option) {
  LeaveGridFor(option);
  return option.UserChoose();
}

bool FormStage::TypeCell(Grid& grid, int row, int col, const std::string& text) {
  // A refused text is an outcome that the story looks at, not a step that could not be done.
  if (!grid.IsEditable(col) || grid.Locked() || !grid.UserMoveTo(row, col)) return false;
  grid.UserEdit(row, col, text);
  return true;
}

bool FormStage::MoveTo(Grid& grid, int row, int col) { return grid.UserMoveTo(row, col); }

bool FormStage::DeleteRow(Grid& grid, int row) {
  if (!grid.UserMoveTo(row, grid.Col())) return false;
  grid.UserDeleteRow();
  return true;
}

bool FormStage::ClickHeader(Grid& grid, int col) { return grid.UserClickHeader(col); }

bool FormStage::DoubleClick(Grid& grid, int row) { return grid.UserDoubleClick(row, grid.Col()); }

bool FormStage::RightClick(Control& control) { return control.UserRightClick(); }

bool FormStage::Press(Control& control, KeyPress key) { return control.UserKey(key); }

bool FormStage::CloseReport() {
  const bool open = report_ != nullptr;
  report_.reset();
  return open;
}

}  // namespace koru
