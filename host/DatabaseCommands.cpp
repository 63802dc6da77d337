#include "host/DatabaseCommands.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "adapters/system/TemporaryFolder.h"
#include "database/sqlserver/CheckDatabase.h"
#include "database/sqlserver/CopyRows.h"
#include "database/sqlserver/SqlServerSchema.h"
#include "host/ProgramConnector.h"
#include "platform/sql/ConnectionText.h"
#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
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

constexpr std::array<std::string_view, 3> kCompanions = {"-journal", "-wal", "-shm"};

/// Digits, and after them nothing or the ending of a file that the embedded database keeps beside its own.
bool IsWorkingName(std::string_view tail) {
  for (const std::string_view companion : kCompanions) {
    if (tail.ends_with(companion)) {
      tail.remove_suffix(companion.size());
      break;
    }
  }
  return !tail.empty() && tail.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Whether a program holds a lock on the working file that this is or belongs to. A program that writes one
/// does so in one transaction.
bool IsInUse(const std::filesystem::path& path) {
  std::string name = TextOf(path);
  for (const std::string_view companion : kCompanions) {
    if (name.ends_with(companion)) name.resize(name.size() - companion.size());
  }
  const int opened = open(name.c_str(), O_RDWR | O_CLOEXEC);
  if (opened < 0) return false;
  struct flock asked {};
  asked.l_type = F_WRLCK;
  asked.l_whence = SEEK_SET;
  const bool held = fcntl(opened, F_OFD_GETLK, &asked) == 0 && asked.l_type != F_UNLCK;
  close(opened);
  return held;
}

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

void RemoveLeftovers(const std::string& file) {
  const std::filesystem::path target = PathOf(file);
  const std::string beginning = TextOf(target.filename()) + ".new-";
  std::error_code ignored;
  const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
  std::vector<std::filesystem::path> leftovers;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    const std::string name = TextOf(entry.path().filename());
    if (name.starts_with(beginning) && IsWorkingName(name.substr(beginning.size()))) {
      leftovers.push_back(entry.path());
    }
  }
  std::erase_if(leftovers, [](const auto& path) { return IsInUse(path); });
  for (const auto& path : leftovers) std::filesystem::remove(path, ignored);
}

void MakeSampleFile(const std::string& file, SampleSize size, std::ostream& report) {
  RemoveLeftovers(file);
  ProgressLine line(report, file);
  CreateSample(file, size, [&](int percent) { line.Show(percent); });
  line.End();
}

void MakeSuiteDatabase(const std::string& connectionText, std::optional<SampleSize> sample,
                       std::ostream& report) {
  if (EqualsNoCase(ConnectionText::Parse(connectionText).Get("Provider"), "SQLite")) {
    throw InputError("create-schema با ODBC كار مي كند؛ براي پروندة توكار create-sample را به كار ببريد.");
  }
  const std::unique_ptr<Database> database = ProgramConnector()->Connect(connectionText);
  ProgressLine line(report, "جدول ها");
  CreateSqlServerSchema(
      *database, [&](std::size_t done, std::size_t all) { line.Show(static_cast<int>(done * 100 / all)); });
  line.End();
  if (sample) FillWithSample(*database, *sample, report);
}

bool ReportCheck(const std::string& connectionText, std::ostream& report) {
  const std::unique_ptr<DatabaseConnector> databases = ProgramConnector();
  const std::vector<CheckedThing> things = CheckDatabase(*databases, connectionText);
  for (const CheckedThing& thing : things) {
    report << (thing.ok ? "ok      " : "FAILED  ") << thing.what << ": " << thing.sentence << std::endl;
  }
  const auto failed =
      std::count_if(things.begin(), things.end(), [](const CheckedThing& thing) { return !thing.ok; });
  report << (failed == 0 ? "همه چيز درست است." : std::to_string(failed) + " مورد درست نيست.") << std::endl;
  return failed == 0;
}

}  // namespace koru
