#include "adapters/xlsx/PackedFile.h"

#include <zlib.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace koru {
namespace {

constexpr std::uint32_t kDirectoryEnd = 0x06054b50;
constexpr std::uint32_t kDirectoryEntry = 0x02014b50;
constexpr std::size_t kDirectoryEndSize = 22;
constexpr std::size_t kEntrySize = 46;
constexpr std::size_t kLocalHeaderSize = 30;
constexpr std::uint32_t kStored = 0;
constexpr std::uint32_t kDeflated = 8;
constexpr std::size_t kPieceSize = 65536;

/// The bytes of the file, with little-endian integers. Reading past the end gives 0 or an empty view.
class Bytes {
 public:
  explicit Bytes(std::string content) : content_(std::move(content)) {}

  [[nodiscard]] std::size_t Size() const { return content_.size(); }
  [[nodiscard]] std::uint32_t Number(std::size_t at, std::size_t width) const {
    std::uint32_t number = 0;
    for (std::size_t i = width; i > 0; --i) {
      const std::size_t place = at + i - 1;
      number = (number << 8U) | (place < content_.size() ? static_cast<unsigned char>(content_[place]) : 0U);
    }
    return number;
  }
  [[nodiscard]] std::string_view Text(std::size_t at, std::size_t size) const {
    return at <= content_.size() ? std::string_view(content_).substr(at, size) : std::string_view();
  }

 private:
  std::string content_;
};

/// Unpacks one part; false when it is truncated or damaged.
bool Inflate(std::string_view packed, const std::function<void(std::string_view)>& read) {
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return false;
  std::string input(packed);
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  std::array<char, kPieceSize> piece{};
  int state = Z_OK;
  while (state == Z_OK) {
    stream.next_out = reinterpret_cast<Bytef*>(piece.data());
    stream.avail_out = static_cast<uInt>(piece.size());
    state = inflate(&stream, Z_NO_FLUSH);
    const std::size_t got = piece.size() - stream.avail_out;
    if (got > 0) read(std::string_view(piece.data(), got));
  }
  inflateEnd(&stream);
  return state == Z_STREAM_END;
}

bool ReadPart(const Bytes& file, std::size_t entry, const PartReader& read) {
  const std::string_view name = file.Text(entry + kEntrySize, file.Number(entry + 28, 2));
  const std::size_t size = file.Number(entry + 20, 4);
  const std::size_t header = file.Number(entry + 42, 4);
  const std::size_t begin =
      header + kLocalHeaderSize + file.Number(header + 26, 2) + file.Number(header + 28, 2);
  const std::string_view packed = file.Text(begin, size);
  if (packed.size() != size) return false;
  const auto readPiece = [&](std::string_view piece) { read(name, piece); };
  const std::uint32_t method = file.Number(entry + 10, 2);
  if (method == kStored) readPiece(packed);
  if (method != kStored && (method != kDeflated || !Inflate(packed, readPiece))) return false;
  read(name, {});
  return true;
}

Bytes ContentOf(const std::string& path) {
  std::ifstream file(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
  return Bytes(std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace

bool ReadPackedFile(const std::string& path, const PartReader& read) {
  const Bytes file = ContentOf(path);
  if (file.Size() < kDirectoryEndSize) return false;
  const std::size_t end = file.Size() - kDirectoryEndSize;
  if (file.Number(end, 4) != kDirectoryEnd) return false;
  const std::uint32_t parts = file.Number(end + 10, 2);
  std::size_t entry = file.Number(end + 16, 4);
  for (std::uint32_t part = 0; part < parts; ++part) {
    if (file.Number(entry, 4) != kDirectoryEntry || !ReadPart(file, entry, read)) return false;
    entry +=
        kEntrySize + file.Number(entry + 28, 2) + file.Number(entry + 30, 2) + file.Number(entry + 32, 2);
  }
  return parts > 0;
}

}  // namespace koru
