#pragma once

#include <cstddef>
#include <string>

namespace koru {

/// What a session could not read of the journal that it has found.
struct JournalDamage {
  enum class Kind {
    Unreadable,     ///< its beginning is damaged, and none of it was read
    OtherCounting,  ///< it is another counting's, and none of it was used
    Lines           ///< some of its lines are damaged; the others were read
  };
  Kind kind = Kind::Unreadable;
  std::size_t lines = 0;  ///< for Lines, their number: each can be a figure, the name of a device, a code
  std::string file;       ///< where the whole journal is kept for 30 days; empty: it is where it was
};

}  // namespace koru
