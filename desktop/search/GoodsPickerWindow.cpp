#include "desktop/search/GoodsPickerWindow.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "desktop/fields/Fields.h"
#include "desktop/search/CriteriaBox.h"
#include "desktop/search/GoodsList.h"
#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/PlainText.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WindowPlace.h"
#include "platform/sql/DatabaseError.h"

// The widgets belong to their window, as the toolkit's widgets do.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {
namespace {

constexpr QSize kSizeForOne(680, 520);
constexpr QSize kSizeForSeveral(1080, 560);

bool IsEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

}  // namespace

GoodsPickerWindow::GoodsPickerWindow(GoodsFinder& finder, OfferedStore store,
                                     std::optional<std::vector<PickedGood>> basket, QWidget* parent)
    : QDialog(parent), finder_(finder), store_(std::move(store)), several_(basket.has_value()) {
  if (basket) picked_ = std::move(*basket);
  setObjectName(QStringLiteral("GrnBPGoodPicker"));
  setWindowTitle(several_ ? QStringLiteral("انتخاب كالاها") : QStringLiteral("انتخاب كالا"));
  typed_.setSingleShot(true);
  connect(&typed_, &QTimer::timeout, this, &GoodsPickerWindow::Find);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(10, 10, 10, 10);
  layout->setSpacing(8);
  AddSearchLine(*layout);
  AddLists(*layout);
  AddButtons(*layout);
  resize(FirstSize(several_ ? kSizeForSeveral : kSizeForOne));
  if (several_) ShowBasket(0);
  Find();
}

void GoodsPickerWindow::AddSearchLine(QBoxLayout& window) {
  auto* const row = new QHBoxLayout;
  window.addLayout(row);
  filter_ = new QLineEdit(this);
  filter_->setObjectName(QStringLiteral("filter"));
  filter_->setPlaceholderText(QStringLiteral("بخشي از نام، كد يا باركد كالا"));
  filter_->setClearButtonEnabled(true);
  filter_->installEventFilter(this);
  connect(filter_, &QLineEdit::textChanged, this, [this] { typed_.start(0); });
  auto* const name = new QLabel(QStringLiteral("جستجو"), this);
  name->setBuddy(filter_);
  row->addWidget(name);
  row->addWidget(filter_, 1);
  storeOnly_ = new QCheckBox(this);
  storeOnly_->setObjectName(QStringLiteral("storeOnly"));
  storeOnly_->setVisible(store_.id != GoodsFinder::kAllStores);
  storeOnly_->setChecked(store_.id != GoodsFinder::kAllStores);
  storeOnly_->setText(QStringLiteral("فقط كالاهاي «%1»").arg(PlainCaption(ToQt(store_.name))));
  storeOnly_->setToolTip(QStringLiteral("كالاهايي كه در اين انبار رسيد يا خروج دارند"));
  connect(storeOnly_, &QCheckBox::toggled, this, [this] {
    Find();
    filter_->setFocus();
  });
  row->addWidget(storeOnly_);
}

void GoodsPickerWindow::AddLists(QBoxLayout& window) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(8);
  window.addLayout(row, 1);
  auto* const found = new QVBoxLayout;
  row->addLayout(found, 3);
  results_ = new GoodsList(this);
  results_->setObjectName(QStringLiteral("results"));
  results_->setAccessibleName(QStringLiteral("كالاهاي يافت شده"));
  results_->installEventFilter(this);
  connect(results_, &QTableWidget::cellDoubleClicked, this, [this] { Take(); });
  found->addWidget(results_);
  status_ = new QLabel(this);
  status_->setObjectName(QStringLiteral("status"));
  status_->setTextFormat(Qt::PlainText);  // a server's words may look like markup
  status_->setWordWrap(true);
  found->addWidget(status_);
  if (several_) AddBasket(*row);
}

void GoodsPickerWindow::AddBasket(QBoxLayout& row) {
  auto* const side = new QVBoxLayout;
  row.addLayout(side, 2);
  basketTitle_ = new QLabel(this);
  side->addWidget(basketTitle_);
  basket_ = new GoodsList(this);
  basket_->setObjectName(QStringLiteral("basket"));
  basket_->setAccessibleName(QStringLiteral("كالاهاي انتخاب شده"));
  basket_->hideColumn(1);
  basket_->installEventFilter(this);
  connect(basket_, &QTableWidget::cellDoubleClicked, this, [this] { RemoveFromBasket(); });
  side->addWidget(basket_);
  auto* const bar = new QHBoxLayout;
  side->addLayout(bar);
  QPushButton* const remove = AddButton(*bar, "remove", QStringLiteral("حذف از فهرست"));
  remove->setToolTip(QStringLiteral("حذف كالاي جاري (Delete)"));
  connect(remove, &QPushButton::clicked, this, &GoodsPickerWindow::RemoveFromBasket);
  QPushButton* const clear = AddButton(*bar, "clear", QStringLiteral("خالي كردن فهرست"));
  connect(clear, &QPushButton::clicked, this, [this] {
    picked_.clear();
    ShowBasket(0);
    filter_->setFocus();
  });
  bar->addStretch();
}

