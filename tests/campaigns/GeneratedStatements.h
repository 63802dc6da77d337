#pragma once

#include <random>
#include <string>

namespace koru::test {

/// One statement twice: in the dialect of the suite's server, as the component sends it, and in SQLite's own,
/// translated by hand with nothing rewritten.
struct GeneratedStatement {
  std::string sent;
  std::string plain;
  bool writes = false;
  bool isOrdered = false;  ///< the order of `plain` leaves no two rows the same place
};

/// Statements within the component's grammar (docs/statements.md), about the rows of GeneratedRows: what is
/// written varies with the conditions that are there, their order and their values.
class StatementGenerator {
 public:
  explicit StatementGenerator(unsigned seed) : random_(seed) {}
  [[nodiscard]] GeneratedStatement Next();

 private:
  int Random(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  /// One of the texts.
  std::string Barcode();
  std::string Date();
  std::string Number();
  std::string Scope();

  GeneratedStatement Stock();
  GeneratedStatement Rates();
  GeneratedStatement Units();
  GeneratedStatement Countings();
  GeneratedStatement Goods();
  GeneratedStatement Lines();
  GeneratedStatement Differences();
  GeneratedStatement Top();
  GeneratedStatement Write();

  std::mt19937 random_;
};

/// The rows that the statements are about, in SQLite's own dialect.
[[nodiscard]] std::string GeneratedRows(unsigned seed);

}  // namespace koru::test
