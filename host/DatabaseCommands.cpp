#include "host/DatabaseCommands.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/provider/ConnectorByProvider.h"
#include "adapters/sqlite/FilePath.h"
#include "adapters/system/TemporaryFolder.h"
#include "database/sqlserver/CheckDatabase.h"
#include "database/sqlserver/CopyRows.h"
#include "database/sqlserver/SqlServerSchema.h"
#include "platform/sql/ConnectionText.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// One line of a terminal that is overwritten as the work proceeds.
class ProgressLine {
 public:
  ProgressLine(std::ostream& report, std::string what) : report_(report), what_(std::move(what)) {}

  void Show(int percent) {
    if (std::exchange(shown_, percent) == percent) return;
    report_ << '\r' << what_ << ": " << percent << " %" << std::flush;
  }
  void End() const { report_ << std::endl; }

 private:
  std::ostream& report_;
  std::string what_;
  int shown_ = -1;
};

void FillWithSample(Database& database, SampleSize size, std::ostream& report) {
  const TemporaryFolder folder;
  const std::string file = TextOf(folder.Path() / "sample.db");
  ProgressLine made(report, "دادة نمونه");
  CreateSample(file, size, [&](int percent) { made.Show(percent); });
  made.End();
  ProgressLine copied(report, "نوشتن در پايگاه داده");
  CopyRows(file, database, [&](int percent) { copied.Show(percent); });
  copied.End();
}

}  // namespace

void MakeSampleFile(const std::string& file, SampleSize size, std::ostream& report) {
  ProgressLine line(report, file);
  CreateSample(file, size, [&](int percent) { line.Show(percent); });
  line.End();
}

void MakeSuiteDatabase(const std::string& connectionText, std::optional<SampleSize> sample,
                       std::ostream& report) {
  if (EqualsNoCase(ConnectionText::Parse(connectionText).Get("Provider"), "SQLite")) {
    throw InputError("create-schema با ODBC كار مي كند؛ براي پروندة توكار create-sample را به كار ببريد.");
  }
  const std::unique_ptr<Database> database = OdbcConnector().Connect(connectionText);
  ProgressLine line(report, "جدول ها");
  CreateSqlServerSchema(
      *database, [&](std::size_t done, std::size_t all) { line.Show(static_cast<int>(done * 100 / all)); });
  line.End();
  if (sample) FillWithSample(*database, *sample, report);
}

bool ReportCheck(const std::string& connectionText, std::ostream& report) {
  ConnectorByProvider databases;
  const std::vector<CheckedThing> things = CheckDatabase(databases, connectionText);
  for (const CheckedThing& thing : things) {
    report << (thing.ok ? "ok      " : "FAILED  ") << thing.what << ": " << thing.sentence << std::endl;
  }
  const auto failed =
      std::count_if(things.begin(), things.end(), [](const CheckedThing& thing) { return !thing.ok; });
  report << (failed == 0 ? "همه چيز درست است." : std::to_string(failed) + " مورد درست نيست.") << std::endl;
  return failed == 0;
}

}  // namespace koru
