#include "scenario/desktop/WindowDriver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QProgressDialog>
#include <QTimer>
#include <algorithm>
#include <optional>

#include "adapters/system/DataFolder.h"
#include "desktop/forms/MessageDialog.h"
#include "desktop/grid/GridView.h"
#include "desktop/suite/Windows.h"
#include "desktop/toolkit/QtText.h"
#include "platform/controls/Timer.h"
#include "platform/text/FilePath.h"
#include "scenario/StepKind.h"
#include "scenario/desktop/DialogDriver.h"
#include "scenario/desktop/InputEvents.h"
#include "scenario/desktop/PicturedFolder.h"
#include "scenario/desktop/PreviewDriver.h"
#include "scenario/desktop/ProgramWindow.h"
#include "scenario/desktop/ShownPart.h"
#include "scenario/desktop/WidgetDriver.h"
#include "scenario/desktop/WidgetState.h"
#include "services/Messages.h"

namespace koru {
namespace {

/// The manual if it has the keyboard: it can also be used while a dialog is open.
QWidget* ManualInFront() {
  QWidget* const active = QApplication::activeWindow();
  return active != nullptr && active->objectName() == QLatin1String("manual") ? active : nullptr;
}

void ShowError(const std::string& sentence) {
  MessageDialog message;
  message.SetFormTitle(sentences::kError);
  message.SetFormMessage(sentence);
  message.ClearShow();
}

/// A key of a button presses it for a while before it clicks.
bool NoButtonIsDown() {
  const QWidget* const window = QApplication::activeWindow();
  if (window == nullptr) return true;
  const auto buttons = window->findChildren<const QAbstractButton*>();
  return std::none_of(buttons.begin(), buttons.end(), [](const auto* button) { return button->isDown(); });
}

}  // namespace

WindowDriver::WindowDriver(ScenarioUser& user, DatabaseConnector& databases, std::filesystem::path pictures)
    : user_(user),
      databases_(databases),
      records_(databases),
      pictures_(std::move(pictures)),
      manual_(DataFolder() / "manual", ShowError) {
  RegisterWindows(screen_, records_);
  // The platform's own dialogs do not receive our events.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  qApp->installEventFilter(this);
}

WindowDriver::~WindowDriver() {
  while (ReportPreview* const open = PreviewInFront()) delete open;  // NOLINT: left by a scenario that failed
  Settle();
}

/// When a dialog or a list closes, some window systems activate no window, or leave the closed one active.
QWidget* WindowDriver::WindowInFront() const {
  for (QWidget* const window : {QApplication::activePopupWidget(), ManualInFront(),
                                QApplication::activeModalWidget(), QApplication::activeWindow()}) {
    if (window != nullptr && window->isVisible()) return window;
  }
  if (QWidget* const preview = PreviewInFront()) return preview;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (qobject_cast<FormWindow*>(window) != nullptr && window->isVisible()) return window;
  }
  return program_ == nullptr ? nullptr : &program_->Window();
}

QWidget* WindowDriver::GiveKeyboard() const {
  QWidget* const window = WindowInFront();
  if (window == nullptr || QApplication::activePopupWidget() != nullptr) return WidgetWithKeyboard();
  window->activateWindow();
  if (!WaitUntil([&] { return window->isActiveWindow(); })) return nullptr;
  if (QApplication::focusWidget() == nullptr) window->setFocus();
  return WidgetWithKeyboard();
}

void WindowDriver::RegisterComponents(ComponentRegistry& components) {
  RegisterDesktopComponents(components, databases_, DataFolder());
}

void WindowDriver::ModalScreen::Show(Form& form, bool modal) {
  if (modal) modal_.push_back(&form);
  DesktopScreen::Show(form, modal);
  if (modal) modal_.pop_back();
}

Form* WindowDriver::ModalScreen::ModalFormOf(const QWidget& window) const {
  const auto found = std::find_if(modal_.begin(), modal_.end(),
                                  [&](const Form* form) { return WindowOf(*form) == &window; });
  return found == modal_.end() ? nullptr : *found;
}

void WindowDriver::Run(const std::function<void()>& action) {
  QTimer inside;  // fires in any event loop that the action starts
  connect(&inside, &QTimer::timeout, this, &WindowDriver::UseWhatIsModal);
  inside.start(0);
  ++depth_;
  try {
    action();
  } catch (...) {
    --depth_;
    throw;
  }
  --depth_;
  Settle();
}

bool WindowDriver::StartProgram(const ProgramStart& start) {
  program_.reset();
  program_ = std::make_unique<ProgramWindow>(start);
  Run([this] { program_->Show(); });
  return true;
}

