#include "desktop/fields/Fields.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <memory>

namespace koru {
namespace {

class WheelStop : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    if (static_cast<const QComboBox*>(object)->view()->isVisible()) return false;
    event->ignore();  // the parent of the list may scroll
    return true;
  }
};

}  // namespace

// The widgets are owned by their Qt parents.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
QLineEdit* NewCodeField(QWidget* parent, int leastWidth) {
  auto* const field = new QLineEdit(parent);
  field->setAlignment(kTrueRight);
  field->setMinimumWidth(leastWidth);
  return field;
}

QLabel* NewHint(const QString& text, QWidget* parent) {
  auto* const hint = new QLabel(RightToLeft(text), parent);
  hint->setProperty("hint", true);
  return hint;
}

QLabel* NewNotice(const QString& text, QWidget* parent) {
  auto* const notice = new QLabel(RightToLeft(text), parent);
  notice->setObjectName(QStringLiteral("notice"));
  notice->setProperty("notice", true);
  notice->setTextFormat(Qt::PlainText);
  notice->setWordWrap(true);
  return notice;
}

QString WithKeys(const QString& text, const QString& keys) {
  return QStringLiteral("%1 (\u200E%2\u200E)").arg(text, keys);  // keeps "Ctrl++" left to right
}

QString RightToLeft(const QString& text) { return QChar(0x200F) + text; }

void StyleAgain(QWidget& widget) {
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

void LimitLength(QPlainTextEdit& field, int units) {
  struct Added {
    int begin = 0;
    int end = 0;
  };
  const auto last = std::make_shared<Added>();
  QTextDocument* const text = field.document();
  QObject::connect(text, &QTextDocument::contentsChange, &field,
                   [last, text](int at, int /*removed*/, int added) {
                     *last = {at, std::min(at + added, text->characterCount() - 1)};
                   });
  QObject::connect(&field, &QPlainTextEdit::textChanged, &field, [last, text, units] {
    const int tooMany = text->characterCount() - 1 - units;
    if (tooMany <= 0) return;
    int begin = std::max(last->begin, last->end - tooMany);
    if (begin > last->begin && text->characterAt(begin).isLowSurrogate()) --begin;
    QTextCursor cut(text);
    cut.setPosition(begin);
    cut.setPosition(last->end, QTextCursor::KeepAnchor);
    if (!cut.hasSelection()) return;
    cut.joinPreviousEditBlock();
    cut.removeSelectedText();
    cut.endEditBlock();
  });
}

void KeepFromWheel(QComboBox& list) {
  list.setFocusPolicy(Qt::StrongFocus);  // the wheel does not move the focus either
  list.installEventFilter(new WheelStop(&list));
}
// NOLINTEND(cppcoreguidelines-owning-memory)

}  // namespace koru
