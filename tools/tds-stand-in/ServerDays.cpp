#include "tools/tds-stand-in/ServerDays.h"

#include <algorithm>
#include <array>

#include "platform/text/Date.h"
#include "platform/text/Text.h"
#include "tools/tds-stand-in/ServerBatch.h"
#include "tools/tds-stand-in/ServerRefusals.h"

namespace koru::test {
namespace {

constexpr std::string_view kEmptyDay = "1900-01-01";
constexpr std::chrono::year kFirstYear{1753};
constexpr int kNoDay = 241;
constexpr int kNoSuchDay = 242;

bool LooksLikeDay(std::string_view text) {
  static constexpr std::string_view kForm = "dddd-dd-dd";
  const auto fits = [](char c, char form) { return form == 'd' ? c >= '0' && c <= '9' : c == form; };
  return std::equal(text.begin(), text.end(), kForm.begin(), kForm.end(), fits);
}

bool IsComparison(const std::string& word) {
  static constexpr std::array<std::string_view, 7> kOperators{"=", "<>", "!=", "<", "<=", ">", ">="};
  return std::find(kOperators.begin(), kOperators.end(), word) != kOperators.end();
}

/// The text between the apostrophes, also after an N.
std::string_view Content(std::string_view literal) {
  literal.remove_prefix(literal.find('\'') + 1);
  literal.remove_suffix(1);
  return literal;
}

}  // namespace

bool IsNamedAsDay(std::string_view column) {
  static constexpr std::array<std::string_view, 4> kDays{"CreateDate", "FromDate", "ToDate", "ReceiveDate"};
  return std::any_of(kDays.begin(), kDays.end(),
                     [&](std::string_view name) { return EqualsNoCase(name, column); });
}

std::optional<std::int32_t> DayNumber(std::string_view text) {
  static constexpr std::chrono::sys_days kFirst = std::chrono::year{1900} / 1 / 1;
  if (text.empty()) return 0;
  const std::optional<Date> day = LooksLikeDay(text) ? ParseIso(text) : std::nullopt;
  if (!day || day->year() < kFirstYear) return {};
  return static_cast<std::int32_t>((std::chrono::sys_days(*day) - kFirst).count());
}

std::string WithDaysRead(const ServerBatch& batch) {
  std::string read = batch.Text();
  // From the end, so that earlier positions stay valid.
  for (std::size_t at = batch.Size(); at-- > 2;) {
    const SqlToken token = batch.Token(at);
    const bool isText = token.kind == SqlTokenKind::String || token.kind == SqlTokenKind::NationalString;
    if (!isText || !IsComparison(batch.Word(at - 1)) || !IsNamedAsDay(batch.Word(at - 2))) continue;
    const std::string literal = batch.Word(at);
    const std::string_view text = Content(literal);
    if (!DayNumber(text)) throw Refusal(LooksLikeDay(text) ? kNoSuchDay : kNoDay, {}, batch.Text());
    if (text.empty()) read.replace(token.end - 1, 0, kEmptyDay);
  }
  return read;
}

std::string DayRules(const std::string& column) {
  const std::string digit = "[0-9]";
  const std::string two = digit + digit;
  const std::string looksLikeDay = column + " glob '" + two + two + "-" + two + "-" + two + "'";
  return " constraint \"" + RuleName(kNoDay, column) + "\" check(" + column + "='' or " + looksLikeDay +
         ") constraint \"" + RuleName(kNoSuchDay, column) + "\" check(case when " + looksLikeDay + " then " +
         column + ">='" + std::to_string(static_cast<int>(kFirstYear)) + "' and date(" + column +
         ",'+0 days') is " + column + " else 1 end)";
}

std::string EmptyDayTrigger(const std::string& table, const std::string& column, const std::string& event) {
  const bool isUpdate = event == "update";
  return "create trigger \"" + table + "." + column + "." + event + "\" after " + event +
         (isUpdate ? " of " + column : "") + " on " + table + " when new." + column + "='' begin update " +
         table + " set " + column + "='" + std::string(kEmptyDay) + "' where rowid=new.rowid; end";
}

}  // namespace koru::test