QPushButton* GoodsPickerWindow::AddButton(QBoxLayout& bar, const char* name, const QString& text) {
  auto* const button = new QPushButton(text, this);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  button->installEventFilter(this);
  bar.addWidget(button);
  return button;
}

void GoodsPickerWindow::AddButtons(QBoxLayout& window) {
  auto* const bar = new QHBoxLayout;
  window.addLayout(bar);
  bar->addWidget(
      NewHint(several_ ? QStringLiteral("Enter: افزودن به فهرست    Delete: حذف از فهرست    Ctrl+Enter: تاييد")
                       : QStringLiteral("Enter: انتخاب كالا    Esc: انصراف"),
              this));
  bar->addStretch();
  QPushButton* const cancel = AddButton(*bar, "cancel", QStringLiteral("انصراف"));
  cancel->setToolTip(QStringLiteral("Esc"));
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  ok_ = AddButton(*bar, "ok", QStringLiteral("تاييد"));
  ok_->setProperty("main", true);
  ok_->setToolTip(QStringLiteral("Ctrl+Enter"));
  connect(ok_, &QPushButton::clicked, this, [this] {
    if (several_) {
      accept();
    } else {
      Take();
    }
  });
}

bool GoodsPickerWindow::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (KeyPressed(object, key->key(), key->modifiers())) return true;
  }
  return QDialog::eventFilter(object, event);
}

bool GoodsPickerWindow::KeyPressed(const QObject* object, int key, Qt::KeyboardModifiers held) {
  if (IsEnter(key) && held.testFlag(Qt::ControlModifier)) {
    ok_->click();
    return true;
  }
  if (object == filter_) {
    if (key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown || key == Qt::Key_PageUp) {
      QKeyEvent move(QEvent::KeyPress, key, Qt::NoModifier);
      QCoreApplication::sendEvent(results_, &move);
      return true;
    }
  }
  if ((object == filter_ || object == results_) && IsEnter(key)) {
    Take();
    return true;
  }
  if (object == basket_ && key == Qt::Key_Delete) {
    RemoveFromBasket();
    return true;
  }
  const auto* const button = qobject_cast<const QPushButton*>(object);
  if (button != nullptr && IsEnter(key)) {
    const_cast<QPushButton*>(button)->click();
    return true;
  }
  return false;
}

void GoodsPickerWindow::Find() {
  typed_.stop();
  try {
    finder_.OnlyOfStore(storeOnly_->isChecked() ? store_.id : GoodsFinder::kAllStores);
    ShowFound(finder_.Find(FromQt(filter_->text())));
  } catch (const DatabaseError& failure) {
    found_.clear();
    results_->SetGoods(found_, 0);
    ShowStatus(QStringLiteral("كالاها خوانده نشدند: ") + ToQt(failure.ServerText()), true);
  }
  if (!several_) ok_->setEnabled(!found_.empty());
}

void GoodsPickerWindow::ShowFound(const FoundGoods& found) {
  found_ = found.goods;
  results_->SetGoods(found_, 0);
  const QString count = QString::number(found_.size());
  if (found.more) {
    ShowStatus(QStringLiteral("%1 كالا نشان داده شده است. براي ديدن بقيه، متن بيشتري بنويسيد.").arg(count),
               false);
  } else if (found_.empty()) {
    ShowStatus(storeOnly_->isChecked() ? QStringLiteral("كالايي با اين مشخصات در اين انبار يافت نشد.")
                                       : QStringLiteral("كالايي با اين مشخصات يافت نشد."),
               false);
  } else {
    ShowStatus(QStringLiteral("%1 كالا يافت شد.").arg(count), false);
  }
}

void GoodsPickerWindow::ShowStatus(const QString& text, bool failure) {
  status_->setText(text);
  status_->setStyleSheet(
      failure ? QStringLiteral("QLabel { color: %1; }").arg(OnDesktop({0xA8, 0x1E, 0x16}).name())
              : QString());
}

void GoodsPickerWindow::Take() {
  if (typed_.isActive()) Find();
  const int current = results_->Current();
  if (filter_->hasFocus()) filter_->selectAll();  // ready for the next text or scan
  if (current < 0 || current >= static_cast<int>(found_.size())) return;
  const PickedGood& good = found_[static_cast<std::size_t>(current)];
  if (!several_) {
    picked_ = {good};
    accept();
    return;
  }
  const auto there = std::find_if(picked_.begin(), picked_.end(),
                                  [&](const PickedGood& one) { return one.barcode == good.barcode; });
  const auto place = static_cast<int>(there - picked_.begin());
  if (there == picked_.end()) picked_.push_back(good);
  ShowBasket(place);
}

void GoodsPickerWindow::RemoveFromBasket() {
  const int current = basket_->Current();
  if (current < 0 || current >= static_cast<int>(picked_.size())) return;
  picked_.erase(picked_.begin() + current);
  ShowBasket(current);
}

void GoodsPickerWindow::ShowBasket(int current) {
  basket_->SetGoods(picked_, current);
  basketTitle_->setText(picked_.empty() ? QStringLiteral("هنوز كالايي انتخاب نشده است")
                                        : QStringLiteral("%1 كالاي انتخاب شده").arg(picked_.size()));
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
