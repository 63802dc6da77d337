#pragma once

#include <string>
#include <string_view>

namespace koru {

/// A statement as it is sent to the suite's server. Each text literal with a character beyond ASCII is
/// written as a national one, `N'...'`: the server converts any other to the code page of the database, where
/// most have no Persian yeh and some no Persian letter at all. Everything else is unchanged. Throws
/// DatabaseError for a text that is not one whole statement.
[[nodiscard]] std::string ServerStatement(const std::string& statement);

/// Sent once on every new connection: dates written yyyy-mm-dd are read so whatever the language of the
/// login; "..." is a name, as the check of typed text assumes; and the settings under which the server
/// permits writing to indexed computed columns.
inline constexpr std::string_view kSessionSettings =
    "SET DATEFORMAT ymd SET ANSI_NULLS, ANSI_PADDING, ANSI_WARNINGS, ARITHABORT, CONCAT_NULL_YIELDS_NULL, "
    "QUOTED_IDENTIFIER ON SET NUMERIC_ROUNDABORT OFF";

}  // namespace koru
