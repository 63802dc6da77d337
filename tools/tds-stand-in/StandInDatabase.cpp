#include "tools/tds-stand-in/StandInDatabase.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string_view>
#include <utility>

#include "adapters/odbc/ServerDialect.h"
#include "adapters/sqlite/BindLiteral.h"
#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NormalizedStatement.h"
#include "adapters/sqlite/ReadToEnd.h"
#include "adapters/sqlite/SqliteDatabase.h"
#include "tools/tds-stand-in/ServerDays.h"
#include "tools/tds-stand-in/ServerRefusals.h"
#include "tools/tds-stand-in/TSqlRules.h"

namespace koru::test {
namespace {

using Answer = TdsServer::Answer;

constexpr int kBrokenSyntax = 102;

Answer Refused(const ServerRefusal& refusal) {
  return {Answer::Kind::Refusal, refusal.Code(), refusal.ServerText()};
}

/// The result of `work`, or its refusal.
template <class Work>
Answer Tried(Work work) {
  try {
    return work();
  } catch (const ServerRefusal& refusal) {
    return Refused(refusal);
  } catch (const DatabaseError& failure) {
    return Refused(AsServer(failure));
  }
}

void RefuseBroken(const std::string& batch) {
  const std::vector<std::string> findings = BrokenRules(batch);
  if (findings.empty()) return;
  std::string words = "Incorrect syntax: ";
  for (const std::string& finding : findings) words += finding + ". ";
  throw ServerRefusal(words, kBrokenSyntax, batch);
}

/// The insert between `set identity_insert` on and off.
ServerBatch InsertOfOwnKeys(const ServerBatch& batch) {
  const std::string table = batch.Word(2);
  constexpr std::size_t kSwitch = 4;  // words of each of the two switches
  const bool isOneInsert = batch.Size() > 2 * kSwitch && batch.Has(3, {"on", "insert", "into", table}) &&
                           batch.Has(batch.Size() - kSwitch, {"set", "identity_insert", table, "off"});
  if (!isOneInsert)
    throw NotKnownHere("other than one insert between identity_insert on and off", batch.Text());
  return ServerBatch(batch.Between(kSwitch, batch.Size() - kSwitch));
}

/// A selection from sys.objects, as the engine's own list answers it.
std::string AskedOfEngine(std::string statement) {
  static constexpr std::string_view kAsked = " from sys.objects where schema_id=schema_id() and ";
  const std::size_t at = statement.find(kAsked);
  if (at == std::string::npos) return statement;
  return statement.replace(at, kAsked.size(), std::string(" from ") + StandInSchema::kObjects + " where ");
}

/// One answer for each statement of the session's settings.
std::vector<Answer> Settled(const ServerBatch& settings) {
  std::vector<Answer> answers;
  for (std::size_t at = 0; at < settings.Size(); ++at) {
    if (settings.Has(at, {"set"})) answers.emplace_back();
  }
  return answers;
}

}  // namespace

StandInDatabase::StandInDatabase()
    : engine_(":memory:", SqliteConnection::Mode::Create, std::chrono::seconds(0)),
      schema_(engine_),
      statements_(SqliteDatabase::kKeptStatements,
                  [this](const std::string& shape) { return engine_.Prepare(Translate(shape)); }) {}

std::vector<Answer> StandInDatabase::Run(const std::string& text) {
  const std::lock_guard<std::mutex> lock(guard_);
  const ServerBatch batch(text);
  if (text == kSessionSettings) return Settled(batch);
  if (batch.Has(0, {"set", "identity_insert"})) return RunWithOwnKeys(batch);
  return {Tried([&] {
    RefuseBroken(text);
    return RunBatch(batch);
  })};
}

std::vector<Answer> StandInDatabase::RunWithOwnKeys(const ServerBatch& batch) {
  std::optional<ServerBatch> insert;
  const Answer read = Tried([&] {
    RefuseBroken(batch.Text());
    const std::string table = batch.Word(2);
    if (schema_.IdentityOf(table).empty()) throw Refusal(8106, table, batch.Text());
    insert = InsertOfOwnKeys(batch);
    return Answer{};
  });
  if (!insert) return {read};
  return {Answer{}, Tried([&] { return RunStatement(*insert); }), Answer{}};
}

Answer StandInDatabase::Call(const ProcedureCall& call) {
  const std::lock_guard<std::mutex> lock(guard_);
  return Tried([&] {
    const StandInProcedure& procedure = schema_.Procedure(call.name);
    const Answer found = RunStatement(ServerBatch(procedure.Selection(call.parameters)));
    const bool isFound = found.rows.RecordCount() > 0;
    return Answer{Answer::Kind::Done, isFound ? procedure.found : procedure.notFound};
  });
}

Answer StandInDatabase::RunBatch(const ServerBatch& batch) {
  if (StandInSchema::IsChange(batch)) {
    schema_.Change(batch);
    return {};
  }
  if (batch.Has(0, {"truncate", "table", ""}) && batch.Size() == 3) {
    Truncate(batch.Word(2));
    return {};
  }
  RefuseOwnKey(batch);
  return RunStatement(batch);
}

void StandInDatabase::RefuseOwnKey(const ServerBatch& batch) const {
  if (!batch.Has(0, {"insert", "into", "", "("})) return;
  const std::string identity = schema_.IdentityOf(batch.Word(2));
  if (identity.empty()) return;
  const std::size_t close = batch.Closing(3);
  for (std::size_t at = 4; at < close; ++at) {
    if (batch.Has(at, {identity})) throw Refusal(544, batch.Word(2), batch.Text());
  }
}

void StandInDatabase::Truncate(const std::string& table) {
  if (!schema_.HasTable(table)) throw Refusal(4701, table, "truncate table " + table);
  engine_.Execute("delete from " + table);
  if (!schema_.IdentityOf(table).empty()) {
    engine_.Execute("delete from sqlite_sequence where name='" + table + "' collate nocase");
  }
}

Answer StandInDatabase::RunStatement(const ServerBatch& batch) {
  static constexpr std::array<std::string_view, 5> kKnown{"select", "insert", "update", "delete", "with"};
  const bool isKnown =
      std::any_of(kKnown.begin(), kKnown.end(), [&](std::string_view word) { return batch.Has(0, {word}); });
  if (!isKnown) throw Refusal(kBrokenSyntax, batch.Word(0), batch.Text());
  const NormalizedStatement shape = Normalize(AskedOfEngine(WithDaysRead(batch)));
  SqliteStatement& statement = statements_.Get(shape.text);
  BindAll(statement, shape.literals);
  Recordset rows = ReadToEnd(statement);
  if (!rows.Columns().empty()) return {Answer::Kind::Rows, 0, {}, std::move(rows)};
  Answer done;
  done.written = static_cast<std::uint64_t>(engine_.Number("select changes()"));
  return done;
}

}  // namespace koru::test
