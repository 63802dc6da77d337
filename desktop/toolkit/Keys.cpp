#include "desktop/toolkit/Keys.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStringView>
#include <QValidator>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/toolkit/QtText.h"
#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

constexpr std::array<std::pair<int, int>, 16> kNamedKeys{{{Qt::Key_Backspace, 8},
                                                          {Qt::Key_Tab, 9},
                                                          {Qt::Key_Backtab, 9},
                                                          {Qt::Key_Return, 13},
                                                          {Qt::Key_Enter, 13},
                                                          {Qt::Key_Escape, 27},
                                                          {Qt::Key_PageUp, 33},
                                                          {Qt::Key_PageDown, 34},
                                                          {Qt::Key_End, 35},
                                                          {Qt::Key_Home, 36},
                                                          {Qt::Key_Left, 37},
                                                          {Qt::Key_Up, 38},
                                                          {Qt::Key_Right, 39},
                                                          {Qt::Key_Down, 40},
                                                          {Qt::Key_Insert, 45},
                                                          {Qt::Key_Delete, 46}}};

constexpr int kVirtualF1 = 112;

/// The letters of the Persian keyboard and, in the same order, the Latin letters of their keys.
constexpr QStringView kPersianLetters = u"ضصثقفغعهخحشسیيبلاتنمظطزرذدپئ";
constexpr QStringView kLatinKeys = u"QWERTYUIOPASDDFGHJKLZXCVBNMM";
static_assert(kPersianLetters.size() == kLatinKeys.size());

int VirtualKey(int key) {
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return kVirtualF1 + key - Qt::Key_F1;
  if (key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
      (key >= Qt::Key_A && key <= Qt::Key_Z)) {
    return key;
  }
  const auto* const named = std::find_if(kNamedKeys.begin(), kNamedKeys.end(),
                                         [key](const auto& pair) { return pair.first == key; });
  if (named != kNamedKeys.end()) return named->second;
  if (key > 0xFFFF) return 0;
  const qsizetype place = kPersianLetters.indexOf(QChar(static_cast<char16_t>(key)));
  return place < 0 ? 0 : kLatinKeys.at(place).unicode();
}

/// The first of several lines or columns.
QString FirstLine(const QString& text) {
  const auto* const end =
      std::find_if(text.begin(), text.end(), [](QChar c) { return c == u'\n' || c == u'\r' || c == u'\t'; });
  return text.left(end - text.begin());
}

/// Keeps the separators: while a number is being typed, its groups are not complete.
QString DigitsTyped(const QString& text) { return ToQt(LatinDigits(FromQt(FirstLine(text)))); }

bool IsPartOfNumbers(const QString& text) {
  const std::u32string characters = text.toStdU32String();
  return std::all_of(characters.begin(), characters.end(), IsPartOfNumber);
}

class NumberValidator : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& text, int& at) const override {
    const QString latin = DigitsTyped(text).trimmed();
    // A stored number in exponent form has a letter.
    if (!IsPartOfNumbers(latin) && !IsTypedNumber(FromQt(latin))) return Invalid;
    if (latin != text) {
      text = latin;
      at = std::min(at, static_cast<int>(text.size()));
    }
    return Acceptable;
  }
};

}  // namespace

KeyPress PressOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  const int shift = (held.testFlag(Qt::ShiftModifier) ? 1 : 0) +
                    (held.testFlag(Qt::ControlModifier) ? 2 : 0) + (held.testFlag(Qt::AltModifier) ? 4 : 0);
  return {VirtualKey(event.key()), shift};
}

QString NumberTyped(const QString& text) { return ToQt(TypedNumberText(FromQt(FirstLine(text)))); }

bool IsNumberKey(const QKeyEvent& key) { return IsPartOfNumbers(key.text()); }

void AcceptOnlyNumbers(QLineEdit& edit) {
  edit.setValidator(new NumberValidator(&edit));  // NOLINT(cppcoreguidelines-owning-memory)
}

void KeepDigitsLatin(QLineEdit& edit) {
  QObject::connect(&edit, &QLineEdit::textChanged, &edit, [&edit](const QString& text) {
    const QString latin = DigitsTyped(text);
    if (latin == text) return;
    const qsizetype fromEnd = text.size() - edit.cursorPosition();
    const bool typed = edit.isModified();
    const QSignalBlocker blocked(edit);
    edit.setText(latin);
    edit.setModified(typed);
    edit.setCursorPosition(static_cast<int>(std::max<qsizetype>(0, latin.size() - fromEnd)));
  });
}

}  // namespace koru
