#include "adapters/odbc/OdbcTarget.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "adapters/odbc/OdbcConnectError.h"
#include "platform/sql/ConnectionText.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

using Step = OdbcConnectError::Step;

/// Each driver reads `{...}` in its own way.
enum class Braces {
  Doubled,  ///< a closing brace inside is written twice
  Verbatim  ///< the value ends at `}` followed by `;`
};

bool Contains(std::string_view text, std::string_view part) {
  return LowerAscii(text).find(LowerAscii(part)) != std::string::npos;
}

bool IsFreeTds(const std::string& driver) { return Contains(driver, "TDS"); }
bool IsForServer(const std::string& driver) { return IsFreeTds(driver) || Contains(driver, "SQL Server"); }

/// Builds the text for the driver, entry by entry.
class OdbcText {
 public:
  explicit OdbcText(Braces braces) : braces_(braces) {}

  void Add(const std::string& key, const std::string& value) {
    text_ += key + "=" + Written(key, value) + ";";
  }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  [[nodiscard]] std::string Written(const std::string& key, const std::string& value) const {
    const bool isPlain = value.find_first_of("[]{}();?*=!@") == std::string::npos && Trim(value) == value;
    const bool hasNul = value.find('\0') != std::string::npos;
    const bool cannot = braces_ == Braces::Verbatim && (value + ";").find("};") != std::string::npos;
    if (cannot || hasNul) {
      throw OdbcConnectError(Step::Text,
                             "اين راه انداز ODBC مقدار " + key + " را با نويسه هايي كه دارد نمي پذيرد.");
    }
    if (isPlain) return value;
    std::string written = "{";
    for (const char c : value)
      written += c == '}' && braces_ == Braces::Doubled ? std::string("}}") : std::string(1, c);
    return written + "}";
  }

  Braces braces_;
  std::string text_;
};

std::string FirstOf(const ConnectionText& text, std::initializer_list<std::string_view> keys) {
  for (const std::string_view key : keys) {
    if (text.Has(key)) return text.Get(key);
  }
  return {};
}

std::string Joined(const std::vector<std::string>& names) {
  std::string joined;
  for (const std::string& name : names) joined += (joined.empty() ? "" : "، ") + name;
  return joined.empty() ? "هيچ" : joined;
}

/// The named driver, when it is there. A path is left to the driver manager.
std::string Named(const std::string& driver, const std::vector<std::string>& installed) {
  if (driver.find_first_of("/\\") != std::string::npos) return driver;
  const auto found = std::find_if(installed.begin(), installed.end(),
                                  [&](const std::string& name) { return EqualsNoCase(name, driver); });
  if (found != installed.end()) return *found;
  throw OdbcConnectError(Step::Driver,
                         "راه انداز ODBC به نام «" + driver +
                             "» روي اين رايانه نصب نيست. راه اندازهاي نصب شده: " + Joined(installed));
}

std::string ServerDriver(const ConnectionText& text, const std::vector<std::string>& installed) {
  if (text.Has("Driver")) return Named(text.Get("Driver"), installed);
  const auto found = std::find_if(installed.begin(), installed.end(), IsForServer);
  if (found != installed.end()) return *found;
  throw OdbcConnectError(
      Step::Driver, "هيچ راه انداز ODBC براي SQL Server روي اين رايانه نصب نيست. راه اندازهاي نصب شده: " +
                        Joined(installed));
}

bool IsYes(const std::string& value) {
  return EqualsNoCase(value, "yes") || EqualsNoCase(value, "true") || EqualsNoCase(value, "SSPI") ||
         value == "1";
}

/// `[tcp:]host[,port]`, where `.` and `(local)` are this machine.
struct ServerName {
  std::string host;
  std::string port;
};

