#include "desktop/search/GoodSearchWindow.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCursor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/fields/Fields.h"
#include "desktop/fields/SelectorEdit.h"
#include "desktop/search/CriteriaBox.h"
#include "desktop/search/ShortcutMenu.h"
#include "desktop/toolkit/HelpKey.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/WindowPlace.h"
#include "search/Keys.h"
#include "search/frmGoodSearch.h"

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kDefaultSize(980, 470);

/// A text criterion. Ctrl+Z is the form's shortcut for leaving the search; the field must not also undo the
/// last input, because the criteria are kept for the next search.
class CriterionEdit : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const KeyPress press = PressOf(*event);
    if (press.key == kKeyZ && press.shift == kShiftCtrl) {
      event->ignore();
    } else {
      QLineEdit::keyPressEvent(event);
    }
  }
};

QComboBox* NewList(QWidget* parent, const char* nothing) {
  auto* const list = new QComboBox(parent);
  list->setPlaceholderText(QString::fromUtf8(nothing));
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(8);
  list->setToolTip(RightToLeft(QStringLiteral("Delete: پاك كردن انتخاب")));
  return list;
}

}  // namespace

GoodSearchWindow::GoodSearchWindow(frmGoodSearch& form, SelectorRecords& records)
    : FormWindow(form), form_(form), records_(records) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(10, 10, 10, 10);
  layout->setSpacing(8);
  auto* const boxes = new QGridLayout;
  boxes->setSpacing(8);
  layout->addLayout(boxes);
  const auto add = [&](const char* title, int row, int column) -> CriteriaBox& {
    auto* const box = new CriteriaBox(QString::fromUtf8(title), this);
    boxes->addWidget(box, row, column);
    boxes->setColumnStretch(column, 1);
    return *box;
  };
  AddGoods(add("كالا", 0, 0));
  AddAmounts(add("قيمت، موجودي و تخفيف", 0, 1));
  AddPlaces(add("گروه، محل و انبار", 1, 0));
  AddUnitsAndType(add("واحد و نوع", 1, 1));
  layout->addStretch();
  AddCommands(*layout);
  AddMenu();
  Binding().Bind(form_.Timer1);
  subscribed_.push_back(form_.txtBarCode.StateChanged.Subscribe([this] { ShowHint(); }));
  subscribed_.push_back(form_.optPrecise.StateChanged.Subscribe([this] { ShowHint(); }));
  ShowHint();
  resize(FirstSize(kDefaultSize));
}

QLineEdit* GoodSearchWindow::NewField(QWidget* parent, TextBox& control, bool code) {
  auto* const field = new CriterionEdit(parent);
  if (code) field->setAlignment(kTrueRight);
  field->setMinimumWidth(80);
  Binding().Bind(control, *field);
  return field;
}

QLabel* GoodSearchWindow::NewName(QWidget* parent, Label& control) {
  auto* const name = new QLabel(parent);
  Binding().Bind(control, *name);
  return name;
}

SelectorEdit* GoodSearchWindow::NewSelector(QWidget* parent, TreeSelector& control, const char* nothing) {
  auto* const field = new SelectorEdit(parent);
  field->SetPlaceholder(QString::fromUtf8(nothing));
  Binding().Bind(control, *field, records_);
  return field;
}

QWidget* GoodSearchWindow::NewCheck(QWidget* parent, CheckBox& control) {
  auto* const box = new QCheckBox(parent);
  Binding().Bind(control, *box);
  return box;
}

void GoodSearchWindow::AddGoods(CriteriaBox& box) {
  const auto add = [&](Label& name, TextBox& control, bool code) {
    QLineEdit* const field = NewField(&box, control, code);
    field->setPlaceholderText(RightToLeft(QStringLiteral("F3: انتخاب از فهرست كالاها")));
    field->setToolTip(QStringLiteral("در جستجوي دقيق، * به جاي هر متن است. F3: انتخاب از فهرست كالاها"));
    box.AddRow(*NewName(&box, name), *field);
  };
  add(form_.lblBarCode, form_.txtBarCode, true);
  add(form_.lblTitle, form_.txtTitle, false);
  add(form_.lblCode, form_.txtCode, true);
  QLineEdit* const notes = NewField(&box, form_.txtNotes, false);
  notes->setToolTip(QStringLiteral("در جستجوي دقيق، ابتداي توضيحات؛ * به جاي هر متن است."));
  box.AddRow(QStringLiteral("توضيحات"), *notes);
  auto* const precise = new QRadioButton(&box);
  auto* const partial = new QRadioButton(&box);
  Binding().Bind(form_.optPrecise, *precise);
  Binding().Bind(form_.optNonPrecise, *partial);
  box.AddLine({precise, partial});
  hint_ = NewHint({}, &box);
  hint_->setObjectName(QStringLiteral("patternHint"));
  box.AddLine({hint_});
}

