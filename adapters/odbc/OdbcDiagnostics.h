#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace koru {

/// One record of what a driver reports about a call that failed.
struct Diagnostic {
  std::string state;        ///< SQLSTATE, five characters
  std::int32_t native = 0;  ///< the server's or driver's own number; 0 where it gave none
  std::string text;         ///< the whole message, the driver's name in brackets before it
};

/// All that a driver reports about the last call on a handle, in the driver's order. `kind` is that of the
/// handle (SQL_HANDLE_DBC, ...).
[[nodiscard]] std::vector<Diagnostic> ReadDiagnostics(std::int16_t kind, void* handle);

/// The record that says most: the server's own message before those of the driver, and these before "could
/// not connect", which drivers put beside every reason. A record without words when there is none.
[[nodiscard]] Diagnostic MostUseful(const std::vector<Diagnostic>& diagnostics);

/// Whether a record has that SQLSTATE.
[[nodiscard]] bool HasState(const std::vector<Diagnostic>& diagnostics, const std::string& state);

/// `message (SQLSTATE, native number)`, for the administrators of the server.
[[nodiscard]] std::string Described(const Diagnostic& diagnostic);

}  // namespace koru
