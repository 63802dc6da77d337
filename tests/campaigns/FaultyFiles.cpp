#include "tests/campaigns/FaultyFiles.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>
#include <utility>

namespace koru::test {
namespace {

constexpr std::size_t kSector = 512;

/// What SQLite allocates for an open file; the inner VFS's file lies right after it.
struct OpenFile {
  sqlite3_file base;
  FaultyFiles* owner;
  std::string* path;  ///< null for a temporary file without a name
};
static_assert(sizeof(OpenFile) % 8 == 0, "what lies after it is aligned");

OpenFile& Outer(sqlite3_file* file) {
  return *reinterpret_cast<OpenFile*>(file);
}  // NOLINT(*-reinterpret-cast)
sqlite3_file* Inner(sqlite3_file* file) {
  return reinterpret_cast<sqlite3_file*>(&Outer(file) +
                                         1);  // NOLINT(*-reinterpret-cast,*-pointer-arithmetic)
}

std::string ContentOf(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Writes [from, to) of the bytes to their place.
void Apply(std::string& content, std::int64_t offset, const std::string& bytes, std::size_t from,
           std::size_t to) {
  const auto begin = static_cast<std::size_t>(offset) + from;
  if (content.size() < begin + (to - from)) content.resize(begin + (to - from), '\0');
  content.replace(begin, to - from, bytes, from, to - from);
}

}  // namespace

/// The functions that SQLite calls.
struct FaultyFileMethods {
  static FaultyFiles& Owner(sqlite3_file* file) { return *Outer(file).owner; }
  static FaultyFiles& Owner(sqlite3_vfs* vfs) { return *static_cast<FaultyFiles*>(vfs->pAppData); }

  static FaultyFiles::Tracked* TrackedOf(sqlite3_file* file) {
    const OpenFile& open = Outer(file);
    return open.path == nullptr ? nullptr : &open.owner->Track(*open.path);
  }

  static int Open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    FaultyFiles& owner = Owner(vfs);
    OpenFile& open = Outer(file);
    open = {};
    if (const int failed = owner.Count(SQLITE_CANTOPEN)) return failed;
    if (name != nullptr) static_cast<void>(owner.Track(name));
    Inner(file)->pMethods = nullptr;
    const int result = owner.inner_->xOpen(owner.inner_, name, Inner(file), flags, outFlags);
    if (Inner(file)->pMethods == nullptr) return result;
    open.base.pMethods = &owner.methods_;
    open.owner = &owner;
    open.path = name == nullptr ? nullptr : std::make_unique<std::string>(name).release();
    return result;
  }

  static int Close(sqlite3_file* file) {
    delete std::exchange(Outer(file).path, nullptr);  // NOLINT(cppcoreguidelines-owning-memory)
    return Inner(file)->pMethods->xClose(Inner(file));
  }

  static int Read(sqlite3_file* file, void* to, int size, sqlite3_int64 offset) {
    if (const int failed = Owner(file).Count(SQLITE_IOERR_READ)) return failed;
    return Inner(file)->pMethods->xRead(Inner(file), to, size, offset);
  }

  static int Write(sqlite3_file* file, const void* from, int size, sqlite3_int64 offset) {
    FaultyFiles& owner = Owner(file);
    if (owner.KillsNow()) Inner(file)->pMethods->xWrite(Inner(file), from, size / 2, offset);
    if (const int failed = owner.Count(owner.calls_ % 2 == 0 ? SQLITE_FULL : SQLITE_IOERR_WRITE))
      return failed;
    const int result = Inner(file)->pMethods->xWrite(Inner(file), from, size, offset);
    if (auto* const tracked = TrackedOf(file)) {
      tracked->unsynced.push_back(
          {offset, std::string(static_cast<const char*>(from), static_cast<std::size_t>(size))});
    }
    return result;
  }

  static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    if (const int failed = Owner(file).Count(SQLITE_IOERR_TRUNCATE)) return failed;
    if (auto* const tracked = TrackedOf(file)) tracked->unsynced.push_back({size, {}});
    return Inner(file)->pMethods->xTruncate(Inner(file), size);
  }

  static int Sync(sqlite3_file* file, int flags) {
    if (const int failed = Owner(file).Count(SQLITE_IOERR_FSYNC)) {
      Owner(file).hasFailedSync_ = true;
      return failed;
    }
    // A real sync costs time and proves nothing here: the disk is the one that is tracked.
    static_cast<void>(flags);
    if (auto* const tracked = TrackedOf(file)) {
      tracked->synced = ContentOf(*Outer(file).path);
      tracked->unsynced.clear();
    }
    return SQLITE_OK;
  }

