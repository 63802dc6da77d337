#include "adapters/system/DraftFiles.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "adapters/system/ErrorText.h"
#include "adapters/system/LocalTime.h"
#include "adapters/system/LockFile.h"
#include "adapters/system/ReadWhole.h"
#include "adapters/system/SetAside.h"
#include "adapters/system/WriteWhole.h"
#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
#include "platform/text/Fingerprint.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDraft = ".draft";
constexpr const char* kUnfinished = ".draft.new";
constexpr const char* kLock = ".lock";

[[noreturn]] void Fail(const char* what, const fs::path& file, const std::error_code& error) {
  throw InputError(what + LeftToRight(TextOf(file)) + " (" + ErrorText(error) + ")");
}

fs::path Beside(const fs::path& draft, const char* ending) {
  return fs::path(draft).replace_extension(ending);
}

/// A draft whose file exists is locked.
class DraftFile : public Draft {
 public:
  explicit DraftFile(fs::path file, LockFile lock = {}) : file_(std::move(file)), lock_(std::move(lock)) {}

  void Write(std::string_view text) override {
    std::error_code error;
    if (fs::create_directories(file_.parent_path(), error)) {
      fs::permissions(file_.parent_path(), fs::perms::owner_all, error);
    }
    error.clear();
    if (!lock_.IsHeld()) lock_ = LockFile(Beside(file_, kLock), error);
    if (!error) error = WriteWhole(file_, Beside(file_, kUnfinished), text);
    if (error) Fail("پيش\u200cنويس نوشته نشد: ", file_, error);
  }

  [[nodiscard]] std::string Read() const override {
    std::error_code error;
    std::string text = ReadWhole(file_, error);
    if (error) Fail("پيش\u200cنويس خوانده نشد: ", file_, error);
    return text;
  }

  [[nodiscard]] Moment Written() const override {
    using std::chrono::floor;
    std::error_code unknown;
    const fs::file_time_type time = fs::last_write_time(file_, unknown);
    const auto seconds = floor<std::chrono::seconds>(std::chrono::file_clock::to_sys(time));
    const std::chrono::local_seconds local = LocalTime(unknown ? std::chrono::sys_seconds() : seconds);
    const auto date = floor<std::chrono::days>(local);
    const std::chrono::hh_mm_ss<std::chrono::seconds> clock(local - date);
    return {Date(date), static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count())};
  }

  void Remove() override {
    std::error_code error;
    fs::remove(file_, error);
    if (error) Fail("پيش\u200cنويس پاك نشد: ", file_, error);
    lock_ = {};
    SyncFolder(file_.parent_path());
  }

  std::string SetAside() override {
    std::error_code error;
    const fs::path kept = koru::SetAside(file_, error);
    if (error) Fail("پيش\u200cنويس كنار گذاشته نشد: ", file_, error);
    lock_ = {};
    return TextOf(kept);
  }

 private:
  fs::path file_;
  LockFile lock_;
};

std::string Hexadecimal(std::uint64_t number) {
  std::array<char, 17> text{};
  static_cast<void>(
      std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(number)));
  return text.data();
}

/// How the names of an owner's drafts begin.
std::string PrefixOf(const DraftOwner& owner) {
  return Hexadecimal(Fingerprint(owner.database + "\n" + std::to_string(owner.userID))) + "-";
}

/// The drafts whose names begin so, and those of which a program that was ended has left less than that.
std::vector<fs::path> NewestFirst(const fs::path& folder, const std::string& prefix) {
  std::map<fs::path, fs::file_time_type> drafts;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = TextOf(entry->path().filename());
    if (!name.starts_with(prefix)) continue;
    fs::path draft = entry->path().parent_path() / PathOf(name.substr(0, name.find('.')) + kDraft);
    std::error_code gone;
    if (name.ends_with(kDraft)) drafts[draft] = entry->last_write_time(gone);
    if (name.ends_with(kUnfinished) || name.ends_with(kLock)) drafts.try_emplace(std::move(draft));
  }
  std::vector<fs::path> files;
  files.reserve(drafts.size());
  for (const auto& [file, time] : drafts) files.push_back(file);
  std::sort(files.begin(), files.end(),
            [&](const fs::path& a, const fs::path& b) { return drafts.at(a) > drafts.at(b); });
  return files;
}

}  // namespace

std::unique_ptr<Draft> DraftFiles::Begin(const DraftOwner& owner) {
  std::random_device random;
  const std::uint64_t unique = (std::uint64_t{random()} << 32U) | random();
  return std::make_unique<DraftFile>(folder_ / (PrefixOf(owner) + Hexadecimal(unique) + kDraft));
}

std::unique_ptr<Draft> DraftFiles::FindLeft(const DraftOwner& owner) {
  for (const fs::path& file : NewestFirst(folder_, PrefixOf(owner))) {
    std::error_code error;
    LockFile lock(Beside(file, kLock), error);
    if (!lock.IsHeld()) continue;
    fs::remove(Beside(file, kUnfinished), error);
    if (fs::exists(file, error)) return std::make_unique<DraftFile>(file, std::move(lock));
  }
  return nullptr;
}

}  // namespace koru
