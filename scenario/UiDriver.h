#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/report/ReportDocument.h"
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

namespace koru {

/// A message or question as it stands before a user.
struct ShownMessage {
  std::string title;
  std::string text;
  int type = 0;  ///< 0: one button; 1: yes and no
};

/// The answers of a user; the numbers are those of the message component.
enum class Answer : int { Closed = -1, No = 0, Yes = 1 };

/// A receipt or dispatch as it stands before a user.
struct ShownDocument {
  std::string kind;  ///< `receipt` or `dispatch`, as a scenario writes it
  std::int32_t id = 0;
  bool registered = false;  ///< it has its number, and cannot be registered again
};

/// What a person does with a document before they close it.
enum class DocumentUse { View, Register };

/// The person whom a stage lets work: answers what is asked, and uses what is shown.
class ScenarioUser {
 public:
  virtual ~ScenarioUser() = default;
  /// Reads a message and answers it; an acknowledged message is answered with Yes.
  virtual Answer AnswerMessage(const ShownMessage& message) = 0;
  /// Works with a form that was shown modally; afterwards the form is no longer visible.
  virtual void UseModalForm(Form& form) = 0;
  /// Looks at the goods picker: the barcodes of all goods that shall be picked when it is left; none: the
  /// person gives up.
  virtual std::vector<std::string> PickGoods() = 0;
  /// Reads a document. A registration that asks first is answered by AnswerMessage.
  virtual DocumentUse UseDocument(const ShownDocument& document) = 0;
  /// What the person wanted cannot be done here, and why, as in `pick "100": the picker does not offer it`.
  virtual void CannotDo(const std::string& what) = 0;
};

/// Where a scenario is played: on the forms alone, or on their windows. Each operation does what a person
/// would do with that control, and answers whether it could be done; what it sets off has come to its end
/// when it returns.
class UiDriver {
 public:
  UiDriver() = default;
  UiDriver(const UiDriver&) = delete;
  UiDriver& operator=(const UiDriver&) = delete;
  virtual ~UiDriver() = default;

  [[nodiscard]] virtual Screen& TheScreen() = 0;
  /// Registers the sibling components of the suite as this stage shows them.
  virtual void RegisterComponents(ComponentRegistry& components) = 0;
  /// Runs something that the host does and that may show forms and messages.
  virtual void Run(const std::function<void()>& action) = 0;

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

  /// The report that the person looks at, the one that was opened last; nullptr when none is open.
  [[nodiscard]] virtual const ReportDocument* Report() = 0;
  /// Saves that report as a PDF file, and closes it. False when it could not be done; a stage without a
  /// screen saves none.
  virtual bool SaveReport(const std::filesystem::path& file) = 0;
  virtual bool CloseReport() = 0;

  /// How what stands on the screen differs from the control's state; empty when it does not, or when there is
  /// no screen.
  [[nodiscard]] virtual std::string Difference(const Control& control) = 0;
  /// The same for the keyboard's place.
  [[nodiscard]] virtual std::string FocusDifference(const Form& form) = 0;
  /// Keeps a picture of the active window under that name; a stage without a screen keeps none.
  virtual void TakePicture(const std::string& name) = 0;
};

}  // namespace koru
