#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace koru {

/// The fields of the form that connects to a server, and what else its connection text has.
struct ServerConnection {
  std::string server;  ///< `host`, `host,port` or `host\instance`
  std::string database;
  std::string login;
  std::string password;
  bool integrated = false;  ///< signs in with the user of the machine, without login and password
  std::vector<std::pair<std::string, std::string>> others;  ///< such as Driver and Encrypt, in their order
};

/// Whether the connection text names a server's database rather than an embedded file. False for a text that
/// cannot be parsed.
[[nodiscard]] bool IsServer(const std::string& connection);

/// Reads a server's connection text. A text that cannot be parsed gives empty fields.
[[nodiscard]] ServerConnection ReadServerConnection(const std::string& connection);

/// The connection text of the fields, with every value quoted where that is needed.
[[nodiscard]] std::string ConnectionTextOf(const ServerConnection& connection);

/// Whether the text names a login of a server, but no password.
[[nodiscard]] bool LacksPassword(const std::string& connection);

/// The text as it may be stored: without its passwords. A text that cannot be parsed is not stored: "0".
[[nodiscard]] std::string WithoutPasswords(const std::string& connection);

/// The database as a user recognizes it: the file, or `server / database`.
[[nodiscard]] std::string NameOfDatabase(const std::string& connection);

}  // namespace koru
