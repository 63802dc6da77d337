#pragma once

#include <QElapsedTimer>
#include <QPersistentModelIndex>
#include <QString>
#include <string>

namespace koru {

/// Incremental search of a column for a text that a user types or a scanner sends. It finds the row whose
/// cell equals the text, else the next one whose cell begins with it; letter forms, kinds of digits and case
/// are ignored. If no cell begins with the text, the search returns to its first cell. A key after a pause
/// (QApplication::keyboardInputInterval) begins a new search; the outcome of the last one remains until
/// Forget.
class GridSearch {
 public:
  /// Adds characters that were typed in the cell `at`. Returns the cell to move to.
  [[nodiscard]] QModelIndex Type(const QModelIndex& at, const QString& keys);
  [[nodiscard]] bool Found() const { return !text_.isEmpty() && !failed_; }
  [[nodiscard]] bool Failed() const { return failed_; }
  [[nodiscard]] const QString& Text() const { return text_; }
  /// Whether the text is the whole text of the cell, not only its beginning.
  [[nodiscard]] bool IsWholeTextOf(const QModelIndex& cell) const;
  void Forget();

 private:
  [[nodiscard]] QModelIndex Find(const QModelIndex& at, int firstRow) const;

  QString text_;
  QPersistentModelIndex origin_;
  QElapsedTimer sinceKey_;
  bool failed_ = false;
};

/// The text in a form that is equal for texts that differ only in letter forms, kinds of digits, case and the
/// blanks around them.
[[nodiscard]] std::string FoldedText(const QString& text);

}  // namespace koru
