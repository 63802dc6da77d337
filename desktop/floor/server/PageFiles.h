#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/floor/server/HttpAnswer.h"

namespace koru {

/// The files of the page, which is in the Qt resources under a folder. `/` is index.html, whose @VERSION@ is
/// replaced; the other files are `/v/<version>/<file>`, where the version is a hash of all files: browsers
/// keep them for ever.
class PageFiles {
 public:
  explicit PageFiles(std::string_view folder = ":/floor");

  /// The file of a path; nothing when there is none.
  [[nodiscard]] std::optional<HttpAnswer> Find(const std::string& path, bool acceptsGzip) const;
  [[nodiscard]] const std::string& Version() const { return version_; }

 private:
  struct File {
    HttpAnswer plain;
    HttpAnswer packed;
  };

  std::string version_;
  std::map<std::string, File> files_;  ///< by path
};

}  // namespace koru
