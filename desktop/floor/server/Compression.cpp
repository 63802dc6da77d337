#include "desktop/floor/server/Compression.h"

#include <array>
#include <new>
#include <utility>

namespace koru {

GzipText::GzipText(int level) {
  constexpr int kGzipFormat = 15 + 16;  // the largest window, with the header of gzip
  constexpr int kMemoryLevel = 8;
  if (deflateInit2(&stream_, level, Z_DEFLATED, kGzipFormat, kMemoryLevel, Z_DEFAULT_STRATEGY) != Z_OK) {
    throw std::bad_alloc();
  }
}

GzipText::~GzipText() { deflateEnd(&stream_); }

std::string GzipText::Finish() {
  Deflate({}, Z_FINISH);
  return std::move(packed_);
}

void GzipText::Deflate(std::string_view text, int flush) {
  constexpr std::size_t kPiece = 16UL * 1024;
  std::array<char, kPiece> piece{};
  stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));  // not changed by deflate
  stream_.avail_in = static_cast<uInt>(text.size());
  do {
    stream_.next_out = reinterpret_cast<Bytef*>(piece.data());
    stream_.avail_out = static_cast<uInt>(piece.size());
    deflate(&stream_, flush);
    packed_.append(piece.data(), piece.size() - stream_.avail_out);
  } while (stream_.avail_out == 0);
}

std::string Gzip(std::string_view text, int level) {
  GzipText packed(level);
  packed.Add(text);
  return packed.Finish();
}

}  // namespace koru
