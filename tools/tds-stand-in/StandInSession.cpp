#include "tools/tds-stand-in/StandInSession.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <string_view>
#include <utility>

#include "adapters/odbc/ServerDialect.h"
#include "adapters/sqlite/BindLiteral.h"
#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NormalizedStatement.h"
#include "adapters/sqlite/ReadToEnd.h"
#include "adapters/sqlite/SqliteDatabase.h"
#include "platform/text/Text.h"
#include "tools/tds-stand-in/ServerDays.h"
#include "tools/tds-stand-in/ServerRefusals.h"
#include "tools/tds-stand-in/TSqlRules.h"

namespace koru::test {
namespace {

using Answer = TdsServer::Answer;

constexpr int kBrokenSyntax = 102;
constexpr int kDeadlocked = 1205;
constexpr int kNothingToCommit = 3902;
constexpr int kNothingToRollBack = 3903;

ServerRefusal AsRefusal(const DatabaseError& failure) {
  const auto* refusal = dynamic_cast<const ServerRefusal*>(&failure);
  return refusal != nullptr ? *refusal : AsServer(failure);
}

/// Found when a batch is compiled, before any of it runs.
bool IsFoundBefore(int number) {
  static constexpr std::array<int, 4> kFound{kBrokenSyntax, 207, 209, 271};
  return std::find(kFound.begin(), kFound.end(), number) != kFound.end();
}
/// Of a value that cannot be converted; the server then undoes an open transaction.
bool UndoesTransaction(int number) {
  static constexpr std::array<int, 4> kUndoing{241, 245, 8114, kDeadlocked};
  return std::find(kUndoing.begin(), kUndoing.end(), number) != kUndoing.end();
}
bool EndsBatch(int number) { return number == 208 || UndoesTransaction(number); }

bool IsDataStatement(const ServerBatch& statement) {
  static constexpr std::array<std::string_view, 5> kKnown{"select", "insert", "update", "delete", "with"};
  return std::any_of(kKnown.begin(), kKnown.end(),
                     [&](std::string_view word) { return statement.Has(0, {word}); });
}

void RefuseBroken(const std::string& statement) {
  const std::vector<std::string> findings = BrokenRules(statement);
  if (findings.empty()) return;
  std::string words = "Incorrect syntax: ";
  for (const std::string& finding : findings) words += finding + ". ";
  throw ServerRefusal(words, kBrokenSyntax, statement);
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

/// The last key of each table that the engine numbers.
std::map<std::string, std::int64_t> LastKeys(SqliteConnection& engine) {
  std::map<std::string, std::int64_t> keys;
  if (engine.Number("select count(*) from sqlite_schema where name='sqlite_sequence'") == 0) return keys;
  SqliteStatement rows = engine.Prepare("select name,seq from sqlite_sequence");
  while (rows.Step()) keys.emplace(rows.Text(0), rows.Integer(1));
  return keys;
}

void RestoreLastKeys(SqliteConnection& engine, const std::map<std::string, std::int64_t>& keys) {
  if (keys.empty()) return;
  SqliteStatement forget = engine.Prepare("delete from sqlite_sequence where name=?1");
  SqliteStatement keep = engine.Prepare("insert into sqlite_sequence (name,seq) values (?1,?2)");
  for (const auto& [table, key] : keys) {
    forget.Bind(1, table);
    forget.Run();
    keep.Bind(1, table);
    keep.Bind(2, key);
    keep.Run();
  }
}

}  // namespace

StandInSession::StandInSession(StandInDatabase& database, std::string name)
    : database_(database),
      name_(std::move(name)),
      engine_(database.Connect()),
      statements_(SqliteDatabase::kKeptStatements,
                  [this](const std::string& shape) { return engine_.Prepare(Translate(shape)); }) {}

StandInSession::~StandInSession() {
  entered_ = database_.Locks().Enter();
  RollBack();
}

std::vector<Answer> StandInSession::Run(const std::string& text) {
  const ServerBatch batch(text);
  if (text == kSessionSettings) return Settled(batch);
  entered_ = database_.Locks().Enter();
  Script script;
  script.values.database = name_;
  const std::vector<ServerBatch> statements = batch.Parts();
  try {
    if (statements.empty()) RefuseBroken(text);
    if (statements.size() > 1) CheckBefore(statements);
    RunScript(statements, script);
  } catch (const DatabaseError& failure) {
    Refuse(failure, script);
  }
  entered_.unlock();
  if (script.answers.empty()) script.answers.emplace_back();
  return std::move(script.answers);
}

void StandInSession::RunScript(const std::vector<ServerBatch>& statements, Script& script) {
  for (const ServerBatch& statement : statements) {
    if (script.isEnded) return;
    script.values.openTransactions = transactions_;
    try {
      RunPart(statement, script);
      script.values.error = 0;
    } catch (const DatabaseError& failure) {
      Refuse(failure, script);
    }
  }
}

void StandInSession::Refuse(const DatabaseError& failure, Script& script) {
  const ServerRefusal refusal = AsRefusal(failure);
  script.answers.push_back({Answer::Kind::Refusal, refusal.Code(), refusal.ServerText()});
  script.values.error = refusal.Code();
  script.isEnded = EndsBatch(refusal.Code());
  if (UndoesTransaction(refusal.Code())) RollBack();
}

void StandInSession::CheckBefore(const std::vector<ServerBatch>& statements) {
  for (const ServerBatch& statement : statements) {
    const bool hasValues = statement.Text().find('@') != std::string::npos;
    if (!IsDataStatement(statement) || hasValues) continue;
    RefuseBroken(statement.Text());
    try {
      std::vector<Literal> literals;
      static_cast<void>(Prepared(statement, literals));
    } catch (const DatabaseError& failure) {
      if (IsFoundBefore(AsRefusal(failure).Code())) throw;
    }
  }
}

void StandInSession::RunPart(const ServerBatch& part, Script& script) {
  if (RunControl(part, script)) return;
  const ServerBatch statement = IsDataStatement(part) ? WithValues(part, script.values) : part;
  RefuseBroken(statement.Text());
  if (statement.Has(0, {"set", "identity_insert"})) return RunWithOwnKeys(statement, script);
  BeginInEngine();
  if (StandInSchema::IsChange(statement)) {
    RunChange(statement);
  } else if (statement.Has(0, {"truncate", "table", ""}) && statement.Size() == 3) {
    Truncate(statement.Word(2));
  } else {
    RefuseOwnKey(statement);
    script.answers.push_back(RunStatement(statement));
    const bool isNumbered = statement.Has(0, {"insert", "into", "", "("}) &&
                            !database_.Schema().IdentityOf(statement.Word(2)).empty();
    if (isNumbered) script.values.identity = engine_.Number("select last_insert_rowid()");
    return;
  }
  script.answers.emplace_back();
}

bool StandInSession::RunControl(const ServerBatch& statement, Script& script) {
  if (RunTransactionWord(statement)) return true;
  if (statement.Has(0, {"return"}) && statement.Size() == 1) {
    script.isEnded = true;
  } else if (statement.Has(0, {"declare", "", "int"}) && statement.Size() == 3) {
    script.values.variables[LowerAscii(statement.Word(1))] = std::nullopt;
  } else if (statement.Has(0, {"set", "", "="}) && statement.Word(1).starts_with('@')) {
    script.values.variables[LowerAscii(statement.Word(1))] =
        Evaluated(statement.Between(3, statement.Size()), script);
  } else if (statement.Has(0, {"exec", "", "=", "sp_getapplock"})) {
    const LockCall call = ReadLockCall(statement);
    script.values.variables[call.result] = TakeLock(call);
  } else if (statement.Has(0, {"if"})) {
    RunIf(statement, script);
  } else {
    return false;
  }
  return true;
}

bool StandInSession::RunTransactionWord(const ServerBatch& statement) {
  const bool isWhole = statement.Size() == 1 || (statement.Size() == 2 && statement.Has(1, {"transaction"}));
  if (!isWhole) return false;
  if (statement.Has(0, {"begin", "transaction"})) {
    ++transactions_;
  } else if (statement.Has(0, {"commit"})) {
    if (transactions_ == 0) throw Refusal(kNothingToCommit, "COMMIT", statement.Text());
    if (--transactions_ == 0) Commit();
  } else if (statement.Has(0, {"rollback"})) {
    if (transactions_ == 0) throw Refusal(kNothingToRollBack, "ROLLBACK", statement.Text());
    RollBack();
  } else {
    return false;
  }
  return true;
}

void StandInSession::RunIf(const ServerBatch& statement, Script& script) {
  const std::size_t end = ConditionEnd(statement);
  if (end < 2 || end == statement.Size()) throw NotKnownHere(statement.Text(), statement.Text());
  if (Evaluated(statement.Between(1, end), script) == 0) return;
  RunPart(ServerBatch(statement.Between(end, statement.Size())), script);
}

std::int64_t StandInSession::Evaluated(const std::string& expression, const Script& script) {
  return engine_.Number("select " + WithValues(ServerBatch(expression), script.values).Text());
}

int StandInSession::TakeLock(const LockCall& call) {
  if (transactions_ == 0) throw NotKnownHere("an application lock without a transaction", call.resource);
  return database_.Locks().TakeResource(entered_, this, call.resource,
                                        std::chrono::milliseconds(call.timeout));
}

void StandInSession::RunWithOwnKeys(const ServerBatch& batch, Script& script) {
  const std::string table = batch.Word(2);
  if (database_.Schema().IdentityOf(table).empty()) throw Refusal(8106, table, batch.Text());
  const ServerBatch insert = InsertOfOwnKeys(batch);
  BeginInEngine();
  script.answers.emplace_back();
  script.answers.push_back(RunStatement(insert));
  script.answers.emplace_back();
}

Answer StandInSession::Call(const ProcedureCall& call) {
  entered_ = database_.Locks().Enter();
  Script script;
  try {
    BeginInEngine();
    const StandInProcedure& procedure = database_.Schema().Procedure(call.name);
    const Answer found = RunStatement(ServerBatch(procedure.Selection(call.parameters)));
    const bool isFound = found.rows.RecordCount() > 0;
    script.answers.push_back({Answer::Kind::Done, isFound ? procedure.found : procedure.notFound});
  } catch (const DatabaseError& failure) {
    Refuse(failure, script);
  }
  entered_.unlock();
  return script.answers.front();
}

Answer StandInSession::LoseDeadlock() {
  entered_ = database_.Locks().Enter();
  Script script;
  Refuse(Refusal(kDeadlocked, {}, {}), script);
  entered_.unlock();
  return script.answers.front();
}

void StandInSession::RunChange(const ServerBatch& statement) {
  if (transactions_ == 0) database_.Locks().AwaitWriting(entered_, this);
  if (transactions_ > 0 && !schemaBefore_) schemaBefore_ = database_.Schema();
  database_.Schema().Change(engine_, statement);
}

void StandInSession::RefuseOwnKey(const ServerBatch& batch) const {
  if (!batch.Has(0, {"insert", "into", "", "("})) return;
  const std::string identity = database_.Schema().IdentityOf(batch.Word(2));
  if (identity.empty()) return;
  const std::size_t close = batch.Closing(3);
  for (std::size_t at = 4; at < close; ++at) {
    if (batch.Has(at, {identity})) throw Refusal(544, batch.Word(2), batch.Text());
  }
}

void StandInSession::Truncate(const std::string& table) {
  if (!database_.Schema().HasTable(table)) throw Refusal(4701, table, "truncate table " + table);
  database_.Locks().AwaitWriting(entered_, this);
  engine_.Execute("delete from " + table);
  if (!database_.Schema().IdentityOf(table).empty()) {
    engine_.Execute("delete from sqlite_sequence where name='" + table + "' collate nocase");
  }
}

SqliteStatement& StandInSession::Prepared(const ServerBatch& statement, std::vector<Literal>& literals) {
  NormalizedStatement shape = Normalize(AskedOfEngine(WithDaysRead(statement)));
  literals = std::move(shape.literals);
  return statements_.Get(shape.text);
}

Answer StandInSession::RunStatement(const ServerBatch& batch) {
  if (!IsDataStatement(batch)) throw Refusal(kBrokenSyntax, batch.Word(0), batch.Text());
  std::vector<Literal> literals;
  SqliteStatement& statement = Prepared(batch, literals);
  if (!statement.IsReadOnly()) database_.Locks().AwaitWriting(entered_, this);
  BindAll(statement, literals);
  Recordset rows = ReadToEnd(statement);
  if (!rows.Columns().empty()) return {Answer::Kind::Rows, 0, {}, std::move(rows)};
  Answer done;
  done.written = static_cast<std::uint64_t>(engine_.Number("select changes()"));
  return done;
}

void StandInSession::BeginInEngine() {
  if (transactions_ == 0 || engine_.InTransaction()) return;
  database_.Locks().TakeWriting(entered_, this);
  engine_.Execute("begin immediate");
}

void StandInSession::Commit() {
  if (engine_.InTransaction()) engine_.Execute("commit");
  schemaBefore_.reset();
  database_.Locks().Release(this);
}

/// The server never assigns a key again, also when the row that had it was undone.
void StandInSession::RollBack() {
  transactions_ = 0;
  if (engine_.InTransaction()) {
    const std::map<std::string, std::int64_t> lastKeys = LastKeys(engine_);
    engine_.Execute("rollback");
    if (schemaBefore_) database_.Schema() = *schemaBefore_;
    RestoreLastKeys(engine_, lastKeys);
  }
  schemaBefore_.reset();
  database_.Locks().Release(this);
}

}  // namespace koru::test
