#include "host/ServerConnection.h"

#include <optional>

#include "platform/sql/ConnectionText.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr const char* kServerProvider = "SQLOLEDB.1";
constexpr const char* kNoConnection = "0";

std::optional<ConnectionText> Parsed(const std::string& connection) {
  try {
    return ConnectionText::Parse(connection);
  } catch (const DatabaseError&) {
    return std::nullopt;
  }
}

bool IsOneOf(std::string_view key, std::initializer_list<std::string_view> keys) {
  for (const std::string_view one : keys) {
    if (EqualsNoCase(key, one)) return true;
  }
  return false;
}

bool IsPassword(std::string_view key) { return IsOneOf(key, {"Password", "PWD"}); }

/// A value that reads back as it is without quotes stays without them: drafts are found by the text.
std::string Written(const std::string& key, const std::string& value) {
  const bool plain = Trim(value) == value && value.find_first_of(";\"'") == std::string::npos;
  return key + "=" + (plain ? value : QuotedForConnection(value));
}

void Append(std::string& text, const std::string& key, const std::string& value) {
  if (!text.empty()) text += ";";
  text += Written(key, value);
}

}  // namespace

bool IsServer(const std::string& connection) {
  const auto text = Parsed(connection);
  return text && EqualsNoCase(text->Get("Provider"), kServerProvider);
}

ServerConnection ReadServerConnection(const std::string& connection) {
  ServerConnection read;
  const auto text = Parsed(connection);
  if (!text) return read;
  for (const auto& [key, value] : text->Entries()) {
    if (IsOneOf(key, {"Data Source", "Server"})) {
      read.server = value;
    } else if (IsOneOf(key, {"Initial Catalog", "Database"})) {
      read.database = value;
    } else if (IsOneOf(key, {"User ID", "UID"})) {
      read.login = value;
    } else if (IsPassword(key)) {
      read.password = value;
    } else if (IsOneOf(key, {"Integrated Security", "Trusted_Connection"})) {
      read.integrated = IsOneOf(value, {"SSPI", "yes", "true", "1"});
    } else if (!IsOneOf(key, {"Provider"})) {
      read.others.emplace_back(key, value);
    }
  }
  return read;
}

std::string ConnectionTextOf(const ServerConnection& connection) {
  std::string text;
  Append(text, "Provider", kServerProvider);
  Append(text, "Data Source", connection.server);
  if (!connection.database.empty()) Append(text, "Initial Catalog", connection.database);
  if (connection.integrated) {
    Append(text, "Integrated Security", "SSPI");
  } else {
    Append(text, "User ID", connection.login);
    if (!connection.password.empty()) Append(text, "Password", connection.password);
  }
  for (const auto& [key, value] : connection.others) Append(text, key, value);
  return text;
}

bool LacksPassword(const std::string& connection) {
  if (!IsServer(connection)) return false;
  const ServerConnection read = ReadServerConnection(connection);
  return !read.integrated && read.password.empty();
}

std::string WithoutPasswords(const std::string& connection) {
  const auto text = Parsed(connection);
  if (!text) return kNoConnection;
  bool has = false;
  for (const auto& [key, value] : text->Entries()) has = has || IsPassword(key);
  if (!has) return connection;
  std::string stored;
  for (const auto& [key, value] : text->Entries()) {
    if (!IsPassword(key)) Append(stored, key, value);
  }
  return stored;
}

std::string NameOfDatabase(const std::string& connection) {
  const auto text = Parsed(connection);
  if (!text) return {};
  if (IsServer(connection)) {
    const ServerConnection server = ReadServerConnection(connection);
    return server.database.empty() ? server.server : server.server + " / " + server.database;
  }
  const std::string file = text->Get("Data Source");
  return file.empty() ? text->WithoutPassword() : file;
}

}  // namespace koru
