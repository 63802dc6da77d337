#pragma once

#include <string>

#include "tests/lines/LinesTest.h"
#include "tests/support/DatabaseFixture.h"

namespace koru {

/// A form with lines over a fresh database.
class StoredLinesTest : public LinesTestOn<test::DatabaseFixture> {
 protected:
  explicit StoredLinesTest(test::TestDatabase::Kind kind = test::TestDatabase::Kind::FileOrServer)
      : LinesTestOn(kind) {
    shared.data.SetConnectionString(database.ConnectionText());
  }

  /// Runs statements that are not the component's.
  void Execute(const std::string& sql) { database.Execute(sql); }
};

}  // namespace koru