void GoodSearchWindow::AddLimits(CriteriaBox& box, const char* name, TextBox& minimum, TextBox& maximum) {
  QWidget* const from = NewField(&box, minimum, true);
  QWidget* const to = NewField(&box, maximum, true);
  box.AddRange(QString::fromUtf8(name), *from, *to);
}

void GoodSearchWindow::AddAmounts(CriteriaBox& box) {
  QWidget* const minPrice = NewField(&box, form_.txtMinPrice, true);
  QWidget* const maxPrice = NewField(&box, form_.txtMaxPrice, true);
  box.AddFields(
      {{box.NewName(QStringLiteral("از قيمت")), minPrice}, {NewName(&box, form_.lblMaxPrice), maxPrice}});
  AddLimits(box, "قيمت ارزي", form_.txtMinCurrencyRetailPrice, form_.txtMaxCurrencyRetailPrice);
  auto* const currency = NewList(&box, "همه ارزها");
  Binding().Bind(form_.cmbCMoneyType, *currency);
  box.AddRow(QStringLiteral("نوع ارز"), *currency);
  AddLimits(box, "موجودي", form_.txtMinQty, form_.txtMaxQty);
  AddLimits(box, "درصد تخفيف", form_.txtMinDiscountPercent, form_.txtMaxDiscountPercent);
  QWidget* const known = NewCheck(&box, form_.chkKnownDiscount);
  QWidget* const unknown = NewCheck(&box, form_.chkUnKnownDiscount);
  box.AddLine({known, unknown});
}

void GoodSearchWindow::AddPlaces(CriteriaBox& box) {
  box.AddRow(QStringLiteral("گروه كالا"), *NewSelector(&box, form_.gmpProductGroup, "همه گروهها"));
  box.AddLine({NewCheck(&box, form_.chkAllBranches)});
  SelectorEdit* const place = NewSelector(&box, form_.gmpLocation, "همه محلها");
  box.AddRow(*NewName(&box, form_.lblLocation), *place);
  box.AddLine({NewCheck(&box, form_.chkAllLBranches)});
  SelectorEdit* const store = NewSelector(&box, form_.gmpInventory, "همه انبارها");
  store->setToolTip(QStringLiteral("كالاهايي كه در اين انبار رسيد دارند"));
  box.AddRow(QStringLiteral("رسيد در انبار"), *store);
}

void GoodSearchWindow::AddUnitsAndType(CriteriaBox& box) {
  box.AddRow(QStringLiteral("واحد فروش"), *NewSelector(&box, form_.gtpSalesUnitType, "همه واحدها"));
  box.AddRow(QStringLiteral("واحد خريد"), *NewSelector(&box, form_.gtpPurchaseUnitType, "همه واحدها"));
  auto* const type = NewList(&box, "همه انواع");
  Binding().Bind(form_.cmbGoodType, *type);
  box.AddRow(QStringLiteral("نوع كالا"), *type);
  auto* const types = new QPushButton(&box);
  types->setAutoDefault(true);
  Binding().Bind(form_.cmdGoodType, *types);
  types->setToolTip(QStringLiteral("انتخاب نوعي ديگر"));
  subscribed_.push_back(form_.cmdGoodType.Click.Subscribe([type] {
    type->setFocus();
    type->showPopup();
  }));
  box.AddLine({NewCheck(&box, form_.chkEmptyAllConds), types});
  QWidget* const stock = NewCheck(&box, form_.chkShowExistance);
  QWidget* const value = NewCheck(&box, form_.chkShowRialExistance);
  for (QWidget* const option : {stock, value}) {
    option->setToolTip(QStringLiteral("كالاهاي يافت شده را كم و زياد نمي كند."));
  }
  box.AddLine({stock, value});
}

