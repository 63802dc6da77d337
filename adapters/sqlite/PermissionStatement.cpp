#include "adapters/sqlite/PermissionStatement.h"

#include <string>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// The error number of the suite's server for a procedure that does not exist.
constexpr int kNoSuchProcedure = 2812;

}  // namespace

SqlText PermissionStatement(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  if (!EqualsNoCase(procedure, "spPelinHasPermission") || parameters.size() != 2) {
    throw DatabaseError("Could not find stored procedure " + std::string(procedure) + ".", kNoSuchProcedure,
                        std::string(procedure));
  }
  return SqlText("select UserID from tblPelinUserPermission where UserID=") + parameters[0] +
         " and FormPermissionID=" + parameters[1];
}

}  // namespace koru
