#include "desktop/toolkit/FileChoice.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QStyle>

namespace koru {
namespace {

/// Tells files apart by what their names and the folder say.
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
      : dialog_(parent, Qt::WindowFlags()) {  // the other constructor begins to list a folder at once
    dialog_.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontUseCustomDirectoryIcons);
    dialog_.setIconProvider(&icons_);
    dialog_.setWindowTitle(question.title);
    dialog_.setNameFilters(question.filter.split(QStringLiteral(";;")));
    const QFileInfo start(question.start.isEmpty() ? QDir::currentPath() : question.start);
    dialog_.setDirectory(start.isDir() ? start.filePath() : start.path());
    if (!start.isDir()) dialog_.selectFile(start.fileName());
  }

  /// Empty when the person gave no file.
  QString Ask() { return dialog_.exec() == QDialog::Accepted ? dialog_.selectedFiles().value(0) : QString(); }
  QFileDialog& Dialog() { return dialog_; }

 private:
  NameIcons icons_;  // the dialog uses it to its end
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
    // A name with a point in it was taken as it is. With its ending it may be another file's.
    file += ending;
    if (!QFileInfo::exists(file)) return file;
    choice.Dialog().selectFile(file);
  }
}

}  // namespace koru