void GoodSearchWindow::AddCommands(QBoxLayout& window) {
  auto* const bar = new QHBoxLayout;
  window.addLayout(bar);
  AddSearchCommand(*bar, Binding(), form_.cmdNewSearch, QStringLiteral("Ctrl+N"));
  AddSearchCommand(*bar, Binding(), form_.cmdExit, QStringLiteral("Ctrl+Z, Esc"));
  auto* const progress = new QProgressBar(this);
  progress->setMaximumHeight(20);
  Binding().Bind(form_.pgbStatus, *progress);
  bar->addWidget(progress, 1);
  bar->addWidget(NewHint(QStringLiteral("F1: راهنمايي    Tab: خانة بعد"), this));
  AddSearchCommand(*bar, Binding(), form_.cmdSearch, QStringLiteral("Ctrl+S, Enter"), true);
}

void GoodSearchWindow::AddMenu() {
  menu_ = new ShortcutMenu(this);
  menu_->setObjectName(QString::fromStdString(form_.menu.Name()));
  for (MenuItem* const item : {&form_.mnuHelp, &form_.mnuSearch, &form_.mnuNewSearch, &form_.mnuExit}) {
    auto* const action = new QAction(menu_);
    Binding().Bind(*item, *action);
    menu_->addAction(action);
  }
  AddClipboard();
  for (const TextBox* const control :
       {&form_.txtTitle, &form_.txtCode, &form_.txtBarCode, &form_.txtMinPrice, &form_.txtMaxPrice}) {
    Binding().WidgetOf(*control)->setContextMenuPolicy(Qt::PreventContextMenu);  // the form's menu opens
  }
  subscribed_.push_back(form_.mnuHelp.Click.Subscribe([this] { PressHelpKey(*menu_); }));
  subscribed_.push_back(form_.menu.PoppedUp.Subscribe([this](MenuPlace place) { PopUp(place); }));
}

/// What the menu of a text box offers, which the form's menu replaces.
void GoodSearchWindow::AddClipboard() {
  const auto add = [this](const char* caption, auto operation) {
    auto* const action = new QAction(QString::fromUtf8(caption), this);
    connect(action, &QAction::triggered, this, [this, operation] {
      if (auto* const box = qobject_cast<QLineEdit*>(focusWidget())) (box->*operation)();
    });
    clipboard_.push_back(action);
  };
  add("Ctrl+C  رونوشت", &QLineEdit::copy);
  add("Ctrl+V  چسباندن", &QLineEdit::paste);
}

void GoodSearchWindow::PopUp(MenuPlace place) {
  const auto* const box = qobject_cast<QLineEdit*>(focusWidget());
  clipboard_.front()->setEnabled(box != nullptr && box->hasSelectedText());
  clipboard_.back()->setEnabled(box != nullptr && !QApplication::clipboard()->text().isEmpty());
  for (QAction* const action : clipboard_) {
    menu_->removeAction(action);
    if (place == MenuPlace::Cursor) menu_->addAction(action);
  }
  menu_->popup(place == MenuPlace::FormCentre ? mapToGlobal(rect().center()) : QCursor::pos());
}

void GoodSearchWindow::ShowHint() {
  if (!form_.txtBarCode.Tag().empty()) {
    hint_->setText(QStringLiteral("فقط كالاهاي انتخاب شده جستجو مي شوند (Ctrl+N: همه)."));
  } else if (form_.optPrecise.Chosen()) {
    hint_->setText(QStringLiteral("تمام متن بايد برابر باشد؛ * به جاي هر متن است."));
  } else {
    hint_->setText(QStringLiteral("بخشي از متن كافي است."));
  }
}

void GoodSearchWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const QPushButton* const command = FocusedCommand();
  if (enter && (command == nullptr || command == Binding().WidgetOf(form_.cmdSearch))) {
    form_.cmdSearch.UserClick();
  } else if (event->key() == Qt::Key_Escape) {
    form_.cmdExit.UserClick();
  } else {
    FormWindow::keyPressEvent(event);
  }
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
