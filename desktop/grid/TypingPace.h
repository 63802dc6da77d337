#pragma once

#include <QString>
#include <optional>

class QKeyEvent;

namespace koru {

/// Distinguishes the texts that a scanner sends from typed ones, by the timestamps of their key events: a
/// scanner's keys are a few milliseconds apart. Keys without a timestamp and repeated keys are a user's.
class TypingPace {
 public:
  /// The longest time between two keys of a scanner. Eight digits in a row are never typed that fast.
  static constexpr int kMaxMsBetweenKeys = 50;

  /// A key that types a character. `before` is what had been typed into the cell until now: nothing if this
  /// is the first character.
  void Add(const QKeyEvent& key, const std::optional<QString>& before);
  void Forget();

  /// Whether the key follows the last character at a scanner's pace.
  [[nodiscard]] bool IsContinuedBy(const QKeyEvent& key) const;
  /// Whether the last characters are a barcode: sent at a scanner's pace, and beginning with 8 digits or more
  /// than a number can be.
  [[nodiscard]] bool IsBarcode() const;
  /// The characters that were sent at one pace.
  [[nodiscard]] const QString& Text() const { return text_; }
  /// What had been typed into the cell before them; nothing if they are the first.
  [[nodiscard]] const std::optional<QString>& Before() const { return before_; }

 private:
  QString text_;
  std::optional<QString> before_;
  quint64 lastMs_ = 0;
};

/// Whether the key types a character, rather than being a command or a modifier.
[[nodiscard]] bool TypesCharacter(const QKeyEvent& key);
/// Whether the key is Shift, Ctrl or another key that is only held with others.
[[nodiscard]] bool IsModifierKey(const QKeyEvent& key);

}  // namespace koru