  static int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    if (const int failed = Owner(file).Count(SQLITE_IOERR_FSTAT)) return failed;
    return Inner(file)->pMethods->xFileSize(Inner(file), size);
  }

  static int Lock(sqlite3_file* file, int level) {
    if (const int failed = Owner(file).Count(SQLITE_IOERR_LOCK)) return failed;
    return Inner(file)->pMethods->xLock(Inner(file), level);
  }
  static int Unlock(sqlite3_file* file, int level) {
    return Inner(file)->pMethods->xUnlock(Inner(file), level);
  }
  static int CheckReservedLock(sqlite3_file* file, int* result) {
    return Inner(file)->pMethods->xCheckReservedLock(Inner(file), result);
  }
  static int FileControl(sqlite3_file* file, int what, void* value) {
    return Inner(file)->pMethods->xFileControl(Inner(file), what, value);
  }
  static int SectorSize(sqlite3_file* /*file*/) { return static_cast<int>(kSector); }
  /// Promises nothing but what every disk keeps.
  static int Characteristics(sqlite3_file* /*file*/) { return 0; }

  static int ShmMap(sqlite3_file* file, int page, int size, int extend, void volatile** at) {
    if (const int failed = Owner(file).Count(SQLITE_IOERR_SHMMAP)) return failed;
    return Inner(file)->pMethods->xShmMap(Inner(file), page, size, extend, at);
  }
  static int ShmLock(sqlite3_file* file, int offset, int count, int flags) {
    if ((flags & SQLITE_SHM_UNLOCK) == 0) {
      if (const int failed = Owner(file).Count(SQLITE_IOERR_SHMLOCK)) return failed;
    }
    return Inner(file)->pMethods->xShmLock(Inner(file), offset, count, flags);
  }
  static void ShmBarrier(sqlite3_file* file) { Inner(file)->pMethods->xShmBarrier(Inner(file)); }
  static int ShmUnmap(sqlite3_file* file, int deleteIt) {
    return Inner(file)->pMethods->xShmUnmap(Inner(file), deleteIt);
  }

  static int Delete(sqlite3_vfs* vfs, const char* name, int syncFolder) {
    FaultyFiles& owner = Owner(vfs);
    if (const int failed = owner.Count(SQLITE_IOERR_DELETE)) return failed;
    FaultyFiles::Tracked& tracked = owner.Track(name);
    if (syncFolder != 0) tracked = {};  // else the file may still be there after a power cut
    return owner.inner_->xDelete(owner.inner_, name, syncFolder);
  }
  static int Access(sqlite3_vfs* vfs, const char* name, int flags, int* result) {
    FaultyFiles& owner = Owner(vfs);
    if (const int failed = owner.Count(SQLITE_IOERR_ACCESS)) return failed;
    return owner.inner_->xAccess(owner.inner_, name, flags, result);
  }

  static sqlite3_io_methods All() {
    sqlite3_io_methods methods{};
    methods.iVersion = 2;
    methods.xClose = Close;
    methods.xRead = Read;
    methods.xWrite = Write;
    methods.xTruncate = Truncate;
    methods.xSync = Sync;
    methods.xFileSize = FileSize;
    methods.xLock = Lock;
    methods.xUnlock = Unlock;
    methods.xCheckReservedLock = CheckReservedLock;
    methods.xFileControl = FileControl;
    methods.xSectorSize = SectorSize;
    methods.xDeviceCharacteristics = Characteristics;
    methods.xShmMap = ShmMap;
    methods.xShmLock = ShmLock;
    methods.xShmBarrier = ShmBarrier;
    methods.xShmUnmap = ShmUnmap;
    return methods;
  }
};

FaultyFiles::FaultyFiles()
    : inner_(sqlite3_vfs_find(nullptr)), vfs_(*inner_), methods_(FaultyFileMethods::All()) {
  vfs_.zName = "koru-faulty";
  vfs_.szOsFile = static_cast<int>(sizeof(OpenFile)) + inner_->szOsFile;
  vfs_.pAppData = this;
  vfs_.pNext = nullptr;
  vfs_.xOpen = FaultyFileMethods::Open;
  vfs_.xDelete = FaultyFileMethods::Delete;
  vfs_.xAccess = FaultyFileMethods::Access;
  // Not the inner ones, which would take `this` for their own data.
  vfs_.xFullPathname = [](sqlite3_vfs* vfs, const char* name, int size, char* full) {
    auto* const inner = FaultyFileMethods::Owner(vfs).inner_;
    return inner->xFullPathname(inner, name, size, full);
  };
  sqlite3_vfs_register(&vfs_, 1);
}

FaultyFiles::~FaultyFiles() {
  sqlite3_vfs_unregister(&vfs_);
  sqlite3_vfs_register(inner_, 1);
}

void FaultyFiles::Arrange(Fault fault, long n) {
  fault_ = fault;
  failAt_ = n;
  calls_ = 0;
}

int FaultyFiles::Count(int failure) {
  const bool wasDown = IsDown();
  ++calls_;
  if (fault_ == Fault::Kill && calls_ == failAt_) static_cast<void>(std::raise(SIGKILL));
  if (wasDown || IsDown() || (fault_ == Fault::Once && calls_ == failAt_)) return failure;
  return SQLITE_OK;
}

FaultyFiles::Tracked& FaultyFiles::Track(const std::string& path) {
  const auto [found, isNew] = files_.try_emplace(path);
  if (isNew && std::filesystem::exists(path)) found->second.synced = ContentOf(path);
  return found->second;
}

void FaultyFiles::WriteDisk(const std::filesystem::path& folder, std::mt19937& random) const {
  const auto chance = [&] { return random() % 2 == 0; };
  for (const auto& [path, file] : files_) {
    if (path.ends_with("-shm")) continue;
    if (!file.synced && (file.unsynced.empty() || chance())) continue;
    std::string content = file.synced.value_or("");
    std::vector<Change> changes = file.unsynced;
    std::shuffle(changes.begin(), changes.end(), random);
    for (const Change& change : changes) {
      if (change.bytes.empty()) {
        if (chance()) content.resize(static_cast<std::size_t>(change.offset), '\0');
        continue;
      }
      for (std::size_t at = 0; at < change.bytes.size(); at += kSector) {
        if (chance())
          Apply(content, change.offset, change.bytes, at, std::min(at + kSector, change.bytes.size()));
      }
    }
    std::ofstream(folder / std::filesystem::path(path).filename(), std::ios::binary) << content;
  }
}

}  // namespace koru::test