ServerName ReadServerName(std::string_view source) {
  if (LowerAscii(source).starts_with("tcp:")) source.remove_prefix(4);
  const std::size_t comma = source.find(',');
  ServerName name;
  name.host = Trim(source.substr(0, comma));
  if (comma != std::string_view::npos) name.port = Trim(source.substr(comma + 1));
  if (name.host == "." || EqualsNoCase(name.host, "(local)")) name.host = "localhost";
  const bool isNumber =
      std::all_of(name.port.begin(), name.port.end(), [](char c) { return c >= '0' && c <= '9'; });
  const bool isPort =
      isNumber && (comma == std::string_view::npos || !name.port.empty()) && name.port.size() <= 5;
  if (name.host.empty() || !isPort) {
    throw OdbcConnectError(Step::Text,
                           "رشته اتصال، سرور (Data Source) را به شكل «سرور» يا «سرور,درگاه» نام نمي برد.");
  }
  return name;
}

void AddServer(OdbcText& odbc, const ServerName& name, bool isFreeTds) {
  if (!isFreeTds) {
    odbc.Add("Server", name.port.empty() ? name.host : name.host + "," + name.port);
    return;
  }
  odbc.Add("Server", name.host);
  const bool isInstance = name.host.find('\\') != std::string::npos;  // the instance knows its port
  if (!name.port.empty() || !isInstance) odbc.Add("Port", name.port.empty() ? "1433" : name.port);
  odbc.Add("ClientCharset", "UTF-8");
  odbc.Add("TDS_Version", "7.4");
}

void AddUser(OdbcText& odbc, const ConnectionText& text, OdbcTarget& target) {
  if (IsYes(FirstOf(text, {"Integrated Security", "Trusted_Connection"}))) {
    odbc.Add("Trusted_Connection", "Yes");
    target.integrated = true;
    return;
  }
  target.password = FirstOf(text, {"Password", "PWD"});
  odbc.Add("UID", FirstOf(text, {"User ID", "UID"}));
  odbc.Add("PWD", target.password);
}

/// FreeTDS has a keyword of its own, and looks at no certificate unless its own settings say so.
void AddEncryption(OdbcText& odbc, const ConnectionText& text, bool isFreeTds, OdbcTarget& target) {
  const std::string encrypt = FirstOf(text, {"Encrypt", "Use Encryption for Data"});
  const std::string trust = FirstOf(text, {"TrustServerCertificate", "Trust Server Certificate"});
  target.encrypts = IsYes(encrypt) || EqualsNoCase(encrypt, "mandatory") || EqualsNoCase(encrypt, "strict");
  if (isFreeTds) {
    if (!encrypt.empty()) odbc.Add("Encryption", target.encrypts ? "require" : "request");
    return;
  }
  if (!encrypt.empty()) odbc.Add("Encrypt", encrypt);
  if (!trust.empty()) odbc.Add("TrustServerCertificate", IsYes(trust) ? "yes" : "no");
}

OdbcTarget ReadServer(const ConnectionText& text, const std::vector<std::string>& installed) {
  const ServerName name = ReadServerName(FirstOf(text, {"Data Source", "Server"}));
  OdbcTarget target;
  target.driver = ServerDriver(text, installed);
  target.server = name.port.empty() ? name.host : name.host + "," + name.port;
  target.database = FirstOf(text, {"Initial Catalog", "Database"});
  const bool isFreeTds = IsFreeTds(target.driver);
  OdbcText odbc(isFreeTds ? Braces::Verbatim : Braces::Doubled);
  odbc.Add("Driver", target.driver);
  AddServer(odbc, name, isFreeTds);
  if (!target.database.empty()) odbc.Add("Database", target.database);
  AddUser(odbc, text, target);
  AddEncryption(odbc, text, isFreeTds, target);
  target.odbcText = odbc.Text();
  return target;
}

}  // namespace

OdbcTarget ReadTarget(const std::string& connectionText, const std::vector<std::string>& installedDrivers) {
  const ConnectionText text = ConnectionText::Parse(connectionText);
  const std::string provider = text.Get("Provider");
  if (EqualsNoCase(provider, "SQLOLEDB.1")) return ReadServer(text, installedDrivers);
  throw OdbcConnectError(Step::Text, "نوع پايگاه داده (Provider) در رشته اتصال شناخته نشد: " +
                                         LeftToRight(text.WithoutPassword()));
}

}  // namespace koru
