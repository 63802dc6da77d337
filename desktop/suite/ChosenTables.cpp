#include "desktop/suite/ChosenTables.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>

#include "adapters/sheet/TableFile.h"
#include "desktop/toolkit/FileChoice.h"
#include "desktop/toolkit/QtText.h"

namespace koru {

std::string ChosenTables::Choose() {
  const QString start =
      last_.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) : last_;
  const QString file =
      AskForFile({QStringLiteral("آوردن شمارش از پرونده"), start,
                  QStringLiteral("اكسل و متن (*.xlsx *.xlsm *.csv *.tsv *.txt);;همة پرونده\u200cها (*)")},
                 QApplication::activeWindow());
  if (!file.isEmpty()) last_ = QFileInfo(file).path();
  return FromQt(file);
}

std::optional<FileTable> ChosenTables::Read(const std::string& path, std::size_t sheet,
                                            const Progress& progress) {
  return ReadTableFile(path, sheet, progress);
}

}  // namespace koru
