#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/Sample.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {

/// A sample database of its own for each test, and a connection to look into it.
class SampleTest : public testing::Test {
 protected:
  SampleTest() {
    CreateSample(file_, {});
    connection_.emplace(file_, SqliteConnection::Mode::Existing, std::chrono::milliseconds(0));
  }

  [[nodiscard]] std::int64_t Number(const std::string& sql) { return connection_->Number(sql); }
  [[nodiscard]] std::string Text(const std::string& sql) {
    SqliteStatement statement = connection_->Prepare(sql);
    return statement.Step() ? std::string(statement.Text(0)) : "none";
  }
  /// All rows, each with its fields joined by "|"; NULL is empty.
  [[nodiscard]] std::vector<std::string> Rows(const std::string& sql) {
    std::vector<std::string> rows;
    SqliteStatement statement = connection_->Prepare(sql);
    while (statement.Step()) {
      std::string row(statement.Text(0));
      for (int column = 1; column < statement.ColumnCount(); ++column) {
        row.append("|").append(statement.Text(column));
      }
      rows.push_back(row);
    }
    return rows;
  }
  [[nodiscard]] const std::string& File() const { return file_; }

 private:
  TemporaryFolder folder_;
  std::string file_ = folder_.File("sample.koru");
  std::optional<SqliteConnection> connection_;
};

using Texts = std::vector<std::string>;

}  // namespace koru::test