void WindowDriver::Settle() {
  constexpr int kRounds = 4;  // an event causes others: a click a focus change, which causes a repaint
  for (int i = 0; i < kRounds; ++i) QCoreApplication::processEvents();
  // During an action, functions of windows that wait for deletion are still on the stack.
  if (depth_ == 0) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void WindowDriver::UseWhatIsModal() {
  QWidget* const modal = QApplication::activeModalWidget();
  if (qobject_cast<QProgressDialog*>(modal) != nullptr) return;  // needs no answer
  if (modal == nullptr || std::find(used_.begin(), used_.end(), modal) != used_.end()) return;
  used_.push_back(modal);
  if (Form* const form = screen_.ModalFormOf(*modal)) {
    user_.UseModalForm(*form);
  } else if (auto* const files = qobject_cast<QFileDialog*>(modal)) {
    saveAs_.isEmpty() ? files->reject() : NameFile(*files, saveAs_);
  } else {
    UseDialog(*modal, user_, [this](const std::function<void()>& action) { Run(action); });
  }
  used_.pop_back();
}

bool WindowDriver::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::Timer || qobject_cast<QTimer*>(object) == nullptr) return false;
  // Timers of forms have the names of their controls; the toolkit's own have none.
  return !object->objectName().isEmpty();
}

QWidget* WindowDriver::Usable(const Control& control) const {
  FormWindow* const window = screen_.WindowOf(control.Parent());
  if (window == nullptr) return nullptr;
  const QWidget* const modal = QApplication::activeModalWidget();
  if (modal != nullptr && modal != window) return nullptr;
  auto* const widget = window->findChild<QWidget*>(QString::fromStdString(control.Name()));
  if (widget == nullptr || !widget->isEnabled() || !widget->isVisible()) return nullptr;
  window->activateWindow();
  // The window system activates a window with a delay.
  if (!WaitUntil([&] { return window->isActiveWindow(); })) return nullptr;
  return widget;
}

template <class Action>
bool WindowDriver::With(QWidget* widget, const Action& action) {
  if (widget == nullptr) return false;
  bool done = false;
  Run([&] { done = action(*widget); });
  return done;
}

bool WindowDriver::Click(Button& button) {
  return With(Usable(button), [](QWidget& widget) {
    ClickOn(widget);
    return true;
  });
}

bool WindowDriver::Click(MenuItem& item) {
  FormWindow* const window = screen_.WindowOf(item.Parent());
  auto* const action =
      window == nullptr ? nullptr : window->findChild<QAction*>(QString::fromStdString(item.Name()));
  if (action == nullptr || !action->isEnabled() || !action->isVisible()) return false;
  Run([&] { action->trigger(); });
  return true;
}

bool WindowDriver::Type(TextBox& box, const std::string& text) {
  return With(Usable(box), [&](QWidget& widget) { return TypeInto(widget, ToQt(text)); });
}

bool WindowDriver::Pick(Selector& selector, std::int32_t id) {
  return With(Usable(selector), [&](QWidget& widget) { return PickIn(widget, id); });
}

bool WindowDriver::SetDate(DateBox& box, std::optional<Date> date) {
  return With(Usable(box), [&](QWidget& widget) { return EnterDate(widget, date); });
}

bool WindowDriver::Check(CheckBox& box, bool checked) {
  return With(Usable(box), [&](QWidget& widget) {
    if (box.Checked() != checked) ClickOn(widget, QPoint(widget.width() - 8, widget.height() / 2));
    return true;
  });
}

bool WindowDriver::Choose(ComboBox& list, int index) {
  return With(Usable(list), [&](QWidget& widget) { return ChooseIn(widget, index); });
}

bool WindowDriver::Choose(OptionButton& option) {
  return With(Usable(option), [&](QWidget& widget) {
    ClickOn(widget, QPoint(widget.width() - 8, widget.height() / 2));
    return true;
  });
}

bool WindowDriver::TypeCell(Grid& grid, int row, int col, const std::string& text) {
  return With(Usable(grid), [&](QWidget& widget) { return TypeIntoCell(widget, row, col, ToQt(text)); });
}

bool WindowDriver::MoveTo(Grid& grid, int row, int col) {
  return With(Usable(grid), [&](QWidget& widget) { return ClickCell(widget, row, col); });
}

bool WindowDriver::DeleteRow(Grid& grid, int row) {
  return With(Usable(grid), [&](QWidget& widget) {
    if (!ClickCell(widget, row, FirstVisibleColumn(widget))) return false;
    PressKey(Qt::Key_Delete, Qt::ControlModifier);
    return true;
  });
}

bool WindowDriver::ClickHeader(Grid& grid, int col) {
  return With(Usable(grid), [&](QWidget& widget) { return ClickColumnHeader(widget, col); });
}

