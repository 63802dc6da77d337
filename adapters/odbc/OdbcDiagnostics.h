#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"

namespace koru {

/// A diagnostic record: what a driver reports about a failed call.
struct Diagnostic {
  std::string state;        ///< SQLSTATE, five characters
  std::int32_t native = 0;  ///< the number of the server or driver; 0 if it has none
  std::string text;         ///< the whole message, after the driver's name in brackets
};

/// The diagnostic records of the last call on a handle, in the driver's order. `kind` is the type of the
/// handle (SQL_HANDLE_DBC, ...).
[[nodiscard]] std::vector<Diagnostic> ReadDiagnostics(std::int16_t kind, void* handle);

/// The most specific record: a message of the server, else one of the driver, else "could not connect", which
/// drivers add to every other reason. An empty record if there are none.
[[nodiscard]] Diagnostic MostUseful(const std::vector<Diagnostic>& diagnostics);

/// What the record means for the user.
[[nodiscard]] DatabaseCause CauseOf(const Diagnostic& diagnostic);

/// Whether a record has that SQLSTATE.
[[nodiscard]] bool HasState(const std::vector<Diagnostic>& diagnostics, const std::string& state);

/// `message (SQLSTATE, native number)`, for the administrators of the server.
[[nodiscard]] std::string Described(const Diagnostic& diagnostic);

}  // namespace koru
