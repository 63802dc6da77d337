#include "desktop/grid/TypingPace.h"

#include <QKeyEvent>
#include <algorithm>

#include "desktop/toolkit/QtText.h"
#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

constexpr std::size_t kMinBarcodeDigits = 8;
/// Two keys can be typed at once by accident, three cannot.
constexpr qsizetype kMinTextThatIsNoNumber = 3;

}  // namespace

void TypingPace::Add(const QKeyEvent& key, const std::optional<QString>& before) {
  if (!IsContinuedBy(key)) {
    text_.clear();
    before_ = before;
  }
  text_ += key.text();
  lastMs_ = key.timestamp();
}

void TypingPace::Forget() {
  text_.clear();
  before_.reset();
  lastMs_ = 0;
}

bool TypingPace::IsContinuedBy(const QKeyEvent& key) const {
  if (text_.isEmpty() || lastMs_ == 0 || key.isAutoRepeat() || key.timestamp() < lastMs_) return false;
  return key.timestamp() - lastMs_ <= kMaxMsBetweenKeys;
}

bool TypingPace::IsBarcode() const {
  if (text_.size() < kMinTextThatIsNoNumber) return false;
  const std::string text = LatinDigits(FromQt(text_));
  const auto end = std::find_if(text.begin(), text.end(), [](char c) { return c < '0' || c > '9'; });
  return static_cast<std::size_t>(end - text.begin()) >= kMinBarcodeDigits || !IsTypedNumber(text);
}

bool TypesCharacter(const QKeyEvent& key) {
  const QString text = key.text();
  return !text.isEmpty() && text.front().isPrint() &&
         (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == Qt::NoModifier;
}

bool IsModifierKey(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
      return true;
    default:
      return false;
  }
}

}  // namespace koru