bool WindowDriver::DoubleClick(Grid& grid, int row) {
  return With(Usable(grid),
              [&](QWidget& widget) { return DoubleClickCell(widget, row, FirstVisibleColumn(widget)); });
}

bool WindowDriver::RightClick(Control& control) {
  return With(Usable(control), [](QWidget& widget) {
    RightClickOn(widget);
    return true;
  });
}

bool WindowDriver::Press(Control& control, KeyPress key) {
  return With(Usable(control), [&](QWidget& widget) {
    widget.setFocus();
    PressKey(key);
    return true;
  });
}

void WindowDriver::Close(Form& form) {
  if (FormWindow* const window = screen_.WindowOf(form)) {
    Run([window] { window->close(); });
  }
}

bool WindowDriver::PressHere(KeyPress key) {
  return With(GiveKeyboard(), [&](QWidget&) {
    PressKey(key);
    return WaitUntil(NoButtonIsDown);
  });
}

bool WindowDriver::TypeHere(const std::string& text) {
  return With(GiveKeyboard(), [&](QWidget&) {
    TypeText(ToQt(text));
    return true;
  });
}

bool WindowDriver::ClickPart(const std::string& widget) {
  const QWidget* const at = GiveKeyboard();
  auto* const part = at == nullptr ? nullptr : at->window()->findChild<QWidget*>(ToQt(widget));
  if (part == nullptr || !part->isVisible() || !part->isEnabled()) return false;
  return With(part, [](QWidget& shown) {
    ClickOn(shown);
    return true;
  });
}

std::string WindowDriver::WindowWithKeyboard() {
  const QWidget* const widget = GiveKeyboard();
  return widget == nullptr ? std::string() : FromQt(widget->window()->objectName());
}

std::optional<std::string> WindowDriver::TextShown(const std::string& widget) {
  const QWidget* const at = GiveKeyboard();
  return at == nullptr ? std::nullopt : TextOfPart(*at->window(), widget);
}

const ReportDocument* WindowDriver::Report() {
  const ReportPreview* const preview = PreviewInFront();
  return preview == nullptr ? nullptr : &preview->Report();
}

bool WindowDriver::SaveReport(const std::filesystem::path& file) {
  saveAs_ = ToQt(TextOf(file));
  ReportPreview* const preview = PreviewInFront();
  if (preview != nullptr) Run([preview] { PressIn(*preview, Qt::Key_S, Qt::ControlModifier); });
  saveAs_.clear();
  return preview != nullptr;
}

bool WindowDriver::CloseReport() {
  ReportPreview* const preview = PreviewInFront();
  if (preview == nullptr) return false;
  bool open = true;
  const auto closed = connect(preview, &QObject::destroyed, this, [&open] { open = false; });
  Run([preview] { PressIn(*preview, Qt::Key_Escape); });
  disconnect(closed);
  return !open;
}

std::optional<int> WindowDriver::RowsShown(const Grid& grid) {
  const FormWindow* const window = screen_.WindowOf(grid.Parent());
  const auto* const view =
      window == nullptr ? nullptr : window->findChild<const GridView*>(QString::fromStdString(grid.Name()));
  if (view == nullptr) return {};
  Settle();
  return view->Rows().rowCount();
}

std::string WindowDriver::Difference(const Control& control) {
  FormWindow* const window = screen_.WindowOf(control.Parent());
  if (window == nullptr || dynamic_cast<const Timer*>(&control) != nullptr) return {};
  Settle();
  return WidgetDifference(*window, control);
}

std::string WindowDriver::FocusDifference(const Form& form) {
  FormWindow* const window = screen_.WindowOf(form);
  if (window == nullptr || !window->isActiveWindow() || form.Focus() == nullptr) return {};
  const Control* const focus = window->Binding().ControlOf(QApplication::focusWidget());
  if (focus == form.Focus()) return {};
  return "in the window the focus is " + (focus == nullptr ? std::string("nowhere") : "on " + focus->Name());
}

void WindowDriver::TakePicture(const std::string& name) {
  if (pictures_.empty()) return;
  if (name.find_first_of("/\\:") != std::string::npos) {
    throw ScenarioFailure("a picture is named without folders: " + name);
  }
  Settle();
  QWidget* const window = WindowInFront();
  if (window == nullptr) throw ScenarioFailure("no window is shown for the picture " + name);
  const std::string file = (pictures_ / (name + ".png")).string();
  std::optional<PicturedFolder> folder;
  if (program_ != nullptr) folder.emplace(*window, program_->Folder());
  if (!window->grab().save(ToQt(file))) throw ScenarioFailure("the picture could not be written: " + file);
}

}  // namespace koru
