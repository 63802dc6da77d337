#include "adapters/sheet/PackedParts.h"

#include <zip.h>

#include <algorithm>

#include "platform/text/Errors.h"

namespace koru {
namespace {

constexpr zip_int64_t kMaxParts = 10000;
constexpr zip_uint64_t kMaxUnpacked = zip_uint64_t{128} << 20U;
constexpr zip_uint64_t kMaxRatio = 300;  ///< of a part larger than kSmall
constexpr zip_uint64_t kSmall = zip_uint64_t{1} << 20U;

constexpr const char* kDamaged = "كامل نيست يا خراب است.";

/// One part while it is unpacked. Gives no more bytes than the file says that the part has.
class UnpackedPart : public QIODevice {
 public:
  UnpackedPart(zip_file_t* part, std::uint64_t size) : part_(part, &zip_fclose), left_(size) {
    open(QIODevice::ReadOnly);
  }

  [[nodiscard]] bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* data, qint64 maxSize) override {
    const zip_int64_t count = zip_fread(part_.get(), data, static_cast<zip_uint64_t>(maxSize));
    if (count < 0 || static_cast<std::uint64_t>(count) > left_) return Fail();
    left_ -= static_cast<std::uint64_t>(count);
    return count;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  qint64 Fail() {
    setErrorString(QStringLiteral("damaged"));
    return -1;
  }

  std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> part_;
  std::uint64_t left_;
};

zip_t* OpenArchive(std::string_view bytes) {
  zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
  if (source == nullptr) return nullptr;
  zip_t* const archive = zip_open_from_source(source, ZIP_RDONLY, nullptr);
  if (archive == nullptr) zip_source_free(source);  // otherwise the archive owns it
  return archive;
}

/// The zip library compares names without case where the writer did not keep to it.
zip_int64_t PlaceOf(zip_t* archive, const std::string& name) {
  const zip_int64_t exact = zip_name_locate(archive, name.c_str(), 0);
  return exact >= 0 ? exact : zip_name_locate(archive, name.c_str(), ZIP_FL_NOCASE);
}

void CheckSizes(zip_t* archive) {
  const zip_int64_t parts = zip_get_num_entries(archive, 0);
  if (parts > kMaxParts) throw InputError("بيش از اندازه بخش دارد و كارپوشة اكسل نيست.");
  zip_uint64_t total = 0;
  for (zip_int64_t i = 0; i < parts; ++i) {
    zip_stat_t part;
    if (zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &part) != 0) throw InputError(kDamaged);
    const bool isBomb =
        part.size > kSmall && part.size / std::max<zip_uint64_t>(part.comp_size, 1) > kMaxRatio;
    if (isBomb || part.size > kMaxUnpacked || (total += part.size) > kMaxUnpacked)
      throw InputError("فشرده است و بازشدة آن بيش از اندازه بزرگ است.");
  }
}

}  // namespace

PackedParts::PackedParts(std::string_view bytes) : archive_(OpenArchive(bytes), &zip_discard) {
  if (!archive_) throw InputError(kDamaged);
  CheckSizes(archive_.get());
}

bool PackedParts::Has(const std::string& name) const { return PlaceOf(archive_.get(), name) >= 0; }

std::int64_t PackedParts::SizeOf(const std::string& name) const {
  const zip_int64_t at = PlaceOf(archive_.get(), name);
  zip_stat_t part;
  if (at < 0 || zip_stat_index(archive_.get(), static_cast<zip_uint64_t>(at), 0, &part) != 0) return 0;
  return static_cast<std::int64_t>(part.size);
}

std::unique_ptr<QIODevice> PackedParts::Open(const std::string& name) const {
  const zip_int64_t at = PlaceOf(archive_.get(), name);
  if (at < 0) throw InputError("كارپوشة اكسل (xlsx) نيست.");
  zip_file_t* const part = zip_fopen_index(archive_.get(), static_cast<zip_uint64_t>(at), 0);
  if (part == nullptr) throw InputError(kDamaged);
  return std::make_unique<UnpackedPart>(part, static_cast<std::uint64_t>(SizeOf(name)));
}

}  // namespace koru
