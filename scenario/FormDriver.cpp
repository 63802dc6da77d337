#include "scenario/FormDriver.h"

#include <memory>
#include <utility>

#include "adapters/system/DataFolder.h"
#include "scenario/ScriptedComponents.h"
#include "siblings/report/SuiteReportPrinter.h"

namespace koru {
namespace {

/// A user who turns to another control leaves the grid first.
void LeaveGridFor(const Control& control) {
  auto* const grid = dynamic_cast<Grid*>(control.Parent().Focus());
  if (grid != nullptr && grid != &control && control.Enabled() && control.Visible()) grid->UserLeave();
}

}  // namespace

void FormDriver::RegisterComponents(ComponentRegistry& components) {
  components.Register(std::string(MessageComponent::kClassName),
                      [this] { return std::make_unique<ScriptedMessage>(user_); });
  const auto pick = [this](GoodsFinder& finder, const PickRequest& request) {
    return PickScripted(user_, finder, request);
  };
  components.Register(std::string(GoodsPicker::kClassName),
                      [this, pick] { return std::make_unique<SuiteGoodsPicker>(databases_, pick); });
  RegisterDocumentComponents(components, databases_,
                             [this](const OpenedDocument& opened) { UseScripted(user_, opened); });
  const auto keep = [this](std::unique_ptr<const ReportDocument> report) { report_ = std::move(report); };
  components.Register(std::string(ReportPrinter::kClassName), [this, keep] {
    return std::make_unique<SuiteReportPrinter>(databases_, DataFolder(), keep);
  });
}

void FormDriver::Show(Form& form, bool modal) {
  if (modal) user_.UseModalForm(form);
}

bool FormDriver::Click(Button& button) {
  LeaveGridFor(button);
  return button.UserClick();
}

bool FormDriver::Click(MenuItem& item) { return item.UserClick(); }

bool FormDriver::Type(TextBox& box, const std::string& text) {
  LeaveGridFor(box);
  return box.UserType(text);
}

bool FormDriver::Pick(Selector& selector, std::int32_t id) {
  LeaveGridFor(selector);
  return selector.UserSelect(id);
}

bool FormDriver::SetDate(DateBox& box, std::optional<Date> date) {
  LeaveGridFor(box);
  return box.UserSet(date);
}

bool FormDriver::Check(CheckBox& box, bool checked) {
  LeaveGridFor(box);
  return box.UserCheck(checked);
}

bool FormDriver::Choose(ComboBox& list, int index) {
  LeaveGridFor(list);
  return list.UserChoose(index);
}

bool FormDriver::Choose(OptionButton& option) {
  LeaveGridFor(option);
  return option.UserChoose();
}

bool FormDriver::TypeCell(Grid& grid, int row, int col, const std::string& text) {
  // A refused text is an outcome for the scenario to check, not a step that was impossible.
  if (!grid.IsEditable(col) || grid.Locked() || !grid.UserMoveTo(row, col)) return false;
  grid.UserEdit(row, col, text);
  return true;
}

bool FormDriver::MoveTo(Grid& grid, int row, int col) { return grid.UserMoveTo(row, col); }

bool FormDriver::DeleteRow(Grid& grid, int row) {
  if (!grid.UserMoveTo(row, grid.Col())) return false;
  grid.UserDeleteRow();
  return true;
}

bool FormDriver::ClickHeader(Grid& grid, int col) { return grid.UserClickHeader(col); }

bool FormDriver::DoubleClick(Grid& grid, int row) { return grid.UserDoubleClick(row, grid.Col()); }

bool FormDriver::RightClick(Control& control) { return control.UserRightClick(); }

bool FormDriver::Press(Control& control, KeyPress key) { return control.UserKey(key); }

bool FormDriver::CloseReport() {
  const bool open = report_ != nullptr;
  report_.reset();
  return open;
}

}  // namespace koru
