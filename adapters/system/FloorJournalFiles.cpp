#include "adapters/system/FloorJournalFiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <system_error>

#include "adapters/system/ErrorText.h"
#include "adapters/system/LockFile.h"
#include "adapters/system/ReadWhole.h"
#include "adapters/system/SyncedFile.h"
#include "adapters/system/WriteWhole.h"
#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
#include "platform/text/Fingerprint.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

namespace fs = std::filesystem;
using std::chrono::sys_seconds;

constexpr const char* kJournal = ".journal";
constexpr const char* kUnfinished = ".journal.new";
constexpr const char* kLock = ".lock";
constexpr std::string_view kAside = ".aside";
constexpr std::chrono::days kKeptAside{30};

[[noreturn]] void Fail(const char* what, const fs::path& file, const std::error_code& error) {
  throw InputError(what + LeftToRight(TextOf(file)) + " (" + ErrorText(error) + ")");
}

sys_seconds Now() { return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()); }

std::string ReadJournalFile(const fs::path& file) {
  std::error_code error;
  std::string text = ReadWhole(file, error);
  if (error) Fail("دفتر ارقام گوشي\u200cها خوانده نشد: ", file, error);
  return text;
}

class JournalFile : public FloorJournal {
 public:
  /// `stem` is the path without an ending.
  JournalFile(fs::path stem, LockFile lock) : stem_(std::move(stem)), lock_(std::move(lock)) {
    std::error_code ignored;
    fs::remove(With(kUnfinished), ignored);
    for (const auto& [time, file] : Aside()) {
      if (time + kKeptAside < Now()) fs::remove(file, ignored);
    }
  }

  [[nodiscard]] std::string Read() const override {
    std::error_code error;
    return fs::exists(With(kJournal), error) ? ReadJournalFile(With(kJournal)) : std::string();
  }

  void Begin(std::string_view text) override {
    file_.Close();
    const std::error_code error = WriteWhole(With(kJournal), With(kUnfinished), text);
    if (error) Fail(kNotWritten, With(kJournal), error);
  }

  void Append(std::string_view lines) override {
    std::error_code error;
    if (!file_.IsOpen()) error = file_.Open(With(kJournal));
    if (!error && std::exchange(isTorn_, false)) error = file_.Append("\n");
    if (!error) error = file_.Append(lines);
    isTorn_ = isTorn_ || !file_.IsOpen();
    if (error) Fail(kNotWritten, With(kJournal), error);
  }

  void Sync() override {
    if (!file_.IsOpen()) return;
    const std::error_code error = file_.Sync();
    if (error) Fail(kNotWritten, With(kJournal), error);
  }

  std::string SetAside() override {
    file_.Close();
    std::error_code error;
    // After all that are there, whatever the clock says: the last one is the one that counts.
    auto time = Now();
    if (const auto aside = Aside(); !aside.empty()) {
      time = std::max(time, aside.rbegin()->first + std::chrono::seconds(1));
    }
    fs::path kept = stem_;
    kept += "-" + std::to_string(time.time_since_epoch().count());
    kept += kAside;
    fs::rename(With(kJournal), kept, error);
    if (error == std::errc::no_such_file_or_directory) return {};
    if (error) Fail("دفتر ارقام گوشي\u200cها كنار گذاشته نشد: ", With(kJournal), error);
    SyncFolder(stem_.parent_path());
    return TextOf(kept);
  }

  [[nodiscard]] std::vector<std::string> ReadSetAside() const override {
    const auto aside = Aside();
    std::vector<std::string> texts;
    for (const auto& kept : aside) {
      std::error_code error;
      std::string text = ReadWhole(kept.second, error);
      if (!error) texts.push_back(std::move(text));
    }
    std::reverse(texts.begin(), texts.end());
    return texts;
  }

  void Remove() override {
    file_.Close();
    std::error_code error;
    fs::remove(With(kJournal), error);
    if (error) Fail("دفتر ارقام گوشي\u200cها پاك نشد: ", With(kJournal), error);
    SyncFolder(stem_.parent_path());
  }

 private:
  static constexpr const char* kNotWritten = "دفتر ارقام گوشي\u200cها نوشته نشد: ";

  [[nodiscard]] fs::path With(std::string_view ending) const {
    fs::path file = stem_;
    file += ending;
    return file;
  }

  /// The journals that were set aside, by when that was.
  [[nodiscard]] std::map<sys_seconds, fs::path> Aside() const {
    std::map<sys_seconds, fs::path> files;
    const std::string prefix = TextOf(stem_.filename()) + "-";
    std::error_code error;
    for (fs::directory_iterator entry(stem_.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
      const std::string name = TextOf(entry->path().filename());
      if (!name.starts_with(prefix) || !name.ends_with(kAside)) continue;
      std::int64_t seconds = 0;
      const char* const last = name.data() + name.size() - kAside.size();
      const auto read = std::from_chars(name.data() + prefix.size(), last, seconds);
      if (read.ec == std::errc() && read.ptr == last) {
        files.emplace(sys_seconds(std::chrono::seconds(seconds)), entry->path());
      }
    }
    return files;
  }

  fs::path stem_;
  LockFile lock_;
  SyncedFile file_;
  bool isTorn_ = false;  ///< the text may end in half a line
};

std::string NameOf(const FloorJournalOwner& owner) {
  std::array<char, 17> text{};
  const auto database = static_cast<unsigned long long>(Fingerprint(owner.database));
  static_cast<void>(std::snprintf(text.data(), text.size(), "%016llx", database));
  return std::string(text.data()) + "-" + std::to_string(owner.countingID);
}

}  // namespace

std::unique_ptr<FloorJournal> FloorJournalFiles::Open(const FloorJournalOwner& owner) {
  std::error_code error;
  if (fs::create_directories(folder_, error)) fs::permissions(folder_, fs::perms::owner_all, error);
  const fs::path stem = folder_ / NameOf(owner);
  fs::path lockFile = stem;
  lockFile += kLock;
  error.clear();
  LockFile lock(lockFile, error);
  if (!lock.IsHeld())
    Fail("دفتر ارقام گوشي\u200cهاي اين شمارش در اختيار برنامة ديگري است: ", lockFile, error);
  return std::make_unique<JournalFile>(stem, std::move(lock));
}

bool FloorJournalFiles::Has(const FloorJournalOwner& owner) const {
  fs::path file = folder_ / NameOf(owner);
  file += kJournal;
  std::error_code ignored;
  return fs::exists(file, ignored);
}

}  // namespace koru
