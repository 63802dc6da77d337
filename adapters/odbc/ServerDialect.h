#pragma once

#include <string>
#include <string_view>

namespace koru {

/// A statement as it is sent to the suite's server. Each text literal with a character beyond ASCII is
/// written as a national one, `N'...'`: the server converts any other to the code page of the database, where
/// most have no Persian yeh and some no Persian letter at all. Everything else is unchanged. Throws
/// DatabaseError for a text that is not one whole statement.
[[nodiscard]] std::string ServerStatement(const std::string& statement);

/// Whether a statement, as written, inserts rows.
[[nodiscard]] bool IsInsert(std::string_view statement);

/// Sent once on every new connection, whatever the defaults of the login are: dates written yyyy-mm-dd are
/// read so; "..." is a name, as the check of typed text assumes; the settings under which the server permits
/// writing to indexed computed columns; writes report their rows; and a failing statement neither undoes a
/// transaction nor leaves one open.
inline constexpr std::string_view kSessionSettings =
    "SET DATEFORMAT ymd SET ANSI_NULLS, ANSI_PADDING, ANSI_WARNINGS, ARITHABORT, CONCAT_NULL_YIELDS_NULL, "
    "QUOTED_IDENTIFIER ON SET NUMERIC_ROUNDABORT OFF SET NOCOUNT OFF SET XACT_ABORT OFF SET "
    "IMPLICIT_TRANSACTIONS OFF";

}  // namespace koru
