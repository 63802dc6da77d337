#pragma once

#include "platform/sql/Database.h"
#include "scenario/UiDriver.h"

namespace koru {

/// Drives the forms alone: each operation is the `User...` operation of the control, and there is no window.
class FormDriver : public UiDriver, private Screen {
 public:
  /// Both must outlive the driver.
  FormDriver(ScenarioUser& user, DatabaseConnector& databases) : user_(user), databases_(databases) {}

  [[nodiscard]] Screen& TheScreen() override { return *this; }
  void RegisterComponents(ComponentRegistry& components) override;
  void Run(const std::function<void()>& action) override { action(); }
  bool StartProgram(const ProgramStart&) override { return false; }

  bool Click(Button& button) override;
  bool Click(MenuItem& item) override;
  bool Type(TextBox& box, const std::string& text) override;
  bool Pick(Selector& selector, std::int32_t id) override;
  bool SetDate(DateBox& box, std::optional<Date> date) override;
  bool Check(CheckBox& box, bool checked) override;
  bool Choose(ComboBox& list, int index) override;
  bool Choose(OptionButton& option) override;
  bool TypeCell(Grid& grid, int row, int col, const std::string& text) override;
  bool MoveTo(Grid& grid, int row, int col) override;
  bool DeleteRow(Grid& grid, int row) override;
  bool ClickHeader(Grid& grid, int col) override;
  bool DoubleClick(Grid& grid, int row) override;
  bool RightClick(Control& control) override;
  bool Press(Control& control, KeyPress key) override;
  void Close(Form& form) override { form.UserClose(); }

  bool PressHere(KeyPress) override { return false; }
  bool TypeHere(const std::string&) override { return false; }
  bool ClickPart(const std::string&) override { return false; }
  [[nodiscard]] std::string WindowWithKeyboard() override { return {}; }
  [[nodiscard]] std::optional<std::string> TextShown(const std::string&) override { return {}; }

  [[nodiscard]] const ReportDocument* Report() override { return report_.get(); }
  bool SaveReport(const std::filesystem::path&) override { return false; }
  bool CloseReport() override;

  [[nodiscard]] std::optional<int> RowsShown(const Grid&) override { return {}; }
  [[nodiscard]] std::string Difference(const Control&) override { return {}; }
  [[nodiscard]] std::string FocusDifference(const Form&) override { return {}; }
  void TakePicture(const std::string&) override {}

 private:
  void SetCursor(Cursor cursor) override { cursor_ = cursor; }
  [[nodiscard]] Cursor CurrentCursor() const override { return cursor_; }
  void Show(Form& form, bool modal) override;

  ScenarioUser& user_;
  DatabaseConnector& databases_;
  Cursor cursor_ = Cursor::Normal;
  std::unique_ptr<const ReportDocument> report_;
};

}  // namespace koru
