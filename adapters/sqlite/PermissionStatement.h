#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/sql/SqlText.h"

namespace koru {

/// The embedded database has no procedures. This statement replaces `spPelinHasPermission( user, permission
/// )`: it returns a row if the user has the right. Throws DatabaseError for any other procedure or number of
/// parameters.
[[nodiscard]] SqlText PermissionStatement(std::string_view procedure,
                                          const std::vector<std::int32_t>& parameters);

}  // namespace koru
