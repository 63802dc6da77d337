#include "desktop/grid/GridSearch.h"

#include <QAbstractItemModel>
#include <QApplication>

#include "desktop/toolkit/QtText.h"
#include "platform/text/PersianText.h"

namespace koru {

void GridSearch::Forget() {
  text_.clear();
  failed_ = false;
}

QModelIndex GridSearch::Type(const QModelIndex& at, const QString& keys) {
  const bool continues = !text_.isEmpty() && !sinceKey_.hasExpired(QApplication::keyboardInputInterval());
  sinceKey_.start();
  if (!continues) {
    Forget();
    origin_ = at;
  }
  text_ += keys;
  if (text_.trimmed().isEmpty()) {
    Forget();
    return at;
  }
  if (!failed_) {
    const QModelIndex found = Find(at, continues ? at.row() : at.row() + 1);
    if (found.isValid()) return found;
    failed_ = true;
  }
  return origin_.isValid() ? QModelIndex(origin_) : at;
}

bool GridSearch::IsWholeTextOf(const QModelIndex& cell) const {
  return FoldedText(cell.data().toString()) == FoldedText(text_);
}

std::string FoldedText(const QString& text) { return FoldPersian(FromQt(text.trimmed())); }

QModelIndex GridSearch::Find(const QModelIndex& at, int firstRow) const {
  const std::string wanted = FoldPersian(FromQt(text_));
  const int rows = at.model()->rowCount();
  QModelIndex begins;
  for (int i = 0; i < rows; ++i) {
    const QModelIndex index = at.siblingAtRow((firstRow + i) % rows);
    const std::string text = FoldPersian(FromQt(index.data().toString()));
    if (text == wanted) return index;
    if (!begins.isValid() && text.starts_with(wanted)) begins = index;
  }
  return begins;
}

}  // namespace koru
