#include "desktop/forms/InvCountingWindow.h"

#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "counting/frmInvCounting.h"
#include "desktop/fields/Fields.h"
#include "desktop/fields/StatusLine.h"
#include "desktop/forms/BlindEntry.h"
#include "desktop/forms/EntryCommands.h"
#include "desktop/forms/InvCountingHeader.h"
#include "desktop/forms/LineColumnStyles.h"
#include "desktop/forms/LineFinderBar.h"
#include "desktop/grid/GridView.h"
#include "desktop/grid/KeptColumns.h"
#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/HelpKey.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/ShownNumber.h"
#include "desktop/toolkit/WindowPlace.h"
#include "lines/LineColumns.h"

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(1280, 760);
constexpr const char* kKeysOfLines =
    "خانه بعد: Enter    ويرايش خانه: F2    ورود/خروج جدول: Ctrl+Tab    حذف سطر: Ctrl+Del    "
    "ليست و تقويم: F4";

void AddGap(QBoxLayout& bar) {
  auto* const line = new QFrame(bar.parentWidget());
  line->setFrameShape(QFrame::VLine);
  line->setProperty("gap", true);
  bar.addWidget(line);
}

}  // namespace

InvCountingWindow::InvCountingWindow(frmInvCounting& form, SelectorRecords& records)
    : FormWindow(form), form_(form) {
  lines_ = new GridView(this);
  blind_ = new BlindEntry(*lines_, this);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->setSpacing(6);
  AddDocumentCommands(*layout);
  layout->addWidget(new InvCountingHeader(form, Binding(), records, this));
  AddLineCommands(*layout);
  AddUnsavedNotice(*layout);
  AddScanOffer(*layout);
  layout->addWidget(blind_->NewNotice(this));
  bars_ = new QVBoxLayout;
  layout->addLayout(bars_);
  AddLineFinder(*layout);
  AddLines(*layout);
  AddTotals(*layout);
  Binding().Bind(form.Timer1);
  FollowDocument();
  resize(FirstSize(kDefaultSize));
}

/// The title says which document is on the form, and in which state.
void InvCountingWindow::FollowDocument() {
  for (Control* const shown : {static_cast<Control*>(&form_.lblIDVal), static_cast<Control*>(&form_.txtCode),
                               static_cast<Control*>(&form_.cmdCancel)}) {  // enabled while one is entered
    document_.push_back(shown->StateChanged.Subscribe([this] { ShowTitle(); }));
  }
  document_.push_back(form_.lblIDVal.StateChanged.Subscribe([this] { ShowKeysOfLines(); }));
  ShowTitle();
}

QString InvCountingWindow::Title() const {
  const QString key = ToQt(form_.lblIDVal.Caption());
  const bool isStored = form_.CountingID() > 0;
  if (form_.IsBeingEntered()) {
    return isStored ? QStringLiteral("اصلاح شمارش موقت - شماره رايانه اي %1").arg(key)
                    : QStringLiteral("شمارش جديد");
  }
  if (!isStored) return QStringLiteral("شمارش - فرم خالي");
  if (!form_.IsFinal()) return QStringLiteral("شمارش موقت - شماره رايانه اي %1").arg(key);
  return QStringLiteral("شمارش نهايي شماره %1 - شماره رايانه اي %2").arg(ToQt(form_.txtCode.Text()), key);
}

QPushButton& InvCountingWindow::AddCommand(QBoxLayout& bar, Button& command, const char* shortcut,
                                           BlockedBy blockedBy) {
  auto* const button = new QPushButton(this);
  Binding().Bind(command, *button, blockedBy);
  const QKeySequence keys(QString::fromLatin1(shortcut));
  button->setToolTip(WithKeys(button->text(), keys.toString()));
  auto* const press = new QShortcut(keys, this);
  connect(press, &QShortcut::activated, button, [this, button, &command, blockedBy] {
    if (!button->isEnabled()) status_->Say(ToQt(command.Remark()));
    if (!button->isEnabled() || !button->isVisibleTo(this)) return;
    if (blockedBy != BlockedBy::Nothing && !lines_->FinishEdit()) return;
    button->setFocus(Qt::ShortcutFocusReason);
    button->click();
  });
  bar.addWidget(button);
  return *button;
}

