#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/tds-stand-in/ServerBatch.h"

namespace koru::test {

/// A procedure that returns one number when a selection finds a row, and another when it finds none.
struct StandInProcedure {
  std::string name;
  std::vector<std::string> parameters;  ///< with their @
  std::string selection;                ///< with the names of the parameters
  std::int32_t found = 0;
  std::int32_t notFound = 0;

  /// The selection for a call with these arguments. Throws the server's refusal of too few or too many.
  [[nodiscard]] std::string Selection(const std::vector<std::int32_t>& arguments) const;
};

/// Reads `create procedure NAME @A int, ... as begin set nocount on if exists (SELECTION) return N return M
/// end`. Throws NotKnownHere for a procedure of another form.
[[nodiscard]] StandInProcedure ReadProcedure(const ServerBatch& batch);

}  // namespace koru::test
