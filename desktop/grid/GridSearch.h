#pragma once

#include <QElapsedTimer>
#include <QPersistentModelIndex>
#include <QString>

namespace koru {

/// What a person types, or a scanner, where cells are not typed into: it looks for the row whose cell in the
/// same column is that text, else for the next one whose cell begins with it. Letter forms, kinds of digits
/// and case do not matter. A text that no cell begins with leads back to where the search began. After a
/// pause (QApplication::keyboardInputInterval) a key begins a new search; what the one before has come to can
/// be asked until it is forgotten.
class GridSearch {
 public:
  /// Takes keys that were typed in the cell `at`; the cell to go to.
  [[nodiscard]] QModelIndex Type(const QModelIndex& at, const QString& keys);
  [[nodiscard]] bool Found() const { return !text_.isEmpty() && !failed_; }
  [[nodiscard]] bool Failed() const { return failed_; }
  [[nodiscard]] const QString& Text() const { return text_; }
  void Forget();

 private:
  [[nodiscard]] QModelIndex Find(const QModelIndex& at, int firstRow) const;

  QString text_;
  QPersistentModelIndex origin_;
  QElapsedTimer sinceKey_;
  bool failed_ = false;
};

}  // namespace koru