void InvCountingWindow::AddDocumentCommands(QBoxLayout& window) {
  auto* const bar = new QHBoxLayout;
  bar->setSpacing(4);
  window.addLayout(bar);
  AddCommand(*bar, form_.cmdNew, "Ctrl+N");
  AddCommand(*bar, form_.cmdEdit, "Ctrl+E");
  AddCommand(*bar, form_.cmdDelete, "Ctrl+D");
  AddCommand(*bar, form_.cmdSearch, "F3");
  AddGap(*bar);
  AddCommand(*bar, form_.cmdTmpSave, "Ctrl+S", BlockedBy::FiguresAndDates).setProperty("main", true);
  AddCommand(*bar, form_.cmdCancel, "F8", BlockedBy::Nothing);
  AddGap(*bar);
  AddCommand(*bar, form_.cmdIsFinalized, "Ctrl+Shift+S", BlockedBy::FiguresAndDates)
      .setProperty("final", true);
  AddCommand(*bar, form_.cmdFunc, "Ctrl+Shift+R");
  AddGap(*bar);
  AddCommand(*bar, form_.cmdView, "F7");
  AddCommand(*bar, form_.cmdPrint, "Ctrl+P");
  AddCommand(*bar, form_.cmdInvReceipt, "F11");
  AddCommand(*bar, form_.cmdInvExit, "F12");
  bar->addStretch();
  AddMenu(*bar);
  AddCommand(*bar, form_.cmdExit, "Ctrl+W", BlockedBy::Nothing);
}

void InvCountingWindow::AddMenu(QBoxLayout& bar) {
  auto* const button = new QToolButton(this);
  button->setObjectName(QStringLiteral("menuButton"));
  button->setText(QStringLiteral("عمليات ▾"));
  button->setToolTip(QStringLiteral("عمليات (F10)"));
  button->setPopupMode(QToolButton::InstantPopup);
  button->setFocusPolicy(Qt::TabFocus);
  auto* const menu = new QMenu(button);
  menu->setObjectName(QStringLiteral("menu"));
  auto* const back = new QAction(this);
  menu->addAction(back);
  connect(back, &QAction::triggered, this, &InvCountingWindow::ShowKeysOfLines);
  Binding().Bind(form_.mnuRS, *back);
  const auto follow = [this, back] { back->setEnabled(form_.cmdFunc.Enabled()); };
  follow();
  returnChecked_ = form_.cmdFunc.StateChanged.Subscribe(follow);
  menu->addSeparator();
  AddEntryCommands(*menu, *this, Binding(), form_);
  auto* const fromFile = new QAction(this);
  menu->addAction(fromFile);
  Binding().Bind(form_.mnuImport, *fromFile, BlockedBy::Figures);
  AddMovedStock(*menu);
  blind_->AddTo(*menu);
  menu_ = menu;
  lastOperation_ = menu->addSeparator();
  QAction* const down = menu->addAction(QStringLiteral("Enter به سطر بعد برود"));
  down->setObjectName(QStringLiteral("enterGoesDown"));
  down->setCheckable(true);
  down->setChecked(form_.EnterGoesDown());
  connect(down, &QAction::toggled, this, [this](bool checked) {
    lines_->SetEnterMoves({.down = checked, .skipped = LineColumn::Rate});
    form_.RunEvent([this, checked] { form_.SetEnterGoesDown(checked); });
  });
  menu->addSeparator();
  connect(menu->addAction(QStringLiteral("راهنمايي\tF1")), &QAction::triggered, this,
          [this] { PressHelpKey(*this); });
  button->setMenu(menu);
  bar.addWidget(button);
  connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, menu,
          [button, menu] { menu->popup(button->mapToGlobal(button->rect().bottomLeft())); });
}

void InvCountingWindow::AddOperation(QAction& command) { menu_->insertAction(lastOperation_, &command); }

void InvCountingWindow::AddBar(QWidget& bar) { bars_->addWidget(&bar); }

void InvCountingWindow::AddMovedStock(QMenu& menu) {
  auto* const action = new QAction(this);
  menu.addAction(action);
  Binding().Bind(form_.mnuMovedStock, *action, BlockedBy::FiguresAndDates, QStringLiteral("Shift+F9"));
  connect(new QShortcut(Qt::SHIFT | Qt::Key_F9, this), &QShortcut::activated, action, &QAction::trigger);
}

