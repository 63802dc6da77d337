#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace koru {

/// How long a user waits for a server that does not answer. Every wait of this adapter is one of these. After
/// a statement's timeout FreeTDS asks the server to cancel, and waits as long once more for it to confirm.
struct OdbcTimeouts {
  std::chrono::seconds login{10};
  std::chrono::seconds statement{60};
  std::chrono::seconds lock{30};  ///< for another station's write batch; less than `statement`

  /// The timeout of a batch: that of one statement, and a hundredth of it for each further statement.
  [[nodiscard]] std::chrono::seconds OfBatch(std::size_t statements) const {
    return statement + statement * static_cast<int>(statements - 1) / 100;
  }
};

/// What a connection text means to ODBC.
struct OdbcTarget {
  std::string driver;       ///< as the machine names it, or the path of its library
  std::string server;       ///< `host` or `host,port`, for sentences
  std::string database;     ///< its name; empty for the user's default database
  std::string password;     ///< removed from what drivers say
  bool encrypts = false;    ///< the text asks for an encrypted connection
  bool integrated = false;  ///< signs in with the user of the machine
  std::string odbcText;     ///< for the driver alone: contains the password
};

/// Reads a connection text:
///
/// `Provider=SQLOLEDB.1;Data Source=<server>[,port];Initial Catalog=<db>;User ID=...;Password=...`, or
/// `Integrated Security=SSPI` in the place of user and password. `Encrypt` and `TrustServerCertificate` are
/// passed on; `Driver` names the ODBC driver, without it the first installed one for SQL Server is used.
///
/// Other keywords, which the suite's texts may contain, are ignored. Throws OdbcConnectError for another
/// provider, a text without a server, a driver that is not in `installedDrivers`, or a value that the driver
/// cannot take.
[[nodiscard]] OdbcTarget ReadTarget(const std::string& connectionText,
                                    const std::vector<std::string>& installedDrivers);

}  // namespace koru
