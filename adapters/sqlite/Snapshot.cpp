#include "adapters/sqlite/Snapshot.h"

#include <algorithm>
#include <utility>

#include "adapters/sqlite/BindLiteral.h"
#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

/// A calculation has two to four hoisted subqueries. More sets are kept only up to this number, so that
/// statements with ever different literals do not fill the memory.
constexpr std::size_t kMaxKeySets = 16;

const Literal& LiteralOf(const std::vector<Literal>& literals, int number) {
  return literals.at(static_cast<std::size_t>(number - 1));
}

std::vector<std::int64_t> ReadKeys(SqliteStatement& subquery) {
  std::vector<std::int64_t> keys;
  while (subquery.Step()) keys.push_back(subquery.Integer(0));
  return keys;
}

}  // namespace

Snapshot::Snapshot(SqliteConnection& connection, std::size_t keptStatements)
    : connection_(connection), statements_(keptStatements, [this](const std::string& normalized) {
        HoistedStatement translated = TranslateHoisted(normalized, connection_);
        return KeptStatement{connection_.Prepare(translated.sql), std::move(translated.subqueries)};
      }) {}

void Snapshot::Begin() {
  connection_.Execute("BEGIN");
  open_ = true;
}

void Snapshot::End() noexcept {
  if (!std::exchange(open_, false)) return;
  keySets_.clear();
  try {
    if (connection_.InTransaction()) connection_.Execute("COMMIT");
  } catch (const DatabaseError&) {  // NOLINT(bugprone-empty-catch): it has only read
  }
}

bool Snapshot::IsOpen() {
  if (open_ && !connection_.InTransaction()) End();
  return open_;
}

SqliteStatement* Snapshot::Ready(const NormalizedStatement& statement) {
  KeptStatement& kept = statements_.Get(statement.text);
  if (!kept.statement.IsReadOnly()) return nullptr;
  BindAll(kept.statement, statement.literals);
  if (keySets_.size() > kMaxKeySets) keySets_.clear();
  for (const Subquery& subquery : kept.subqueries) {
    kept.statement.BindPointer(subquery.parameter, &KeysOf(subquery, statement.literals),
                               RankedKeySet::kPointerType);
  }
  return &kept.statement;
}

const RankedKeySet& Snapshot::KeysOf(const Subquery& subquery, const std::vector<Literal>& literals) {
  const std::vector<int>& numbers = subquery.literals;
  const auto found = std::find_if(keySets_.begin(), keySets_.end(), [&](const KeptKeySet& kept) {
    // A set in some order serves where any order does.
    return kept.sql == subquery.sql && (subquery.order.empty() || kept.order == subquery.order) &&
           std::equal(numbers.begin(), numbers.end(), kept.values.begin(), kept.values.end(),
                      [&](int number, const Literal& value) { return LiteralOf(literals, number) == value; });
  });
  if (found != keySets_.end()) return found->keys;
  SqliteStatement statement = connection_.Prepare(subquery.sql + subquery.order);
  std::vector<Literal> values;
  values.reserve(numbers.size());
  for (const int number : numbers) values.push_back(LiteralOf(literals, number));
  BindAll(statement, values);
  keySets_.push_front({subquery.sql, subquery.order, std::move(values), RankedKeySet(ReadKeys(statement))});
  return keySets_.front().keys;
}

}  // namespace koru
