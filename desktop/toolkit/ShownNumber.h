#pragma once

#include <QLineEdit>
#include <QString>

namespace koru {

/// 1234567.5 as 1,234,567.5; a text that is no plain number as it is.
[[nodiscard]] QString GroupedNumber(const QString& text);

/// A field that shows an amount with a separator every three digits. Its text, what is selected in it and
/// what is copied from it stay the plain number.
class AmountEdit : public QLineEdit {
  Q_OBJECT

 public:
  explicit AmountEdit(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace koru
