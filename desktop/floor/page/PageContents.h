#pragma once

#include <map>
#include <string>

namespace koru {

/// The files of the page that counters open, as they are built into the program.
struct PageContents {
  std::string version;                       ///< a hash of all files
  std::map<std::string, std::string> files;  ///< contents by path: index.html names the others by the version
};

[[nodiscard]] PageContents ReadPage();

}  // namespace koru
