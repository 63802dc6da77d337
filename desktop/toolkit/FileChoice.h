#pragma once

#include <QString>

class QWidget;

namespace koru {

/// How a person is asked for a file, and where that begins.
struct FileQuestion {
  QString title;
  QString start;   ///< a folder or a file; empty: the program's own folder
  QString filter;  ///< as QFileDialog takes them
};

// The dialogs open none of the files that they list. The toolkit's own look into each of them for its type,
// and where one is the open database, closing it again takes the database's locks off (POSIX): another
// program that ends then clears the write-ahead log away that is still written to here.

/// The path of a file that is there; empty when the person gave none.
[[nodiscard]] QString AskForFile(const FileQuestion& question, QWidget* parent);

/// A path to write to; one that is there already only where the person has agreed to replace it. It ends in
/// `suffix` ("pdf"). Empty when the person gave none.
[[nodiscard]] QString AskWhereToSave(const FileQuestion& question, const QString& suffix, QWidget* parent);

}  // namespace koru
