#pragma once

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>  // before the headers of ODBC, which use its types
#endif

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <utility>

namespace koru {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the driver manager takes UTF-16");

/// An ODBC handle of one of the three kinds; freed on destruction.
template <SQLSMALLINT kKind>
class OdbcHandle {
 public:
  /// A null handle when there is no memory for it; its first use then fails.
  explicit OdbcHandle(SQLHANDLE parent) { SQLAllocHandle(kKind, parent, &handle_); }
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;
  ~OdbcHandle() {
    if (handle_ != SQL_NULL_HANDLE) SQLFreeHandle(kKind, handle_);
  }

  [[nodiscard]] SQLHANDLE Get() const { return handle_; }

 private:
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// The environment of a connection, for version 3 of ODBC.
class OdbcEnvironment : public OdbcHandle<SQL_HANDLE_ENV> {
 public:
  OdbcEnvironment() : OdbcHandle(SQL_NULL_HANDLE) {
    // The interface takes the version, a number, as a pointer.
    SQLSetEnvAttr(Get(), SQL_ATTR_ODBC_VERSION,
                  reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),  // NOLINT(performance-no-int-to-ptr)
                  0);
  }
};

/// The UTF-16 units of a text, as ODBC takes them. It writes only into those of output parameters.
[[nodiscard]] inline SQLWCHAR* Units(std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(text.data());
}

}  // namespace koru
