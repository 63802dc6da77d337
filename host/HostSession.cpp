#include "host/HostSession.h"

#include <future>
#include <utility>

#include "host/ProgramConnector.h"
#include "platform/text/Text.h"

namespace koru {

HostSession::HostSession(const std::filesystem::path& settings)
    : settingsFile_(settings),
      settings_(settings),
      suite_(ProgramConnector()),
      drafts_(settings.parent_path() / "drafts") {
  suite_.OfferFloor(settings.parent_path() / "floor");
}

HostServices HostSession::Services() {
  HostServices services = suite_.Services();
  services.drafts = &drafts_;
  services.runDraftWrite = [this](std::packaged_task<void()> write) { draftWriter_.Run(std::move(write)); };
  services.preferences = &settings_.FormPreferences();
  return services;
}

std::vector<HostSession::User> HostSession::Users(const std::string& connection) {
  Recordset rows = suite_.Databases()
                       .Connect(connection)
                       ->Open(SqlText("Select ID,FullName from tblUser Order By FullName"));
  std::vector<User> users;
  for (; !rows.AtEnd(); rows.MoveNext()) {
    users.push_back({rows.Field("ID").Integer(), rows.Field("FullName").Text()});
  }
  return users;
}

std::vector<CountingRow> HostSession::Countings(const std::string& connection) {
  return ReadCountings(*suite_.Databases().Connect(connection));
}

bool IsConnection(std::string_view connection) {
  const std::string_view text = Trim(connection);
  return !text.empty() && text != "0";
}

}  // namespace koru
