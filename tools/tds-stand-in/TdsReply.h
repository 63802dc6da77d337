#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/sql/Recordset.h"

namespace koru::test {

/// The bodies of what the suite's server says to a client.

/// Its version, and that it does not encrypt.
[[nodiscard]] std::string GreetingReply();
[[nodiscard]] std::string SignedInReply();

/// Whether other statements of the same batch are answered behind it.
enum class Behind : bool { Nothing, More };

/// A statement has run and selects nothing; how many rows it wrote, if it is one that writes.
[[nodiscard]] std::string DoneReply(std::optional<std::uint64_t> written, Behind behind);

/// A procedure has run; it selects nothing.
[[nodiscard]] std::string ReturnedReply(std::int32_t value);

/// A sign-in, a statement or a procedure is refused with the server's number and words.
[[nodiscard]] std::string RefusedReply(std::int32_t number, const std::string& text, Behind behind);

/// The answer to a cancel.
[[nodiscard]] std::string CancelledReply();

/// The rows of a selection. A column has the type of what it holds: whole numbers, reals as soon as one of
/// them is one, texts as soon as one of them is. The suite's columns of days (CreateDate, FromDate, ToDate,
/// ReceiveDate) go as days with a time when all that they hold is days; an empty text then is 1900-01-01, as
/// which the server stores it. NULL stays NULL.
[[nodiscard]] std::string RowsReply(const Recordset& rows, Behind behind);

}  // namespace koru::test
