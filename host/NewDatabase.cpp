#include "host/NewDatabase.h"

#include <array>
#include <string_view>
#include <utility>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "database/Schema.h"
#include "services/dteInvCounting.h"

namespace koru {
namespace {

constexpr const char* kUser = "مدير سيستم";
constexpr std::array kRights = {FormPermission::OpenForNew,
                                FormPermission::New,
                                FormPermission::Edit,
                                FormPermission::Delete,
                                FormPermission::Search,
                                FormPermission::TemporarySave,
                                FormPermission::FinalRegistration,
                                FormPermission::ReturnToTemporary};
constexpr std::array<std::pair<const char*, const char*>, 3> kReports = {
    {{"شمارش با مغايرت و مبلغ", "reports/counting.rpt.txt"},
     {"برگة شمارش انبار (بدون موجودي)", "reports/counting-sheet.rpt.txt"},
     {"فهرست مغايرتها", "reports/differences.rpt.txt"}}};

void Fill(SqliteConnection& connection) {
  SqliteStatement user = connection.Prepare("insert into tblUser (ID, FullName) values (1, ?)");
  user.Bind(1, std::string_view(kUser));
  user.Run();
  SqliteStatement right =
      connection.Prepare("insert into tblPelinUserPermission (UserID, FormPermissionID) values (1, ?)");
  for (const FormPermission one : kRights) {
    right.Bind(1, static_cast<int>(one));
    right.Run();
  }
  SqliteStatement report = connection.Prepare(
      "insert into tblPelinReportTemplate (ID, FormTypeID, Title, FilePath) values (?, 806, ?, ?)");
  int id = 0;
  for (const auto& [title, file] : kReports) {
    report.Bind(1, ++id);
    report.Bind(2, std::string_view(title));
    report.Bind(3, std::string_view(file));
    report.Run();
  }
}

}  // namespace

void MakeEmptyDatabase(const std::string& path) { CreateDatabaseFile(path, EmbeddedSchema(), Fill); }

}  // namespace koru
