#include "adapters/sqlite/Snapshot.h"

#include <algorithm>
#include <utility>

#include "adapters/sqlite/BindLiteral.h"
#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

/// A calculation has two to four selections; statements about ever other keys do not pile them up.
constexpr std::size_t kKeptSelections = 16;

const Literal& LiteralOf(const std::vector<Literal>& literals, int number) {
  return literals.at(static_cast<std::size_t>(number - 1));
}

std::vector<std::int64_t> ReadKeys(SqliteStatement& selection) {
  std::vector<std::int64_t> keys;
  while (selection.Step()) keys.push_back(selection.Integer(0));
  return keys;
}

}  // namespace

Snapshot::Snapshot(SqliteConnection& connection, std::size_t keptStatements)
    : connection_(connection), statements_(keptStatements, [this](const std::string& shape) {
        ShapeOverKeys translated = TranslateOverKeys(shape, connection_);
        return KeptStatement{connection_.Prepare(translated.sql), std::move(translated.selections)};
      }) {}

void Snapshot::Begin() {
  connection_.Execute("BEGIN");
  open_ = true;
}

void Snapshot::End() noexcept {
  if (!std::exchange(open_, false)) return;
  ranks_.clear();
  try {
    if (connection_.InTransaction()) connection_.Execute("COMMIT");
  } catch (const DatabaseError&) {  // NOLINT(bugprone-empty-catch): it has only read
  }
}

bool Snapshot::Stands() {
  if (open_ && !connection_.InTransaction()) End();
  return open_;
}

SqliteStatement* Snapshot::Ready(const StatementShape& shape) {
  KeptStatement& kept = statements_.Get(shape.text);
  if (!kept.statement.IsReadOnly()) return nullptr;
  BindAll(kept.statement, shape.literals);
  if (ranks_.size() > kKeptSelections) ranks_.clear();
  for (const Selection& selection : kept.selections) {
    kept.statement.BindPointer(selection.parameter, &RanksOf(selection, shape.literals),
                               KeyRanks::kPointerType);
  }
  return &kept.statement;
}

const KeyRanks& Snapshot::RanksOf(const Selection& selection, const std::vector<Literal>& literals) {
  const std::vector<int>& numbers = selection.literals;
  const auto found = std::find_if(ranks_.begin(), ranks_.end(), [&](const KeptRanks& kept) {
    // Keys in some order serve where the order does not count.
    return kept.sql == selection.sql && (selection.order.empty() || kept.order == selection.order) &&
           std::equal(numbers.begin(), numbers.end(), kept.values.begin(), kept.values.end(),
                      [&](int number, const Literal& value) { return LiteralOf(literals, number) == value; });
  });
  if (found != ranks_.end()) return found->ranks;
  SqliteStatement statement = connection_.Prepare(selection.sql + selection.order);
  std::vector<Literal> values;
  values.reserve(numbers.size());
  for (const int number : numbers) values.push_back(LiteralOf(literals, number));
  BindAll(statement, values);
  ranks_.push_front({selection.sql, selection.order, std::move(values), KeyRanks(ReadKeys(statement))});
  return ranks_.front().ranks;
}

}  // namespace koru
