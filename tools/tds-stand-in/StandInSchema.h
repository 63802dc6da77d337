#pragma once

#include <map>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "tools/tds-stand-in/ServerBatch.h"
#include "tools/tds-stand-in/StandInProcedure.h"
#include "tools/tds-stand-in/StandInTable.h"

namespace koru::test {

/// The tables, indexes, views and procedures of the stand-in's database, made in an embedded engine from
/// batches in the server's dialect. Names are compared regardless of case. Each `engine` is a connection to
/// the same database.
class StandInSchema {
 public:
  /// The engine's list of the objects that the server lists in sys.objects, with the column `name`.
  static constexpr const char* kObjects = "\"sys.objects\"";

  /// `engine` is empty; from now on it keeps its texts in UTF-16.
  explicit StandInSchema(SqliteConnection& engine);

  /// Whether Change can run the batch.
  [[nodiscard]] static bool IsChange(const ServerBatch& batch);
  /// Runs a batch that creates or drops a table, view, index or procedure, or drops a column. One
  /// that fails has no effect. Throws the server's refusal, NotKnownHere, or a failure of the engine.
  void Change(SqliteConnection& engine, const ServerBatch& batch);

  /// The column that the server numbers in that table; empty when there is none, or no such table.
  [[nodiscard]] std::string IdentityOf(const std::string& table) const;
  [[nodiscard]] bool HasTable(const std::string& name) const;
  /// Throws the server's refusal when there is no such procedure.
  [[nodiscard]] const StandInProcedure& Procedure(const std::string& name) const;

 private:
  void Create(SqliteConnection& engine, const ServerBatch& batch);
  void CreateTable(SqliteConnection& engine, const ServerBatch& batch);
  void CreateView(SqliteConnection& engine, const ServerBatch& batch);
  void CreateIndex(SqliteConnection& engine, const ServerBatch& batch, std::size_t indexWord);
  void Drop(SqliteConnection& engine, const ServerBatch& batch);
  [[nodiscard]] static bool IsObject(SqliteConnection& engine, const std::string& name);
  static void AddObject(SqliteConnection& engine, const std::string& name, const ServerBatch& batch);
  /// The statement that makes the view of a `create view` batch in the engine.
  [[nodiscard]] static std::string EngineView(const ServerBatch& batch);

  std::map<std::string, StandInTable> tables_;  ///< by their names in lower case, as are the procedures
  std::map<std::string, StandInProcedure> procedures_;
};

}  // namespace koru::test
