#include "services/dteInvCounting.h"

#include "platform/sql/DatabaseError.h"

namespace koru {

Recordset dteInvCounting::Command::Open(const SqlText& source) {
  CheckTypedSpans(source);
  return owner_.Connection().Open(source);
}

void dteInvCounting::Command::OpenAll(const std::vector<SqlText>& sources,
                                      const std::function<void(std::size_t, const Recordset&)>& take) {
  for (std::size_t i = 0; i < sources.size(); ++i) {
    try {
      CheckTypedSpans(sources[i]);
    } catch (const DatabaseError&) {
      if (i > 0) {
        owner_.Connection().OpenAll({sources.begin(), sources.begin() + static_cast<std::ptrdiff_t>(i)},
                                    take);
      }
      throw;
    }
  }
  owner_.Connection().OpenAll(sources, take);
}

void dteInvCounting::SetConnectionString(const std::string& connectionString) {
  if (connectionString_ == connectionString) return;
  connectionString_ = connectionString;
  Release();
}

bool dteInvCounting::spPelinHasPermission(std::int32_t userID, FormPermission permission) {
  return Connection().Call("spPelinHasPermission", {userID, static_cast<std::int32_t>(permission)}) != 0;
}

std::optional<std::int64_t> dteInvCounting::ForeignWrites() {
  constexpr std::int64_t kPerConnection = std::int64_t{1} << 32;
  const auto writes = Connection().ForeignWrites();
  return writes ? std::optional(connections_ * kPerConnection + *writes) : std::nullopt;
}

Database& dteInvCounting::Connection() {
  if (!connection_) {
    connection_ = databases_.Connect(connectionString_);
    ++connections_;
  }
  return *connection_;
}

}  // namespace koru
