#include "adapters/sqlite/PersianFunctions.h"

#include <sqlite3.h>

#include <exception>
#include <memory>
#include <string_view>

#include "adapters/sqlite/LikePattern.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/PersianText.h"

namespace koru {
namespace {

std::string_view TextOf(sqlite3_value* value) {
  const void* text = sqlite3_value_text(value);
  return {static_cast<const char*>(text), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

int Collate(void* /*unused*/, int sizeA, const void* a, int sizeB, const void* b) {
  const std::string_view textA(static_cast<const char*>(a), static_cast<std::size_t>(sizeA));
  const std::string_view textB(static_cast<const char*>(b), static_cast<std::size_t>(sizeB));
  return textA == textB ? 0 : ComparePersian(textA, textB);
}

void DeletePattern(void* pattern) {
  std::unique_ptr<LikePattern>(static_cast<LikePattern*>(pattern)).reset();
}

/// SQLite calls like(pattern, text) for `text like pattern`. A pattern that is constant for a statement is
/// parsed once.
void Like(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
    return;
  try {
    if (const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0))) {
      sqlite3_result_int(context, kept->Matches(TextOf(arguments[1])) ? 1 : 0);
      return;
    }
    auto pattern = std::make_unique<LikePattern>(TextOf(arguments[0]));
    sqlite3_result_int(context, pattern->Matches(TextOf(arguments[1])) ? 1 : 0);
    sqlite3_set_auxdata(context, 0, pattern.release(), DeletePattern);
  } catch (const std::exception& failure) {
    sqlite3_result_error(context, failure.what(), -1);
  }
}

}  // namespace

void RegisterPersianFunctions(sqlite3* connection) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  int result = sqlite3_create_collation_v2(connection, "KORU", SQLITE_UTF8, nullptr, Collate, nullptr);
  if (result == SQLITE_OK) {
    result =
        sqlite3_create_function_v2(connection, "like", 2, kFlags, nullptr, Like, nullptr, nullptr, nullptr);
  }
  if (result != SQLITE_OK) throw DatabaseError(sqlite3_errmsg(connection), result, {});
}

}  // namespace koru
