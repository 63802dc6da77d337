#include "desktop/Fields.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>

namespace koru {
namespace {

class WheelStop : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    if (static_cast<const QComboBox*>(object)->view()->isVisible()) return false;
    event->ignore();  // what the list stands in may scroll
    return true;
  }
};

}  // namespace

// The widgets belong to their window, as the toolkit's widgets do.
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

QString RightToLeft(const QString& text) { return QChar(0x200F) + text; }

void KeepFromWheel(QComboBox& list) {
  list.setFocusPolicy(Qt::StrongFocus);  // the wheel brings the keyboard nowhere either
  list.installEventFilter(new WheelStop(&list));
}
// NOLINTEND(cppcoreguidelines-owning-memory)

}  // namespace koru
