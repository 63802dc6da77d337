#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/sql/Database.h"

namespace koru {

/// Passes every call to another database. A class that adds something to some calls (a log, a count) derives
/// from it and overrides these; it overrides OpenAll, too, where it overrides Open.
class ForwardingDatabase : public Database {
 public:
  explicit ForwardingDatabase(std::unique_ptr<Database> inner) : inner_(std::move(inner)) {}

  Recordset Open(const SqlText& statement) override { return inner_->Open(statement); }
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override {
    return inner_->Call(procedure, parameters);
  }
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override {
    inner_->OpenAll(statements, take);
  }
  [[nodiscard]] std::size_t StatementsPerTrip() const override { return inner_->StatementsPerTrip(); }
  [[nodiscard]] std::optional<std::int64_t> InsertedKey() override { return inner_->InsertedKey(); }
  [[nodiscard]] std::optional<std::int64_t> ForeignWrites() override { return inner_->ForeignWrites(); }
  void Idle() noexcept override { inner_->Idle(); }
  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() override { return inner_->BeginWriteBatch(); }
  [[nodiscard]] std::unique_ptr<ReadSnapshot> BeginReadSnapshot() override {
    return inner_->BeginReadSnapshot();
  }

 protected:
  /// The other database; not after Close.
  [[nodiscard]] Database& Inner() { return *inner_; }
  /// Closes the other database before the destructor does.
  void Close() { inner_.reset(); }

 private:
  std::unique_ptr<Database> inner_;
};

}  // namespace koru
