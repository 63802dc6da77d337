#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/tds-stand-in/ServerBatch.h"

namespace koru::test {

/// Whether the suite has a column of that name that holds days with a time: CreateDate, FromDate, ToDate,
/// ReceiveDate.
[[nodiscard]] bool IsNamedAsDay(std::string_view column);

/// The number of a day in the server's calendar, in which 0 is 1900-01-01; nothing for a text that is none.
/// The empty text is 0. Of the ways in which the server reads a day, only `yyyy-mm-dd` is known here.
[[nodiscard]] std::optional<std::int32_t> DayNumber(std::string_view text);

/// A statement in which days are texts as the server reads them: the empty text that one of the suite's days
/// is compared with, or set to, is 1900-01-01. Throws its refusal of a text that is no day.
[[nodiscard]] std::string WithDaysRead(const ServerBatch& statement);

/// The rule of a column of days in the embedded engine, and what makes the empty text the day that it is.
[[nodiscard]] std::string DayRules(const std::string& column);
[[nodiscard]] std::string EmptyDayTrigger(const std::string& table, const std::string& column,
                                          const std::string& event);

}  // namespace koru::test
