#include "tools/tds-stand-in/StandInSchema.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NormalizedStatement.h"
#include "platform/text/Text.h"
#include "tools/tds-stand-in/ServerRefusals.h"

namespace koru::test {
namespace {

/// The batch of a view with a collation on each text that replaces NULL: the results of the engine's
/// functions have none.
std::string WithCollations(const ServerBatch& batch) {
  std::string text = batch.Text();
  // From the end, so that earlier positions stay valid.
  for (std::size_t at = batch.Size(); at-- > 0;) {
    if (!batch.Has(at, {"isnull", "("})) continue;
    const std::size_t close = batch.Closing(at + 1);
    if (batch.Word(close - 1).ends_with('\'')) text.insert(batch.Token(close).end, " collate KORU");
  }
  return text;
}

/// The texts and numbers of a batch, in the engine's dialect.
std::vector<std::string> Literals(const ServerBatch& batch) {
  std::vector<std::string> literals;
  for (std::size_t at = 0; at < batch.Size(); ++at) {
    const SqlTokenKind kind = batch.Token(at).kind;
    const bool isNational = kind == SqlTokenKind::NationalString;
    if (isNational || kind == SqlTokenKind::String || kind == SqlTokenKind::Number) {
      literals.push_back(batch.Word(at).substr(isNational ? 1 : 0));
    }
  }
  return literals;
}

/// A translated shape (Translate) with its literals in their places.
std::string WithLiterals(const std::string& translated, const std::vector<std::string>& literals) {
  const ServerBatch shape(translated);
  std::string text = translated;
  for (std::size_t at = shape.Size(); at-- > 1;) {
    if (shape.Word(at - 1) != "?") continue;
    const std::string number = shape.Word(at);
    std::size_t literal = 0;
    std::from_chars(number.data(), number.data() + number.size(), literal);
    const std::size_t begin = shape.Token(at - 1).begin;
    text.replace(begin, shape.Token(at).end - begin, literals.at(literal - 1));
  }
  return text;
}

}  // namespace

StandInSchema::StandInSchema(SqliteConnection& engine) {
  engine.Execute(std::string("PRAGMA encoding='UTF-16le'; create table ") + kObjects +
                 " (name text not null primary key collate nocase)");
}

bool StandInSchema::IsChange(const ServerBatch& batch) {
  static constexpr std::array<std::string_view, 3> kChanges{"create", "drop", "alter"};
  return std::any_of(kChanges.begin(), kChanges.end(),
                     [&](std::string_view word) { return batch.Has(0, {word}); });
}

void StandInSchema::Change(SqliteConnection& engine, const ServerBatch& batch) {
  engine.Execute("savepoint change");
  try {
    if (batch.Has(0, {"create"})) {
      Create(engine, batch);
    } else if (batch.Has(0, {"drop"})) {
      Drop(engine, batch);
    } else if (batch.Has(0, {"alter", "table", "", "drop", "column", ""}) && batch.Size() == 6) {
      engine.Execute(batch.Text());
    } else {
      throw NotKnownHere(batch.Text(), batch.Text());
    }
  } catch (const DatabaseError&) {
    engine.Execute("rollback to change; release change");
    throw;
  }
  engine.Execute("release change");
}

void StandInSchema::Create(SqliteConnection& engine, const ServerBatch& batch) {
  if (batch.Has(1, {"table"})) return CreateTable(engine, batch);
  if (batch.Has(1, {"view"})) return CreateView(engine, batch);
  if (batch.Has(1, {"procedure"})) {
    StandInProcedure procedure = ReadProcedure(batch);
    AddObject(engine, procedure.name, batch);
    procedures_[LowerAscii(procedure.name)] = std::move(procedure);
    return;
  }
  for (std::size_t at = 1; at <= 3; ++at) {
    if (batch.Has(at, {"index", "", "on", "", "("})) return CreateIndex(engine, batch, at);
  }
  throw NotKnownHere(batch.Text(), batch.Text());
}

void StandInSchema::CreateTable(SqliteConnection& engine, const ServerBatch& batch) {
  StandInTable table = ReadTable(batch);
  AddObject(engine, table.name, batch);
  for (const std::string& statement : table.statements) engine.Execute(statement);
  tables_[LowerAscii(table.name)] = std::move(table);
}

void StandInSchema::CreateView(SqliteConnection& engine, const ServerBatch& batch) {
  const std::string name = batch.Word(2);
  AddObject(engine, name, batch);
  engine.Execute(EngineView(batch));
  // The engine resolves a view's tables and columns when it is read, the server when it is made. Of two
  // columns of one name, the engine calls the second `name:1`.
  SqliteStatement view = engine.Prepare("select * from " + name);
  for (int column = 0; column < view.ColumnCount(); ++column) {
    if (view.ColumnName(column).find(':') != std::string::npos) throw Refusal(4506, name, batch.Text());
  }
}

std::string StandInSchema::EngineView(const ServerBatch& batch) {
  const std::string text = WithCollations(batch);
  return WithLiterals(Translate(Normalize(text).text), Literals(ServerBatch(text)));
}

void StandInSchema::CreateIndex(SqliteConnection& engine, const ServerBatch& batch, std::size_t indexWord) {
  const std::string name = batch.Word(indexWord + 1);
  const auto found = tables_.find(LowerAscii(batch.Word(indexWord + 3)));
  if (found == tables_.end()) throw Refusal(1088, batch.Word(indexWord + 3), batch.Text());
  StandInTable& table = found->second;
  const bool isClustered = batch.Has(indexWord - 1, {"clustered"});
  if (isClustered && table.isClustered) throw Refusal(1902, table.name, batch.Text());
  const std::string engineName = table.name + "." + name;
  if (engine.Number("select count(*) from sqlite_schema where name='" + engineName + "' collate nocase") >
      0) {
    throw Refusal(1913, name, batch.Text());
  }

  std::string keys;
  const std::size_t close = batch.Closing(indexWord + 4);
  for (std::size_t at = indexWord + 5; at < close; at = batch.EndOfPart(at) + 1) {
    const auto computed = table.computed.find(LowerAscii(batch.Word(at)));
    keys +=
        (keys.empty() ? "" : ",") + (computed == table.computed.end() ? batch.Between(at, batch.EndOfPart(at))
                                                                      : computed->second + " collate KORU");
  }
  if (batch.Has(close + 1, {"include", "("})) {
    // Columns that an index only includes bring nothing here, but must exist.
    static_cast<void>(engine.Prepare("select " + batch.Between(close + 3, batch.Closing(close + 2)) +
                                     " from " + table.name));
  }
  engine.Execute(std::string("create ") + (batch.Has(1, {"unique"}) ? "unique " : "") + "index \"" +
                 engineName + "\" on " + table.name + " (" + keys + ")");
  table.isClustered = table.isClustered || isClustered;
}

void StandInSchema::Drop(SqliteConnection& engine, const ServerBatch& batch) {
  const bool isProcedure = batch.Has(1, {"procedure"});
  const bool isKnown = isProcedure || batch.Has(1, {"table"}) || batch.Has(1, {"view"});
  if (!isKnown || batch.Size() != 3) throw NotKnownHere(batch.Text(), batch.Text());
  const std::string name = batch.Word(2);
  if (!IsObject(engine, name)) throw Refusal(3701, name, batch.Text());
  if (!isProcedure) engine.Execute(batch.Text());
  engine.Execute(std::string("delete from ") + kObjects + " where name='" + name + "'");
  tables_.erase(LowerAscii(name));
  procedures_.erase(LowerAscii(name));
}

bool StandInSchema::IsObject(SqliteConnection& engine, const std::string& name) {
  return engine.Number(std::string("select count(*) from ") + kObjects + " where name='" + name + "'") > 0;
}

void StandInSchema::AddObject(SqliteConnection& engine, const std::string& name, const ServerBatch& batch) {
  if (IsObject(engine, name)) throw Refusal(2714, name, batch.Text());
  engine.Execute(std::string("insert into ") + kObjects + " values ('" + name + "')");
}

std::string StandInSchema::IdentityOf(const std::string& table) const {
  const auto found = tables_.find(LowerAscii(table));
  return found == tables_.end() ? std::string() : found->second.identity;
}

bool StandInSchema::HasTable(const std::string& name) const { return tables_.contains(LowerAscii(name)); }

const StandInProcedure& StandInSchema::Procedure(const std::string& name) const {
  const auto found = procedures_.find(LowerAscii(name));
  if (found == procedures_.end()) throw Refusal(2812, name, name);
  return found->second;
}

}  // namespace koru::test
