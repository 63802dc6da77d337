#include "desktop/floor/server/Compression.h"

#include <zlib.h>

#include <new>

namespace koru {

std::string Gzip(std::string_view text, int level) {
  constexpr int kGzipFormat = 15 + 16;  // the largest window, with the header of gzip
  constexpr int kMemoryLevel = 8;
  z_stream stream{};
  if (deflateInit2(&stream, level, Z_DEFLATED, kGzipFormat, kMemoryLevel, Z_DEFAULT_STRATEGY) != Z_OK) {
    throw std::bad_alloc();
  }
  std::string packed(deflateBound(&stream, static_cast<uLong>(text.size())), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));  // not changed by deflate
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);  // deflateBound has made room for all of it
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

}  // namespace koru
