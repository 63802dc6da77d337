#include "host/HostSession.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>

#include "adapters/log/LoggedConnector.h"
#include "adapters/provider/ConnectorByProvider.h"
#include "desktop/suite/Windows.h"
#include "desktop/toolkit/QtText.h"
#include "host/Environment.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// Workbooks go where the person keeps documents, and open in the program that the person uses for them.
XlsxPlace PlaceOfWorkbooks(const Messages& messages) {
  XlsxPlace place;
  place.folder = FromQt(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  place.open = [](const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path)));
  };
  place.tell = [&messages](const std::string& sentence) {
    messages.ShowMessage(sentences::kWarning, sentence);
  };
  return place;
}

/// Makes every database connection of the program.
std::unique_ptr<DatabaseConnector> ProgramConnector() {
  return std::make_unique<LoggedConnector>(std::make_unique<ConnectorByProvider>(),
                                           LogSettingsOfEnvironment());
}

}  // namespace

HostSession::HostSession(const std::filesystem::path& settings)
    : settings_(IniFile::Read(settings)),
      databases_(ProgramConnector()),
      spreadsheets_(PlaceOfWorkbooks(messages_), clock_) {
  RegisterWindows(screen_, records_);
  RegisterDesktopComponents(components_, *databases_);
}

HostServices HostSession::Where() {
  return {*databases_, components_, screen_, clock_, files_, spreadsheets_};
}

std::vector<HostSession::User> HostSession::Users(const std::string& connection) {
  Recordset rows =
      databases_->Connect(connection)->Open(SqlText("Select ID,FullName from tblUser Order By FullName"));
  std::vector<User> users;
  for (; !rows.AtEnd(); rows.MoveNext()) {
    users.push_back({rows.Field("ID").Integer(), rows.Field("FullName").Text()});
  }
  return users;
}

bool IsConnection(std::string_view connection) {
  const std::string_view text = Trim(connection);
  return !text.empty() && text != "0";
}

}  // namespace koru
