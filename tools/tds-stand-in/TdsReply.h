#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/sql/Recordset.h"

namespace koru::test {

/// The bodies of the server's messages to a client.

/// Its version, and that it does not encrypt.
[[nodiscard]] std::string GreetingReply();
[[nodiscard]] std::string SignedInReply();

/// Whether results of further statements of the same batch follow this one.
enum class MoreResults : bool { No, Yes };

/// A statement without rows has run; `written` is the number of rows that it wrote.
[[nodiscard]] std::string DoneReply(std::optional<std::uint64_t> written, MoreResults more);

/// A procedure has run; it selects nothing.
[[nodiscard]] std::string ReturnedReply(std::int32_t value);

/// A sign-in, a statement or a procedure is refused with the server's number and words.
[[nodiscard]] std::string RefusedReply(std::int32_t number, const std::string& text, MoreResults more);

/// The answer to a cancel.
[[nodiscard]] std::string CancelledReply();

/// The rows of a selection. The type of a column follows from its values: text when one is a text, else real
/// when one is a real, else whole number. The suite's date columns (CreateDate, FromDate, ToDate,
/// ReceiveDate) are sent as `datetime` when all their values are dates; an empty text then is 1900-01-01, as
/// the server stores it. NULL stays NULL.
[[nodiscard]] std::string RowsReply(const Recordset& rows, MoreResults more);

}  // namespace koru::test
