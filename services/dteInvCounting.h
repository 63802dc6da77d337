#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

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

/// The data access object that all forms share: the connection cnInvCounting and the named recordsets of the
/// suite's stock-document components. The connection is opened at the first use and kept until Release, or
/// until another connection text is set.
class dteInvCounting {
 public:
  /// A named recordset. It runs statements over the shared connection, those that only write included.
  class Command {
   public:
    explicit Command(dteInvCounting& owner) : owner_(owner) {}
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    ~Command() = default;

    /// Sends the statement and returns its rows, positioned on the first. A statement whose typed text leaves
    /// its literal is refused with the DatabaseError of a broken statement, and is not sent.
    Recordset Open(const SqlText& source);
    /// Sends statements together (Database::OpenAll). One that Open would refuse fails in its turn: those
    /// before it are sent.
    void OpenAll(const std::vector<SqlText>& sources,
                 const std::function<void(std::size_t, const Recordset&)>& take);

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

  /// How many statements OpenAll should be given at most.
  [[nodiscard]] std::size_t StatementsPerTrip() { return Connection().StatementsPerTrip(); }

  /// See Database::ForeignWrites; also another number once the connection has been opened anew.
  [[nodiscard]] std::optional<std::int64_t> ForeignWrites();

  /// See Database::Idle; nothing while there is no connection.
  void Idle() noexcept {
    if (connection_) connection_->Idle();
  }

  /// See Database::InsertedKey.
  [[nodiscard]] std::optional<std::int64_t> InsertedKey() { return Connection().InsertedKey(); }

  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() { return Connection().BeginWriteBatch(); }
  [[nodiscard]] std::unique_ptr<ReadSnapshot> BeginReadSnapshot() { return Connection().BeginReadSnapshot(); }

  /// Closes the connection; the next use opens a fresh one.
  void Release() { connection_.reset(); }

  Command rssqlcreator{*this};
  Command rssqldelenter{*this};
  Command rssqleditenter{*this};
  Command rssqlsaveenter{*this};
  Command rssqldelenterdetail{*this};
  Command rssqlgridenterdetail{*this};
  Command rssqlCommon{*this};
  Command rssqlInvSearch{*this};
  Command rssqlINVGood{*this};

  // Kept for the suite, whose stock-document components share this object: nothing in this component runs
  // them.
  Command rssqlinvname{*this};
  Command rssqlSenderName{*this};
  Command rssqlreceiverer{*this};
  Command rssqlReferenceDocType{*this};
  Command rssqldetail{*this};
  Command rssqlentertype{*this};
  Command rssqlINVEnter{*this};
  Command rssqlCommon2{*this};
  Command rssqlAccTrans{*this};

 private:
  Database& Connection();

  DatabaseConnector& databases_;
  std::string connectionString_;
  std::unique_ptr<Database> connection_;
  std::int64_t connections_ = 0;  ///< how many have been opened
};

}  // namespace koru
