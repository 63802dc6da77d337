#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace koru {

/// How long a person waits for a server that says nothing. Every wait of this adapter is one of these. When a
/// statement's time is over, FreeTDS asks the server to give up, and waits as long once more for it to say
/// that it has.
struct OdbcTimeouts {
  std::chrono::seconds login{10};
  std::chrono::seconds statement{60};
};

/// What a connection text means to ODBC.
struct OdbcTarget {
  enum class Kind {
    Server,       ///< the suite's server
    EmbeddedFile  ///< an embedded database file behind an ODBC driver for SQLite
  };

  Kind kind = Kind::Server;
  std::string driver;    ///< as the machine names it, or the path of its library
  std::string server;    ///< `host` or `host,port`, for sentences; empty for a file
  std::string database;  ///< its name, or the path of the file; empty for the user's default database
  std::string password;  ///< kept to be struck out of what drivers say
  std::string odbcText;  ///< for the driver alone: the password is in it
};

/// Reads a connection text:
///
/// `Provider=SQLOLEDB.1;Data Source=<server>[,port];Initial Catalog=<db>;User ID=...;Password=...`, or
/// `Integrated Security=SSPI` in the place of user and password. `Encrypt` and `TrustServerCertificate` are
/// passed on; `Driver` names the ODBC driver, without it the first installed one for SQL Server is taken.
///
/// `Provider=ODBC;Dialect=SQLite;Driver=<driver>;Database=<file>`.
///
/// Other keywords, which the suite's texts may hold, say nothing to ODBC. Throws OdbcConnectError for a text
/// that names no server or file, names a driver that `installedDrivers` has not, or holds a value that the
/// driver cannot take.
[[nodiscard]] OdbcTarget ReadTarget(const std::string& connectionText,
                                    const std::vector<std::string>& installedDrivers);

}  // namespace koru
