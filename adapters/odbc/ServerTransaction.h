#pragma once

#include <chrono>
#include <string>

#include "adapters/odbc/OdbcSession.h"
#include "platform/sql/DatabaseError.h"

namespace koru {

/// The transaction of a write batch on a server. It begins with an application lock of the database, which
/// all stations take before they write, so that their batches follow one another. A failing statement does
/// not undo it; a lost connection does, and so do some failures on the server, such as a deadlock.
namespace server_transaction {

/// Waits for the lock at most that long. Throws DatabaseError, with no transaction open, when another station
/// still holds it, and what OdbcSession::Run throws.
void Begin(OdbcSession& session, std::chrono::seconds lockTimeout);

/// Whether the transaction is still open and can be committed. One that cannot is undone.
[[nodiscard]] bool IsAlive(OdbcSession& session);

/// Commits; false when the server had undone the transaction. Throws what OdbcSession::Run throws.
[[nodiscard]] bool Commit(OdbcSession& session);

}  // namespace server_transaction

}  // namespace koru
