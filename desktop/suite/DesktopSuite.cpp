#include "desktop/suite/DesktopSuite.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

#include "desktop/suite/Windows.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

XlsxPlace PlaceOfWorkbooks(const Messages& messages) {
  XlsxPlace place;
  place.folder = FromQt(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  place.open = [](const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path)));
  };
  place.showMessage = [&messages](const std::string& sentence) {
    messages.ShowMessage(sentences::kWarning, sentence);
  };
  return place;
}

}  // namespace

DesktopSuite::DesktopSuite(std::unique_ptr<DatabaseConnector> databases,
                           const std::filesystem::path& dataFolder)
    : databases_(std::move(databases)), spreadsheets_(PlaceOfWorkbooks(messages_), clock_) {
  RegisterWindows(screen_, records_);
  RegisterDesktopComponents(components_, *databases_, dataFolder);
}

HostServices DesktopSuite::Services() {
  HostServices services{*databases_, components_, screen_, clock_, files_, spreadsheets_};
  services.tables = &tables_;
  return services;
}

}  // namespace koru
