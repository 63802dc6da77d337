#pragma once

#include <QString>

class QWidget;

namespace koru {

/// The title and the starting point of a file dialog.
struct FileQuestion {
  QString title;
  QString start;   ///< a folder or a file; empty: the program's own folder
  QString filter;  ///< as QFileDialog takes them
};

// The dialogs open none of the files that they list. Qt's default icon provider opens each file to find its
// type; if the file is the open database, closing it releases the database's POSIX locks, and another program
// that exits then deletes the write-ahead log that this one still writes to.

/// The path of an existing file; empty if the user cancels.
[[nodiscard]] QString AskForFile(const FileQuestion& question, QWidget* parent);

/// A path to write to, which ends in `suffix` ("pdf"); empty if the user cancels. If the file exists, the
/// user has agreed to replace it.
[[nodiscard]] QString AskWhereToSave(const FileQuestion& question, const QString& suffix, QWidget* parent);

}  // namespace koru
