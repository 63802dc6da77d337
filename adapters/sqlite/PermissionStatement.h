#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/sql/SqlText.h"

namespace koru {

/// The embedded database has no procedures. `spPelinHasPermission( user, permission )` is this selection: it
/// finds a row when the user holds the right. Throws DatabaseError for any other procedure or number of
/// parameters.
[[nodiscard]] SqlText PermissionStatement(std::string_view procedure,
                                          const std::vector<std::int32_t>& parameters);

}  // namespace koru
