#include "desktop/fields/SelectorEdit.h"

#include <QAction>
#include <QHBoxLayout>
#include <QIconEngine>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QToolButton>

#include "desktop/fields/SelectorPopup.h"
#include "desktop/toolkit/PlainText.h"

namespace koru {
namespace {

/// A small, unobtrusive cross, redrawn for every scale of a screen.
class Cross : public QIconEngine {
 public:
  void paint(QPainter* painter, const QRect& place, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    const double unit = place.width() / 16.0;
    const QRectF ends = QRectF(place).adjusted(5 * unit, 5 * unit, -5 * unit, -5 * unit);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(QColor(0x8A, 0x96, 0xA6), 1.6 * unit));
    painter->drawLine(ends.topLeft(), ends.bottomRight());
    painter->drawLine(ends.topRight(), ends.bottomLeft());
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, picture.rect(), mode, state);
    return picture;
  }
  [[nodiscard]] QIconEngine* clone() const override {
    return new Cross(*this);  // NOLINT(cppcoreguidelines-owning-memory): owned by the icon
  }
};

}  // namespace

SelectorEdit::SelectorEdit(QWidget* parent) : QWidget(parent) {
  edit_ = new QLineEdit(this);  // NOLINT(cppcoreguidelines-owning-memory)
  edit_->setReadOnly(true);
  edit_->setProperty("picks", true);
  edit_->installEventFilter(this);
  // Owned by the icon. NOLINTNEXTLINE(cppcoreguidelines-owning-memory)
  cross_ = edit_->addAction(QIcon(new Cross), QLineEdit::TrailingPosition);
  cross_->setToolTip(QStringLiteral("پاك كردن انتخاب (Delete)"));
  connect(cross_, &QAction::triggered, this, [this] { emit recordChosen(Selector::kNothing); });
  button_ = new QToolButton(this);  // NOLINT(cppcoreguidelines-owning-memory)
  button_->setFocusPolicy(Qt::NoFocus);
  button_->setArrowType(Qt::DownArrow);
  button_->setToolTip(QStringLiteral("انتخاب (F4)"));
  connect(button_, &QToolButton::clicked, this, [this] {
    edit_->setFocus();
    emit openRequested({});
  });
  auto* const layout = new QHBoxLayout(this);  // NOLINT(cppcoreguidelines-owning-memory)
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(1);
  layout->addWidget(edit_);
  layout->addWidget(button_);
  setFocusProxy(edit_);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  ShowCross();
}

void SelectorEdit::SetShown(const QString& text, std::int32_t selected) {
  selected_ = selected;
  edit_->setText(text);
  edit_->setCursorPosition(0);
  edit_->setToolTip(PlainToolTip(text));
  ShowCross();
}

void SelectorEdit::SetPlaceholder(const QString& text) { edit_->setPlaceholderText(text); }

void SelectorEdit::ShowCross() { cross_->setVisible(isEnabled() && selected_ != Selector::kNothing); }

void SelectorEdit::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::EnabledChange) ShowCross();
}

void SelectorEdit::Open(const std::vector<SelectorRecord>& records, const QString& typed) {
  if (popup_ == nullptr) {
    popup_ = new SelectorPopup(this);  // NOLINT(cppcoreguidelines-owning-memory)
    connect(popup_, &SelectorPopup::picked, this, &SelectorEdit::recordChosen);
  }
  popup_->OpenUnder(*this, records, selected_, typed);
}

bool SelectorEdit::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (KeyPressed(key->key(), key->modifiers(), key->text())) return true;
  }
  return QWidget::eventFilter(object, event);
}

bool SelectorEdit::KeyPressed(int key, Qt::KeyboardModifiers held, const QString& text) {
  if (key == Qt::Key_F4 || (key == Qt::Key_Down && held.testFlag(Qt::AltModifier)) || key == Qt::Key_Space) {
    emit openRequested({});
    return true;
  }
  if (key == Qt::Key_Delete || key == Qt::Key_Backspace) {
    emit recordChosen(Selector::kNothing);
    return true;
  }
  const bool plain = (held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
  if (plain && !text.isEmpty() && text.at(0).isPrint()) {
    emit openRequested(text);
    return true;
  }
  return false;
}

}  // namespace koru
