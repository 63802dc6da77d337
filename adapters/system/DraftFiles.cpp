#include "adapters/system/DraftFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "adapters/system/SetAside.h"
#include "platform/text/Errors.h"
#include "platform/text/Fingerprint.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDraft = ".draft";
constexpr const char* kUnfinished = ".draft.new";

[[noreturn]] void Fail(const char* what, const fs::path& file, int error) {
  throw InputError(what + LeftToRight(file.string()) + " (" + std::generic_category().message(error) + ")");
}

/// RAII file descriptor.
class OpenFile {
 public:
  OpenFile() = default;
  OpenFile(const fs::path& file, int flags)
      : descriptor_(open(file.c_str(), flags | O_CLOEXEC, S_IRUSR | S_IWUSR)) {}
  OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OpenFile& operator=(OpenFile&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }

  [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
  /// The lock is the file's, and ends with this object or with the program.
  [[nodiscard]] bool Lock() const { return flock(descriptor_, LOCK_EX | LOCK_NB) == 0; }
  [[nodiscard]] bool Sync() const { return fsync(descriptor_) == 0; }
  [[nodiscard]] struct stat State() const {
    struct stat state {};
    fstat(descriptor_, &state);
    return state;
  }
  [[nodiscard]] bool IsAt(const fs::path& file) const {
    struct stat there {};
    const struct stat here = State();
    return stat(file.c_str(), &there) == 0 && there.st_ino == here.st_ino && there.st_dev == here.st_dev;
  }
  [[nodiscard]] bool WriteAll(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t written = write(descriptor_, text.data(), text.size());
      if (written < 0 && errno != EINTR) return false;
      if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }
  [[nodiscard]] bool ReadAll(std::string& text) const {
    text.resize(static_cast<std::size_t>(State().st_size));
    std::size_t at = 0;
    while (at < text.size()) {
      const ssize_t got = pread(descriptor_, &text[at], text.size() - at, static_cast<off_t>(at));
      if (got == 0 || (got < 0 && errno != EINTR)) return false;
      if (got > 0) at += static_cast<std::size_t>(got);
    }
    return true;
  }

 private:
  int descriptor_ = -1;
};

class DraftFile : public Draft {
 public:
  explicit DraftFile(fs::path file, OpenFile open = {}) : file_(std::move(file)), open_(std::move(open)) {}

  void Write(std::string_view text) override {
    constexpr const char* kNotWritten = "پيش\u200cنويس نوشته نشد: ";
    std::error_code error;
    if (fs::create_directories(file_.parent_path(), error)) {
      fs::permissions(file_.parent_path(), fs::perms::owner_all, error);
    }
    const fs::path unfinished = fs::path(file_).replace_extension(kUnfinished);
    OpenFile next(unfinished, O_WRONLY | O_CREAT | O_TRUNC);
    const bool whole = next.IsOpen() && next.Lock() && next.WriteAll(text) && next.Sync() &&
                       rename(unfinished.c_str(), file_.c_str()) == 0;
    if (!whole) {
      const int reason = errno;
      fs::remove(unfinished, error);
      Fail(kNotWritten, file_, reason);
    }
    open_ = std::move(next);
    SyncFolder();
  }

  [[nodiscard]] std::string Read() const override {
    std::string text;
    const OpenFile file(file_, O_RDONLY);
    if (!file.IsOpen() || !file.ReadAll(text)) Fail("پيش\u200cنويس خوانده نشد: ", file_, errno);
    return text;
  }

  [[nodiscard]] Moment Written() const override {
    const std::time_t when = open_.State().st_mtime;
    std::tm local{};
    localtime_r(&when, &local);
    return {std::chrono::year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday, local.tm_hour,
            local.tm_min};
  }

  void Remove() override {
    std::error_code error;
    fs::remove(file_, error);
    if (error) Fail("پيش\u200cنويس پاك نشد: ", file_, error.value());
    open_ = {};
    SyncFolder();
  }

  std::string SetAside() override {
    std::error_code error;
    const fs::path kept = koru::SetAside(file_, error);
    if (error) Fail("پيش\u200cنويس كنار گذاشته نشد: ", file_, error.value());
    return kept.string();
  }

 private:
  /// A folder that cannot be synced is as good as the file system makes it.
  void SyncFolder() const {
    const OpenFile folder(file_.parent_path(), O_RDONLY | O_DIRECTORY);
    if (folder.IsOpen()) static_cast<void>(folder.Sync());
  }

  fs::path file_;
  OpenFile open_;  ///< holds the lock while the file exists
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

}  // namespace

std::unique_ptr<Draft> DraftFiles::Begin(const DraftOwner& owner) {
  std::random_device random;
  const std::uint64_t unique = (std::uint64_t{random()} << 32U) | random();
  return std::make_unique<DraftFile>(folder_ / (PrefixOf(owner) + Hexadecimal(unique) + kDraft));
}

std::unique_ptr<Draft> DraftFiles::FindLeft(const DraftOwner& owner) {
  const std::string prefix = PrefixOf(owner);
  std::error_code error;
  std::vector<std::pair<fs::file_time_type, fs::path>> files;
  for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (!name.starts_with(prefix)) continue;
    std::error_code gone;
    if (name.ends_with(kUnfinished) && OpenFile(entry->path(), O_RDONLY).Lock())
      fs::remove(entry->path(), gone);
    if (name.ends_with(kDraft)) files.emplace_back(entry->last_write_time(gone), entry->path());
  }
  std::sort(files.rbegin(), files.rend());
  for (const auto& [time, path] : files) {
    OpenFile file(path, O_RDONLY);
    if (file.IsOpen() && file.Lock() && file.IsAt(path)) {
      return std::make_unique<DraftFile>(path, std::move(file));
    }
  }
  return nullptr;
}

}  // namespace koru
