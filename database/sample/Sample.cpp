#include "database/Sample.h"

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "database/Schema.h"
#include "database/sample/LargeSample.h"
#include "database/sample/SampleCountingCases.h"
#include "database/sample/SampleGroups.h"
#include "database/sample/SampleMovements.h"
#include "database/sample/SamplePeople.h"
#include "database/sample/SampleSpecialGoods.h"
#include "database/sample/SampleStores.h"
#include "database/sample/SampleSuite.h"
#include "database/sample/SampleUnits.h"

namespace koru {
namespace {

constexpr std::uint64_t kSeed = 1403;

constexpr sample::LargeCounts kFullCounts = {33'000, 200'000, 2'000'000, 32'767};
constexpr sample::LargeCounts kMediumCounts = {3'300, 20'000, 200'000, 3'276};

void Fill(SqliteConnection& connection, const SampleProgress& progress) {
  using namespace sample;
  const auto report = [&progress](int percent) {
    if (progress) progress(percent);
  };
  Random random(kSeed);
  report(0);
  WriteSuite(connection);
  WriteStores(connection);
  WritePeople(connection);
  WriteUnits(connection);
  WriteGroups(connection);
  const std::vector<StoreGoods> stores = TradingStores(WriteGoods(connection, random));
  report(10);

  DocumentBook documents(connection);
  Movements movements(connection, documents, random, stores);
  CountingCases countings(connection, documents, random, stores);
  movements.Begin();
  movements.Trade(kFirstYear);
  report(40);
  countings.WriteFirstYear();
  movements.CarryOver();
  report(60);
  movements.Trade(kSecondYear);
  WriteSpecialGoods(connection, documents);
  report(80);
  countings.WriteSecondYear();
  WriteTotals(connection, {Day(kSecondYear, 1, 1), kSampleToday});
  report(100);
}

void FillLarge(SqliteConnection& connection, const sample::LargeCounts& counts,
               const SampleProgress& progress) {
  const auto report = [&progress](int percent) {
    if (progress) progress(percent);
  };
  sample::FillLargeSample(connection, counts, report);
  connection.Execute(std::string(EmbeddedIndexes()));
  report(100);
}

}  // namespace

void CreateSample(const std::string& path, const SampleProgress& progress) {
  CreateDatabaseFile(path, EmbeddedSchema(),
                     [&progress](SqliteConnection& connection) { Fill(connection, progress); });
}

void CreateSample(const std::string& path, SampleSize size, const SampleProgress& progress) {
  if (size == SampleSize::Standard) return CreateSample(path, progress);
  const sample::LargeCounts& counts = size == SampleSize::Full ? kFullCounts : kMediumCounts;
  CreateDatabaseFile(path, EmbeddedTables(),
                     [&](SqliteConnection& connection) { FillLarge(connection, counts, progress); });
}

}  // namespace koru