void InvCountingWindow::AddLineCommands(QBoxLayout& window) {
  auto* const bar = new QHBoxLayout;
  bar->setSpacing(4);
  window.addLayout(bar);
  AddCommand(*bar, form_.cmdGoods, "F6", BlockedBy::FiguresAndDates);
  AddCommand(*bar, form_.cmdCalc, "F9", BlockedBy::FiguresAndDates);
  AddCommand(*bar, form_.cmdDeleteAll, "Ctrl+Shift+Delete");
  AddCommand(*bar, form_.cmdExcel, "Ctrl+Shift+E");
  auto* const progress = new QProgressBar(this);
  progress->setMaximumHeight(20);
  progress->setMinimumWidth(60);
  Binding().Bind(form_.pgbStatus, *progress);
  auto* const stop = new QPushButton(this);
  Binding().BindCancel(form_.cmdStop, *stop);
  auto* const age = new QLabel(this);
  age->setToolTip(
      QStringLiteral("زمان آخرين محاسبه موجودي دفتري روي اين فرم. «بررسي تغيير موجودي» در منوي «عمليات» "
                     "نشان مي‌دهد پس از آن چه تغيير كرده است."));
  Binding().Bind(form_.lblFiguresAge, *age);
  bar->addSpacing(8);
  bar->addWidget(age);
  bar->addSpacing(12);
  bar->addWidget(progress, 1);
  bar->addWidget(stop);
  status_ = new StatusLine(this);
  ShowKeysOfLines();
  bar->addWidget(status_);
  goodsAdded_ = form_.GoodsAdded.Subscribe([this](int added) { added_ = added; });
  reported_ =
      form_.CommandReported.Subscribe([this](const std::string& sentence) { status_->Say(ToQt(sentence)); });
  cancelled_ = form_.cmdStop.Click.Subscribe(
      [this] { status_->Say(QStringLiteral("لغو شد؛ هيچ رديفي تغيير نكرد.")); });
  keyPressed_ = form_.KeyDown.Subscribe([this](KeyPress) { ShowKeysOfLines(); });
  connect(&Binding(), &FormBinding::commandBegins, this, &InvCountingWindow::ShowKeysOfLines);
}

/// What a command did is shown until the next key or command, or until another document is on the form.
void InvCountingWindow::ShowKeysOfLines() { status_->Say(QString::fromUtf8(kKeysOfLines)); }

/// Shown while the lines on the form are not the stored ones, though nothing is being entered.
void InvCountingWindow::AddUnsavedNotice(QBoxLayout& window) {
  auto* const bar = new QWidget(this);
  bar->setObjectName(QStringLiteral("unsavedLines"));
  auto* const layout = new QHBoxLayout(bar);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const text = NewNotice(
      QStringLiteral("سطرهاي زير ذخيره نشده اند: آنچه پيش از انصراف نوشته شد روي فرم مانده است."), bar);
  layout->addWidget(text, 1);
  AddCommand(*layout, form_.cmdReadLines, "F5");
  window.addWidget(bar);
  const auto show = [this, bar] { bar->setVisible(form_.cmdReadLines.Visible()); };
  show();
  linesChecked_ = form_.cmdReadLines.StateChanged.Subscribe(show);
}

/// Shown after the scan of a barcode that no line has, until it is added or the entry ends.
void InvCountingWindow::AddScanOffer(QBoxLayout& window) {
  auto* const bar = new QWidget(this);
  bar->setObjectName(QStringLiteral("scanOffer"));
  auto* const layout = new QHBoxLayout(bar);
  layout->setContentsMargins(0, 0, 0, 0);
  QLabel* const text = NewNotice({}, bar);
  layout->addWidget(text, 1);
  AddCommand(*layout, form_.cmdAddScanned, "Ctrl+G");
  window.addWidget(bar);
  const auto show = [this, bar, text] {
    const QString barcode = ToQt(form_.ScannedBarcode());
    text->setText(RightToLeft(QStringLiteral("باركد «\u2068%1\u2069» در اين شمارش نيست.").arg(barcode)));
    bar->setVisible(form_.cmdAddScanned.Visible());
  };
  show();
  scanOffered_ = form_.cmdAddScanned.StateChanged.Subscribe(show);
}

void InvCountingWindow::AddLineFinder(QBoxLayout& window) {
  LineFinder& finder = form_.Finder();
  finder_ = new LineFinderBar(finder, this);
  blind_->Conceals(finder_->Progress());
  Binding().Bind(finder.txtFindLine, finder_->Box());
  Binding().Bind(finder.cboLineKind, finder_->Kinds());
  AddCommand(finder_->PlaceOfCommand(), finder.cmdAllLines, "Ctrl+Shift+F");
  window.addWidget(finder_);
}

