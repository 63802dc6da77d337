#include "adapters/odbc/OdbcDrivers.h"

#include "adapters/odbc/OdbcHandle.h"
#include "adapters/odbc/WideText.h"

namespace koru {

std::vector<std::string> InstalledDrivers() {
  const OdbcEnvironment environment;
  std::vector<std::string> drivers;
  std::u16string name(512, u'\0');
  std::u16string attributes(4096, u'\0');
  SQLSMALLINT length = 0;
  SQLSMALLINT attributesLength = 0;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  while (SQL_SUCCEEDED(SQLDriversW(environment.Get(), direction, Units(name),
                                   static_cast<SQLSMALLINT>(name.size()), &length, Units(attributes),
                                   static_cast<SQLSMALLINT>(attributes.size()), &attributesLength))) {
    drivers.push_back(ToUtf8(name.c_str()));
    direction = SQL_FETCH_NEXT;
  }
  return drivers;
}

}  // namespace koru
