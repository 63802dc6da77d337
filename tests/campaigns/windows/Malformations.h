#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace koru::test {

/// One way in which a database file is not what it should be.
struct Malformation {
  std::string name;
  /// Spoils the file, which is a whole sample before.
  std::function<void(const std::string& file)> spoil;
  bool isLocked = false;  ///< another program holds the file while it is walked through
};
inline void PrintTo(const Malformation& malformation, std::ostream* out) { *out << malformation.name; }

[[nodiscard]] std::vector<Malformation> Malformations();

}  // namespace koru::test
