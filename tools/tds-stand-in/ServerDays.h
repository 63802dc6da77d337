#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/tds-stand-in/ServerBatch.h"

namespace koru::test {

/// Whether the suite has a `datetime` column of that name: CreateDate, FromDate, ToDate, ReceiveDate.
[[nodiscard]] bool IsNamedAsDay(std::string_view column);

/// The number of a date in the server's calendar, in which 0 is 1900-01-01; no value for a text that is not a
/// date. The empty text is 0. Of the forms that the server reads, only `yyyy-mm-dd` is known here.
[[nodiscard]] std::optional<std::int32_t> DayNumber(std::string_view text);

/// The statement with the empty text replaced by 1900-01-01 where a date column is compared with it or set to
/// it, as the server does. Throws the server's refusal of a text that is not a date.
[[nodiscard]] std::string WithDaysRead(const ServerBatch& statement);

/// The constraint of a date column in the embedded engine, and the trigger that stores the empty text as
/// 1900-01-01.
[[nodiscard]] std::string DayRules(const std::string& column);
[[nodiscard]] std::string EmptyDayTrigger(const std::string& table, const std::string& column,
                                          const std::string& event);

}  // namespace koru::test
