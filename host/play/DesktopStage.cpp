#include "host/play/DesktopStage.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QProgressDialog>
#include <QTimer>
#include <algorithm>

#include "adapters/sqlite/FilePath.h"
#include "desktop/QtText.h"
#include "host/Windows.h"
#include "host/play/DialogGestures.h"
#include "host/play/Gestures.h"
#include "host/play/PreviewGestures.h"
#include "host/play/StepKind.h"
#include "host/play/WidgetGestures.h"
#include "host/play/WidgetState.h"
#include "platform/Timer.h"

namespace koru {
namespace {

/// The window that a person looks at. When a dialog closes, some screens give the keyboard to no window at
/// all.
QWidget* WindowInFront() {
  for (QWidget* const window : {QApplication::activeModalWidget(), QApplication::activeWindow()}) {
    if (window != nullptr) return window;
  }
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (qobject_cast<FormWindow*>(window) != nullptr && window->isVisible()) return window;
  }
  return nullptr;
}

}  // namespace

DesktopStage::DesktopStage(Person& person, DatabaseConnector& databases, std::filesystem::path pictures)
    : person_(person), databases_(databases), records_(databases), pictures_(std::move(pictures)) {
  RegisterWindows(screen_, records_);
  // Those of the platform take no events of ours.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  qApp->installEventFilter(this);
}

DesktopStage::~DesktopStage() {
  while (ReportPreview* const open = PreviewInFront()) delete open;  // NOLINT: a story that failed left it
  Settle();
}

void DesktopStage::RegisterComponents(ComponentRegistry& components) {
  RegisterDesktopComponents(components, databases_);
}

void DesktopStage::ModalScreen::Show(Form& form, bool modal) {
  if (modal) modal_.push_back(&form);
  DesktopScreen::Show(form, modal);
  if (modal) modal_.pop_back();
}

Form* DesktopStage::ModalScreen::ModalFormOf(const QWidget& window) const {
  const auto found = std::find_if(modal_.begin(), modal_.end(),
                                  [&](const Form* form) { return WindowOf(*form) == &window; });
  return found == modal_.end() ? nullptr : *found;
}

void DesktopStage::Run(const std::function<void()>& action) {
  QTimer inside;  // its turn comes in whatever event loop the action runs
  connect(&inside, &QTimer::timeout, this, &DesktopStage::UseWhatIsModal);
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

void DesktopStage::Settle() {
  constexpr int kRounds = 4;  // an event sets off others: a click a focus change, that one a repaint
  for (int i = 0; i < kRounds; ++i) QCoreApplication::processEvents();
  // Below an action stand the frames of windows that are still in use.
  if (depth_ == 0) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void DesktopStage::UseWhatIsModal() {
  QWidget* const modal = QApplication::activeModalWidget();
  if (qobject_cast<QProgressDialog*>(modal) != nullptr) return;  // asks nothing
  if (modal == nullptr || std::find(used_.begin(), used_.end(), modal) != used_.end()) return;
  used_.push_back(modal);
  if (Form* const form = screen_.ModalFormOf(*modal)) {
    person_.UseModalForm(*form);
  } else if (auto* const files = qobject_cast<QFileDialog*>(modal)) {
    NameFile(*files, saveAs_);
  } else {
    UseDialog(*modal, person_, [this](const std::function<void()>& action) { Run(action); });
  }
  used_.pop_back();
}

bool DesktopStage::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::Timer || qobject_cast<QTimer*>(object) == nullptr) return false;
  // Timers of forms carry the names of their controls; the toolkit's own have none.
  return !object->objectName().isEmpty();
}

QWidget* DesktopStage::Usable(const Control& control) const {
  FormWindow* const window = screen_.WindowOf(control.Parent());
  if (window == nullptr) return nullptr;
  const QWidget* const modal = QApplication::activeModalWidget();
  if (modal != nullptr && modal != window) return nullptr;
  auto* const widget = window->findChild<QWidget*>(QString::fromStdString(control.Name()));
  if (widget == nullptr || !widget->isEnabled() || !widget->isVisible()) return nullptr;
  window->activateWindow();
  // A window system grants the keyboard in its own time; a person waits for it.
  if (!WaitUntil([&] { return window->isActiveWindow(); })) return nullptr;
  return widget;
}

template <class Action>
bool DesktopStage::With(QWidget* widget, const Action& action) {
  if (widget == nullptr) return false;
  bool done = false;
  Run([&] { done = action(*widget); });
  return done;
}

bool DesktopStage::Click(Button& button) {
  return With(Usable(button), [](QWidget& widget) {
    ClickOn(widget);
    return true;
  });
}

bool DesktopStage::Click(MenuItem& item) {
  FormWindow* const window = screen_.WindowOf(item.Parent());
  auto* const action =
      window == nullptr ? nullptr : window->findChild<QAction*>(QString::fromStdString(item.Name()));
  if (action == nullptr || !action->isEnabled() || !action->isVisible()) return false;
  Run([&] { action->trigger(); });
  return true;
}

