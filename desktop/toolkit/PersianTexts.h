#pragma once

#include <QTranslator>

namespace koru {

/// The Persian captions in the context menus of text boxes, in the words of the program and its manual. The
/// toolkit's own translation has other words, and not every system has it.
class PersianTexts : public QTranslator {
  Q_OBJECT

 public:
  using QTranslator::QTranslator;

  [[nodiscard]] bool isEmpty() const override { return false; }
  [[nodiscard]] QString translate(const char* context, const char* text, const char* comment,
                                  int number) const override;
};

}  // namespace koru