void InvCountingWindow::AddLines(QBoxLayout& window) {
  lastInOrder_ = lines_;
  setTabOrder(previousInFocusChain(), lines_);  // made before the menu that switches its columns
  lines_->setAccessibleName(QStringLiteral("سطرهاي شمارش"));
  SetUpLineColumns(*lines_);
  Binding().Bind(form_.flexDetail, *lines_);
  KeepColumns(*lines_, form_.Preferences(), "Columns.flexDetail");
  lines_->SetEnterMoves({.down = form_.EnterGoesDown(), .skipped = LineColumn::Rate});
  lines_->SetLockedHint([this] {
    const QString edit = WithKeys(QStringLiteral("«اصلاح»"), QStringLiteral("Ctrl+E"));
    if (!form_.IsFinal()) return QStringLiteral("براي نوشتن در اين سطرها %1 را بزنيد.").arg(edit);
    return QStringLiteral("اين شمارش نهايي است: براي نوشتن، %1 و سپس %2 را بزنيد.")
        .arg(WithKeys(QStringLiteral("«بازگشت به موقت»"), QStringLiteral("Ctrl+Shift+R")), edit);
  });
  window.addWidget(lines_, 1);
  finder_->Follow(*lines_);
  connect(blind_, &BlindEntry::changed, this, [this] {
    ShowUnequalCounts(*lines_, !blind_->IsOn());
    form_.SetBlind(blind_->IsOn());
  });
  connect(lines_, &GridView::reported, this, [this](const QString& sentence) { status_->Say(sentence); });
  connect(lines_, &GridView::unknownScan, this,
          [this](const QString& barcode) { form_.OfferScanned(FromQt(barcode)); });
  // The grid itself handles the key that leaves it.
  connect(new QShortcut(Qt::CTRL | Qt::Key_Tab, this), &QShortcut::activated, lines_,
          [this] { lines_->setFocus(Qt::ShortcutFocusReason); });
  connect(&Binding(), &FormBinding::commandDone, this, &InvCountingWindow::CommandDone);
}

/// After these commands the user continues in the lines.
void InvCountingWindow::CommandDone(const Button& command) {
  const int added = std::exchange(added_, 0);
  if (&command == &form_.cmdAddScanned && added > 0) {
    lines_->setFocus(Qt::OtherFocusReason);
    lines_->Scanning().Scanned(ToQt(form_.ScannedBarcode()));  // its count is typed next
  } else if (&command == &form_.cmdGoods && added > 0) {
    GoToLine(form_.flexDetail.Rows() - added);
  } else if (&command == &form_.cmdEdit || &command == &form_.cmdGoods || &command == &form_.cmdCalc) {
    GoToLine(std::max(1, form_.flexDetail.Row()));
  }
}

/// Moves to the column for figures, unless the current column already takes figures or scanned barcodes.
void InvCountingWindow::GoToLine(int row) {
  Grid& lines = form_.flexDetail;
  const QWidget* const dialog = QApplication::activeModalWidget();
  if (lines.Locked() || row >= lines.Rows() || (dialog != nullptr && dialog != this)) return;
  const bool keepsColumn =
      lines.Col() == LineColumn::Barcode || (lines.IsEditable(lines.Col()) && !blind_->Hides(lines.Col()));
  lines.UserMoveTo(row, keepsColumn ? lines.Col() : blind_->ColumnToFill());
}

void InvCountingWindow::AddTotals(QBoxLayout& window) {
  auto* const totals = new QWidget(this);
  totals->setObjectName(QStringLiteral("totals"));
  blind_->Conceals(*totals);
  auto* const bar = new QHBoxLayout(totals);
  bar->setContentsMargins(0, 0, 0, 0);
  bar->setSpacing(8);
  window.addWidget(totals);
  AddTotal(*bar, QStringLiteral("جمع مبلغ كسري"), form_.txtTotalBelowValue, kShortageColor);
  AddTotal(*bar, QStringLiteral("جمع مبلغ اضافي"), form_.txtTotalAboveValue, kSurplusColor);
  AddTotal(*bar, QStringLiteral("جمع مبلغ موجودي شمارش شده"), form_.txtTotalValue, {});
}

void InvCountingWindow::AddTotal(QBoxLayout& bar, const QString& title, TextBox& total, const QColor& color) {
  auto* const field = new AmountEdit(this);
  Binding().Bind(total, *field);
  QFont bold = font();
  bold.setBold(true);
  field->setFont(bold);
  if (color.isValid()) {
    field->setStyleSheet(QStringLiteral("QLineEdit { color: %1; }").arg(OnDesktop(color).name()));
  }
  auto* const label = new QLabel(title, this);
  label->setBuddy(field);
  field->setAccessibleName(title);
  bar.addWidget(label);
  bar.addWidget(field, 1);
  setTabOrder(lastInOrder_, field);
  lastInOrder_ = field;
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
