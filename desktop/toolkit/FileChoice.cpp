#include "desktop/toolkit/FileChoice.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QStyle>

namespace koru {
namespace {

/// Chooses icons by the file names and the folder alone.
class NameIcons : public QFileIconProvider {
 public:
  [[nodiscard]] QIcon icon(IconType type) const override { return QFileIconProvider::icon(type); }
  [[nodiscard]] QIcon icon(const QFileInfo& file) const override {
    const auto kind = file.isDir() ? QStyle::SP_DirIcon : QStyle::SP_FileIcon;
    return QApplication::style()->standardIcon(kind);
  }
  [[nodiscard]] QString type(const QFileInfo& file) const override {
    return file.isDir() ? QStringLiteral("پوشه") : file.suffix();
  }
};

class FileChoice {
 public:
  FileChoice(const FileQuestion& question, QWidget* parent)
      : dialog_(parent, Qt::WindowFlags()) {  // the other constructor lists a folder at once
    dialog_.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontUseCustomDirectoryIcons);
    dialog_.setIconProvider(&icons_);
    dialog_.setWindowTitle(question.title);
    dialog_.setNameFilters(question.filter.split(QStringLiteral(";;")));
    const QFileInfo start(question.start.isEmpty() ? QDir::currentPath() : question.start);
    dialog_.setDirectory(start.isDir() ? start.filePath() : start.path());
    if (!start.isDir()) dialog_.selectFile(start.fileName());
  }

  /// Empty if the user cancels.
  QString Ask() { return dialog_.exec() == QDialog::Accepted ? dialog_.selectedFiles().value(0) : QString(); }
  QFileDialog& Dialog() { return dialog_; }

 private:
  NameIcons icons_;  // used by the dialog until its destruction
  QFileDialog dialog_;
};

}  // namespace

QString AskForFile(const FileQuestion& question, QWidget* parent) {
  FileChoice choice(question, parent);
  choice.Dialog().setFileMode(QFileDialog::ExistingFile);
  return choice.Ask();
}

QString AskWhereToSave(const FileQuestion& question, const QString& suffix, QWidget* parent) {
  FileChoice choice(question, parent);
  choice.Dialog().setAcceptMode(QFileDialog::AcceptSave);
  choice.Dialog().setDefaultSuffix(suffix);
  const QString ending = QLatin1Char('.') + suffix;
  while (true) {
    QString file = choice.Ask();
    if (file.isEmpty() || file.endsWith(ending, Qt::CaseInsensitive)) return file;
    // The dialog accepts a name with a point as it is; with the suffix it may be the name of another file.
    file += ending;
    if (!QFileInfo::exists(file)) return file;
    choice.Dialog().selectFile(file);
  }
}

}  // namespace koru
