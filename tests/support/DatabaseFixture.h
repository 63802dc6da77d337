#pragma once

#include "tests/support/ComponentFixture.h"
#include "tests/support/TestDatabase.h"

namespace koru::test {

/// Holds the database, so that it outlives the fixture that works on it.
struct HasTestDatabase {
  explicit HasTestDatabase(TestDatabase::Kind kind) : database(kind) {}
  TestDatabase database;
};

/// A host with a fresh database that has the suite's tables and no rows.
class DatabaseFixture : public HasTestDatabase, public ComponentFixture {
 public:
  explicit DatabaseFixture(TestDatabase::Kind kind = TestDatabase::Kind::FileOrServer)
      : HasTestDatabase(kind), ComponentFixture(database.Connector()) {}
};

}  // namespace koru::test
