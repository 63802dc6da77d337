#include "adapters/odbc/OdbcDatabase.h"

#include <utility>

#include "adapters/odbc/OdbcSession.h"
#include "adapters/odbc/ServerDialect.h"
#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

class NoBatch : public WriteBatch {
 public:
  void Finish() override {}
};

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

template <class Work>
auto OdbcDatabase::Tried(const std::string& statement, Work work) {
  OdbcSession& session = Session();
  try {
    return work(session);
  } catch (const DatabaseError& failure) {
    if (session.IsLost()) session_.reset();
    throw DatabaseError(failure.ServerText(), failure.Code(), statement);
  }
}

Recordset OdbcDatabase::Open(const SqlText& statement) {
  const std::string sent = ServerStatement(statement.Text());
  return Tried(statement.Text(), [&](OdbcSession& session) { return session.Run(sent); });
}

std::int32_t OdbcDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  const SqlName name(procedure);
  return Tried(std::string(name.text),
               [&](OdbcSession& session) { return session.Call(name.text, parameters); });
}

std::unique_ptr<WriteBatch> OdbcDatabase::BeginWriteBatch() { return std::make_unique<NoBatch>(); }

}  // namespace koru