bool DesktopStage::Type(TextBox& box, const std::string& text) {
  return With(Usable(box), [&](QWidget& widget) { return TypeInto(widget, ToQt(text)); });
}

bool DesktopStage::Pick(Selector& selector, std::int32_t id) {
  return With(Usable(selector), [&](QWidget& widget) { return PickIn(widget, id); });
}

bool DesktopStage::SetDate(DateBox& box, std::optional<Date> date) {
  return With(Usable(box), [&](QWidget& widget) { return EnterDate(widget, date); });
}

bool DesktopStage::Check(CheckBox& box, bool checked) {
  return With(Usable(box), [&](QWidget& widget) {
    if (box.Checked() != checked) ClickOn(widget, QPoint(widget.width() - 8, widget.height() / 2));
    return true;
  });
}

bool DesktopStage::Choose(ComboBox& list, int index) {
  return With(Usable(list), [&](QWidget& widget) { return ChooseIn(widget, index); });
}

bool DesktopStage::Choose(OptionButton& option) {
  return With(Usable(option), [&](QWidget& widget) {
    ClickOn(widget, QPoint(widget.width() - 8, widget.height() / 2));
    return true;
  });
}

bool DesktopStage::TypeCell(Grid& grid, int row, int col, const std::string& text) {
  return With(Usable(grid), [&](QWidget& widget) { return TypeIntoCell(widget, row, col, ToQt(text)); });
}

bool DesktopStage::MoveTo(Grid& grid, int row, int col) {
  return With(Usable(grid), [&](QWidget& widget) { return ClickCell(widget, row, col); });
}

bool DesktopStage::DeleteRow(Grid& grid, int row) {
  return With(Usable(grid), [&](QWidget& widget) {
    if (!ClickCell(widget, row, FirstVisibleColumn(widget))) return false;
    PressKey(Qt::Key_Delete, Qt::ControlModifier);
    return true;
  });
}

bool DesktopStage::ClickHeader(Grid& grid, int col) {
  return With(Usable(grid), [&](QWidget& widget) { return ClickColumnHeader(widget, col); });
}

bool DesktopStage::DoubleClick(Grid& grid, int row) {
  return With(Usable(grid),
              [&](QWidget& widget) { return DoubleClickCell(widget, row, FirstVisibleColumn(widget)); });
}

bool DesktopStage::RightClick(Control& control) {
  return With(Usable(control), [](QWidget& widget) {
    RightClickOn(widget);
    return true;
  });
}

bool DesktopStage::Press(Control& control, KeyPress key) {
  return With(Usable(control), [&](QWidget& widget) {
    widget.setFocus();
    PressKey(key);
    return true;
  });
}

void DesktopStage::Close(Form& form) {
  if (FormWindow* const window = screen_.WindowOf(form)) {
    Run([window] { window->close(); });
  }
}

const ReportDocument* DesktopStage::Report() {
  const ReportPreview* const preview = PreviewInFront();
  return preview == nullptr ? nullptr : &preview->Report();
}

bool DesktopStage::SaveReport(const std::filesystem::path& file) {
  saveAs_ = ToQt(TextOf(file));
  ReportPreview* const preview = PreviewInFront();
  if (preview != nullptr) Run([preview] { PressIn(*preview, Qt::Key_S, Qt::ControlModifier); });
  return preview != nullptr;
}

bool DesktopStage::CloseReport() {
  ReportPreview* const preview = PreviewInFront();
  if (preview == nullptr) return false;
  bool open = true;
  const auto closed = connect(preview, &QObject::destroyed, this, [&open] { open = false; });
  Run([preview] { PressIn(*preview, Qt::Key_Escape); });
  disconnect(closed);
  return !open;
}

std::string DesktopStage::Difference(const Control& control) {
  FormWindow* const window = screen_.WindowOf(control.Parent());
  if (window == nullptr || dynamic_cast<const Timer*>(&control) != nullptr) return {};
  Settle();
  return WidgetDifference(*window, control);
}

std::string DesktopStage::FocusDifference(const Form& form) {
  FormWindow* const window = screen_.WindowOf(form);
  if (window == nullptr || !window->isActiveWindow() || form.Focus() == nullptr) return {};
  const Control* const focus = window->Binding().ControlOf(QApplication::focusWidget());
  if (focus == form.Focus()) return {};
  return "in the window the focus is " + (focus == nullptr ? std::string("nowhere") : "on " + focus->Name());
}

void DesktopStage::TakePicture(const std::string& name) {
  if (pictures_.empty()) return;
  Settle();
  QWidget* const window = WindowInFront();
  if (window == nullptr) throw StoryFailure("no window is shown for the picture " + name);
  const std::string file = (pictures_ / (name + ".png")).string();
  if (!window->grab().save(ToQt(file))) throw StoryFailure("the picture could not be written: " + file);
}

}  // namespace koru
