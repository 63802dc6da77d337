#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DateBox.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/MenuItem.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"
#include "platform/ports/Components.h"
#include "platform/ports/Screen.h"
#include "siblings/report/ReportDocument.h"

namespace koru {

/// A message or question that is shown.
struct ShownMessage {
  std::string title;
  std::string text;
  int type = 0;  ///< 0: one button; 1: yes and no
};

/// The answers of a user; the numbers are those of the message component.
enum class Answer : int { Closed = -1, No = 0, Yes = 1 };

/// A receipt or dispatch that is shown.
struct ShownDocument {
  std::string kind;  ///< `receipt` or `dispatch`, as a scenario writes it
  std::int32_t id = 0;
  bool registered = false;  ///< has its final number and cannot be registered again
};

/// What the user does with a document before closing it.
enum class DocumentUse { View, Register };

/// How the window of the program koru-counting is started.
struct ProgramStart {
  std::filesystem::path folder;  ///< of the program's settings and of the sample that it makes
  std::string connection;        ///< as named on its command line; empty: none is named
  std::int32_t user = 0;         ///< who signs in to that database
};

/// The user of a scenario, who answers questions and uses modal windows.
class ScenarioUser {
 public:
  virtual ~ScenarioUser() = default;
  /// Reads a message and answers it; an acknowledged message is answered with Yes.
  virtual Answer AnswerMessage(const ShownMessage& message) = 0;
  /// Uses a form that was shown modally, until it is no longer visible.
  virtual void UseModalForm(Form& form) = 0;
  /// The barcodes of the goods to pick in the goods picker; none: the user cancels.
  virtual std::vector<std::string> PickGoods() = 0;
  /// Uses a document. AnswerMessage answers the question that a registration asks.
  virtual DocumentUse UseDocument(const ShownDocument& document) = 0;
  /// Uses another dialog, of that object name. It is closed afterwards if no key and no button has closed it.
  virtual void UseDialog(const std::string& name) = 0;
  /// Reports that the user cannot do something, as in `pick "100": the goods picker does not offer it`.
  virtual void CannotDo(const std::string& what) = 0;
};

/// Drives the user interface for a scenario: the forms alone, or their windows. Each operation does to a
/// control what a user would do, returns whether that was possible, and returns only when all consequences
/// have finished.
class UiDriver {
 public:
  UiDriver() = default;
  UiDriver(const UiDriver&) = delete;
  UiDriver& operator=(const UiDriver&) = delete;
  virtual ~UiDriver() = default;

  [[nodiscard]] virtual Screen& TheScreen() = 0;
  /// Registers the sibling components of the suite as this driver shows them.
  virtual void RegisterComponents(ComponentRegistry& components) = 0;
  /// Runs an action of the host, which may show forms and messages.
  virtual void Run(const std::function<void()>& action) = 0;
  /// Opens the window of the program; the one before it is destroyed. False without windows.
  virtual bool StartProgram(const ProgramStart& start) = 0;

  virtual bool Click(Button& button) = 0;
  virtual bool Click(MenuItem& item) = 0;
  virtual bool Type(TextBox& box, const std::string& text) = 0;
  virtual bool Pick(Selector& selector, std::int32_t id) = 0;
  virtual bool SetDate(DateBox& box, std::optional<Date> date) = 0;
  virtual bool Check(CheckBox& box, bool checked) = 0;
  virtual bool Choose(ComboBox& list, int index) = 0;
  virtual bool Choose(OptionButton& option) = 0;
  virtual bool TypeCell(Grid& grid, int row, int col, const std::string& text) = 0;
  virtual bool MoveTo(Grid& grid, int row, int col) = 0;
  virtual bool DeleteRow(Grid& grid, int row) = 0;
  virtual bool ClickHeader(Grid& grid, int col) = 0;
  virtual bool DoubleClick(Grid& grid, int row) = 0;
  virtual bool RightClick(Control& control) = 0;
  virtual bool Press(Control& control, KeyPress key) = 0;
  virtual void Close(Form& form) = 0;

  /// Presses a key, or types a text, where the keyboard is: also in dialogs, popups and the manual. False
  /// where nothing has the keyboard, and without windows.
  virtual bool PressHere(KeyPress key) = 0;
  virtual bool TypeHere(const std::string& text) = 0;
  /// Clicks the widget of that object name in the window that has the keyboard. False where it has none that
  /// can be clicked, and without windows.
  virtual bool ClickPart(const std::string& widget) = 0;
  /// The object name of the window that has the keyboard; empty where none has it.
  [[nodiscard]] virtual std::string WindowWithKeyboard() = 0;
  /// What the widget of that object name shows in that window; no value where it has none.
  [[nodiscard]] virtual std::optional<std::string> TextShown(const std::string& widget) = 0;

  /// The report that was opened last and is still open; nullptr when none is open.
  [[nodiscard]] virtual const ReportDocument* Report() = 0;
  /// Saves that report as a PDF file. False when that was not possible; without windows it never is.
  virtual bool SaveReport(const std::filesystem::path& file) = 0;
  virtual bool CloseReport() = 0;

  /// The number of lines that the grid's window shows where a filter may hide some; no value without windows.
  [[nodiscard]] virtual std::optional<int> RowsShown(const Grid& grid) = 0;
  /// How the widget differs from the control's state; empty when it does not, or without windows.
  [[nodiscard]] virtual std::string Difference(const Control& control) = 0;
  /// The same for the keyboard focus.
  [[nodiscard]] virtual std::string FocusDifference(const Form& form) = 0;
  /// Saves a picture of the active window under that name; without windows it does nothing.
  virtual void TakePicture(const std::string& name) = 0;
};

}  // namespace koru
