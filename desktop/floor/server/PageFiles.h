#pragma once

#include <map>
#include <optional>
#include <string>

#include "desktop/floor/server/HttpAnswer.h"

namespace koru {

/// The files of the page. `/` is index.html; the other files are `/v/<version>/<file>`, where the version is
/// a hash of all files: browsers keep them for ever.
class PageFiles {
 public:
  PageFiles();

  /// The file of a path; nothing when there is none.
  [[nodiscard]] std::optional<HttpAnswer> Find(const std::string& path, bool acceptsGzip) const;

 private:
  struct File {
    HttpAnswer plain;
    HttpAnswer packed;
  };

  std::map<std::string, File> files_;  ///< by path
};

}  // namespace koru
