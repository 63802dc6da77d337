#pragma once

#include <QObject>
#include <QString>
#include <filesystem>
#include <memory>
#include <vector>

#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "desktop/manual/Manual.h"
#include "scenario/UiDriver.h"

namespace koru {

class ProgramWindow;

/// Drives the windows: input reaches the widgets as mouse and key events. Dialogs and modal windows are used
/// from inside their own event loop. The timers of forms do not run: the scenario says when they fire. Needs
/// the application object.
class WindowDriver : public QObject, public UiDriver {
  Q_OBJECT

 public:
  /// `user` and `databases` must outlive the driver. `pictures`: the folder for the scenario's pictures;
  /// empty: no pictures.
  WindowDriver(ScenarioUser& user, DatabaseConnector& databases, std::filesystem::path pictures);
  ~WindowDriver() override;

  [[nodiscard]] Screen& TheScreen() override { return screen_; }
  void RegisterComponents(ComponentRegistry& components) override;
  void Run(const std::function<void()>& action) override;
  bool StartProgram(const ProgramStart& start) override;

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
  void Close(Form& form) override;

  bool PressHere(KeyPress key) override;
  bool TypeHere(const std::string& text) override;
  bool ClickPart(const std::string& widget) override;
  [[nodiscard]] std::string WindowWithKeyboard() override;
  [[nodiscard]] std::optional<std::string> TextShown(const std::string& widget) override;

  [[nodiscard]] const ReportDocument* Report() override;
  bool SaveReport(const std::filesystem::path& file) override;
  bool CloseReport() override;

  [[nodiscard]] std::optional<int> RowsShown(const Grid& grid) override;
  [[nodiscard]] std::string Difference(const Control& control) override;
  [[nodiscard]] std::string FocusDifference(const Form& form) override;
  void TakePicture(const std::string& name) override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  /// The desktop's screen, which also records the modal forms.
  class ModalScreen : public DesktopScreen {
   public:
    void Show(Form& form, bool modal) override;
    /// The modal form of that window; nullptr when there is none.
    [[nodiscard]] Form* ModalFormOf(const QWidget& window) const;

   private:
    std::vector<Form*> modal_;
  };

  /// The widget of a control if a user can use it now; else nullptr.
  [[nodiscard]] QWidget* Usable(const Control& control) const;
  /// Runs an action on a widget with all its consequences. False without a widget.
  template <class Action>
  bool With(QWidget* widget, const Action& action);
  /// The window that a user sees in front, an open list or calendar also; nullptr when none is shown.
  [[nodiscard]] QWidget* WindowInFront() const;
  /// Activates the window in front, as a window manager does when another one closes, and returns the widget
  /// that receives keys; nullptr when no window is shown.
  [[nodiscard]] QWidget* GiveKeyboard() const;
  void UseWhatIsModal();
  void Settle();

  ScenarioUser& user_;
  DatabaseConnector& databases_;
  SelectorRecords records_;
  std::filesystem::path pictures_;
  ModalScreen screen_;
  Manual manual_;
  std::vector<const QWidget*> used_;  ///< modal windows in use
  int depth_ = 0;                     ///< nested actions
  QString saveAs_;                    ///< for the next file dialog
  std::unique_ptr<ProgramWindow> program_;
};

}  // namespace koru
