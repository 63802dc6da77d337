#pragma once

#include "tests/support/ComponentFixture.h"
#include "tests/support/TestDatabase.h"

namespace koru::test {

/// Holds the database, so that it outlives the fixture that works on it.
struct HasTestDatabase {
  TestDatabase database;
};

/// A host with a fresh database that has the suite's tables and no rows.
class DatabaseFixture : public HasTestDatabase, public ComponentFixture {
 public:
  DatabaseFixture() : ComponentFixture(database.Connector()) {}
};

}  // namespace koru::test
