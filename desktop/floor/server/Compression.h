#pragma once

#include <zlib.h>

#include <string>
#include <string_view>

namespace koru {

/// A text in the format of gzip that is made piece by piece.
class GzipText {
 public:
  /// `level` is 1, the fastest, to 9, the smallest.
  explicit GzipText(int level);
  GzipText(const GzipText&) = delete;
  GzipText& operator=(const GzipText&) = delete;
  ~GzipText();

  void Add(std::string_view text) { Deflate(text, Z_NO_FLUSH); }
  /// The whole; nothing can be added afterwards.
  [[nodiscard]] std::string Finish();

 private:
  void Deflate(std::string_view text, int flush);

  z_stream stream_{};
  std::string packed_;
};

[[nodiscard]] std::string Gzip(std::string_view text, int level);

}  // namespace koru
