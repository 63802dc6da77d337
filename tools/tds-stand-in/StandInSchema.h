#pragma once

#include <map>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "tools/tds-stand-in/ServerBatch.h"
#include "tools/tds-stand-in/StandInProcedure.h"
#include "tools/tds-stand-in/StandInTable.h"

namespace koru::test {

/// The tables, indexes, views and procedures of the stand-in's database, made in an embedded engine from
/// batches in the server's dialect. Names are compared regardless of case.
class StandInSchema {
 public:
  /// The engine's list of the objects that the server lists in sys.objects, with the column `name`.
  static constexpr const char* kObjects = "\"sys.objects\"";

  /// Keeps its texts in UTF-16. `engine` is empty, and must outlive the object.
  explicit StandInSchema(SqliteConnection& engine);

  /// Whether Change can run the batch.
  [[nodiscard]] static bool IsChange(const ServerBatch& batch);
  /// Runs a batch that creates or drops a table, view, index or procedure, or drops a column. One
  /// that fails has no effect. Throws the server's refusal, NotKnownHere, or a failure of the engine.
  void Change(const ServerBatch& batch);

  /// The column that the server numbers in that table; empty when there is none, or no such table.
  [[nodiscard]] std::string IdentityOf(const std::string& table) const;
  [[nodiscard]] bool HasTable(const std::string& name) const;
  /// Throws the server's refusal when there is no such procedure.
  [[nodiscard]] const StandInProcedure& Procedure(const std::string& name) const;

 private:
  void Create(const ServerBatch& batch);
  void CreateTable(const ServerBatch& batch);
  void CreateView(const ServerBatch& batch);
  void CreateIndex(const ServerBatch& batch, std::size_t indexWord);
  void Drop(const ServerBatch& batch);
  [[nodiscard]] bool IsObject(const std::string& name) const;
  void AddObject(const std::string& name, const ServerBatch& batch);
  /// The statement that makes the view of a `create view` batch in the engine.
  [[nodiscard]] std::string EngineView(const ServerBatch& batch) const;

  SqliteConnection& engine_;
  std::map<std::string, StandInTable> tables_;  ///< by their names in lower case, as are the procedures
  std::map<std::string, StandInProcedure> procedures_;
};

}  // namespace koru::test
