#include "adapters/odbc/OdbcDatabase.h"

#include <utility>

#include "adapters/odbc/OdbcSession.h"
#include "adapters/odbc/ServerDialect.h"
#include "adapters/odbc/ServerTransaction.h"
#include "platform/sql/DatabaseError.h"
#include "platform/sql/WriteBatchLevel.h"

namespace koru {
namespace {

constexpr const char* kKey = "KoruKey";
constexpr const char* kNotAnswered = "سرور به اين دستور پاسخ نداد و خطايي هم گزارش نكرد.";

/// An insert, and the key that it gives its row: in one batch, as the key of another batch is out of reach.
std::string WithKey(const std::string& insert) { return insert + "\n;select scope_identity() as " + kKey; }

bool IsKey(const Recordset& result) {
  return result.Columns().size() == 1 && result.Columns().front() == kKey;
}

std::string NotStored(const DatabaseError& loss) {
  return "تغييرات اين فرمان ثبت نشد.\n" + loss.ServerText();
}

}  // namespace

OdbcDatabase::OdbcDatabase(OdbcTarget target, OdbcTimeouts timeouts)
    : target_(std::move(target)), timeouts_(timeouts) {
  Session();
}

OdbcDatabase::~OdbcDatabase() = default;

OdbcSession& OdbcDatabase::Session() {
  if (!session_) {
    auto opened = std::make_unique<OdbcSession>(target_, timeouts_);
    opened->Run(kSessionSettings);
    session_ = std::move(opened);
  }
  return *session_;
}

template <class Work, class Statement>
auto OdbcDatabase::Tried(Statement statement, Work work) {
  // A new connection would run it outside the transaction.
  if (batchLoss_)
    throw DatabaseError(NotStored(*batchLoss_), batchLoss_->Code(), statement(), batchLoss_->Cause());
  OdbcSession& session = Session();
  try {
    return work(session);
  } catch (const DatabaseError& failure) {
    throw Reported(failure, statement());
  }
}

DatabaseError OdbcDatabase::Reported(const DatabaseError& failure, const std::string& statement) {
  DatabaseError ofStatement(failure.ServerText(), failure.Code(), statement, failure.Cause());
  const bool isLost = LosesBatch();
  if (session_->IsLost()) session_.reset();
  if (!isLost) return ofStatement;
  batchLoss_ = ofStatement;
  return {"تغييرات پيشين اين فرمان نيز از دست رفت.\n" + failure.ServerText(), failure.Code(), statement,
          failure.Cause()};
}

/// Whether a failure just now has undone the transaction of the batch.
bool OdbcDatabase::LosesBatch() {
  if (batchLevels_ == 0) return false;
  if (session_->IsLost()) return true;
  try {
    return !server_transaction::IsAlive(*session_);
  } catch (const DatabaseError&) {
    session_.reset();  // whatever it has open ends with it
    return true;
  }
}

Recordset OdbcDatabase::Open(const SqlText& statement) {
  const std::string sent = ServerStatement(statement.Text());
  const bool isInsert = IsInsert(sent);
  if (isInsert) insertedKey_.reset();
  Recordset records;
  const auto take = [&](Recordset read) {
    if (isInsert && IsKey(read)) {
      const Value key = read.Field(kKey);
      if (!key.IsNull()) insertedKey_ = static_cast<std::int64_t>(key.Number());
    } else if (records.Columns().empty()) {
      records = std::move(read);
    }
  };
  Tried([&] { return statement.Text(); },
        [&](OdbcSession& session) { session.Run(isInsert ? WithKey(sent) : sent, take); });
  return records;
}

std::int32_t OdbcDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  const SqlName name(procedure);
  return Tried([&] { return std::string(name.text); },
               [&](OdbcSession& session) { return session.Call(name.text, parameters); });
}

void OdbcDatabase::OpenAll(const std::vector<SqlText>& statements,
                           const std::function<void(std::size_t, const Recordset&)>& take) {
  insertedKey_.reset();
  for (std::size_t first = 0; first < statements.size();) {
    StatementTrip trip;
    for (std::size_t next = first; next < statements.size(); ++next) {
      const std::string sent = ServerStatement(statements[next].Text());
      if (!trip.HasRoom(sent.size())) break;
      trip.Add(sent);
    }
    SendTrip(trip, statements, first, take);
    first += trip.Statements();
  }
}

void OdbcDatabase::SendTrip(const StatementTrip& trip, const std::vector<SqlText>& statements,
                            std::size_t first,
                            const std::function<void(std::size_t, const Recordset&)>& take) {
  TripResults results([&](std::size_t done, const Recordset& records) { take(first + done, records); });
  try {
    Tried([&] { return statements[first + results.Done()].Text(); },
          [&](OdbcSession& session) {
            session.Run(
                trip.Text(), [&](Recordset result) { results.Take(std::move(result)); }, trip.Statements());
            if (results.Done() < trip.Statements()) throw DatabaseError(kNotAnswered, 0, {});
          });
  } catch (const DatabaseError&) {
    const bool hasRun = results.HasBegun() || !session_ || batchLoss_;
    if (hasRun) throw;
    for (std::size_t i = first; i < first + trip.Statements(); ++i) take(i, Open(statements[i]));
  }
}

std::unique_ptr<WriteBatch> OdbcDatabase::BeginWriteBatch() {
  if (batchLevels_ == 0) {
    Tried([] { return std::string(); },
          [&](OdbcSession& session) {
            server_transaction::Begin(session, timeouts_.lock);
            session.SetInTransaction(true);
          });
  }
  auto level = std::make_unique<WriteBatchLevel>([this] { EndBatchLevel(); });
  ++batchLevels_;
  return level;
}

void OdbcDatabase::EndBatchLevel() {
  if (--batchLevels_ > 0) return;
  if (const auto loss = std::exchange(batchLoss_, std::nullopt)) {
    if (session_) session_->SetInTransaction(false);
    throw DatabaseError(NotStored(*loss), loss->Code(), {}, loss->Cause());
  }
  try {
    const bool isStored = server_transaction::Commit(*session_);
    session_->SetInTransaction(false);
    if (isStored) return;
  } catch (const DatabaseError& failure) {
    const bool isLost = session_->IsLost();
    session_.reset();  // whatever it has open ends with it
    if (isLost) throw UnansweredWrite(failure.ServerText(), failure.Code(), {}, failure.Cause());
    throw DatabaseError(NotStored(failure), failure.Code(), {}, failure.Cause());
  }
  throw DatabaseError("تغييرات اين فرمان ثبت نشد.", 0, {});
}

}  // namespace koru
