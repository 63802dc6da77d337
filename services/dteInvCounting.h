#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/sql/Database.h"

namespace koru {

/// The numbers of the rights that the component asks for.
enum class FormPermission : std::int32_t {
  OpenForNew = 806,
  New = 80601,
  Edit = 80602,
  Delete = 80603,
  Search = 80604,
  TemporarySave = 80605,
  FinalRegistration = 80606,
  ReturnToTemporary = 80607
};

/// The data access object that all forms share: the connection cnInvCounting and the named recordsets and
/// procedure commands of the suite's stock-document components. The connection is opened at the first use and
/// kept until Release, or until another connection text is set.
class dteInvCounting {
 public:
  /// One of the named recordsets: it runs a statement, also one that only writes, over the shared connection.
  class Command {
   public:
    explicit Command(dteInvCounting& owner) : owner_(owner) {}
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    ~Command() = default;

    /// Sends the statement and returns its rows, standing on the first. A statement in which typed text has
    /// left its literal is refused with the DatabaseError of a broken statement, and nothing is sent.
    Recordset Open(const SqlText& source);

   private:
    dteInvCounting& owner_;
  };

  /// `databases` must outlive the object.
  explicit dteInvCounting(DatabaseConnector& databases) : databases_(databases) {}
  dteInvCounting(const dteInvCounting&) = delete;
  dteInvCounting& operator=(const dteInvCounting&) = delete;
  ~dteInvCounting() = default;

  /// The connection text of cnInvCounting.
  [[nodiscard]] const std::string& ConnectionString() const { return connectionString_; }
  void SetConnectionString(const std::string& connectionString);

  /// Whether the user holds the right: `{? = CALL spPelinHasPermission( ?, ?) }` returned anything but 0.
  [[nodiscard]] bool spPelinHasPermission(std::int32_t userID, FormPermission permission);

  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() { return Connection().BeginWriteBatch(); }
  [[nodiscard]] std::unique_ptr<ReadSnapshot> BeginReadSnapshot() { return Connection().BeginReadSnapshot(); }

  /// Closes the connection; the next use opens a fresh one.
  void Release() { connection_.reset(); }

  Command rssqlinvname{*this};
  Command rssqlcreator{*this};
  Command rssqlSenderName{*this};
  Command rssqlreceiverer{*this};
  Command rssqlReferenceDocType{*this};
  Command rssqldelenter{*this};
  Command rssqleditenter{*this};
  Command rssqlsaveenter{*this};
  Command rssqldetail{*this};
  Command rssqldelenterdetail{*this};
  Command rssqlentertype{*this};
  Command rssqlgridenterdetail{*this};
  Command rssqlINVEnter{*this};
  Command rssqlCommon{*this};
  Command rssqlInvSearch{*this};
  Command rssqlCommon2{*this};
  Command rssqlINVGood{*this};
  Command rssqlAccTrans{*this};

 private:
  Database& Connection();

  DatabaseConnector& databases_;
  std::string connectionString_;
  std::unique_ptr<Database> connection_;
};

}  // namespace koru
