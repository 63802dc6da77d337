#pragma once

#include <QLineEdit>
#include <QString>

namespace koru {

/// Formats 1234567.5 as 1,234,567.5; a text that is not a plain number remains as it is.
[[nodiscard]] QString GroupedNumber(const QString& text);

/// A field that shows an amount with a separator every three digits. Its text, its selection and the copied
/// text are the plain number.
class AmountEdit : public QLineEdit {
  Q_OBJECT

 public:
  explicit AmountEdit(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace koru
