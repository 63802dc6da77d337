#pragma once

#include <optional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// A `select ... from D,T where key=X and ... order by C` of lines D and their documents T, split so that the
/// keys of the documents can be selected separately.
///
/// Documents that are equal in C are ordered by key, and lines of one document as they were entered, both in
/// the direction of the order: in `order by ReceiveDate desc` what was entered last comes first.
struct LineDocumentJoin {
  std::string lines;              ///< D
  std::string documents;          ///< T
  std::string column;             ///< X
  StatementTokens beforeWhere;    ///< `select ... from D`
  StatementTokens ofLines;        ///< the terms of the condition on D, each after its `and`
  StatementTokens keys;           ///< `select key from T where (terms on T)`
  StatementTokens order;          ///< `order by C`, or empty
  StatementTokens tiedDocuments;  ///< `,key`; empty without an order
  StatementTokens tiedLines;      ///< `,D.rowid`; empty without an order, or if D has no rowid
};

/// Returns nothing for a statement of another form: if a selected column is of T, if a term is on both
/// tables, if terms are joined by anything but `and`, if the order is not by a column of T, or if X and `key`
/// are not an integer column and an integer primary key.
[[nodiscard]] std::optional<LineDocumentJoin> ReadLineDocumentJoin(const StatementTokens& tokens,
                                                                   SqliteConnection& connection);

}  // namespace koru
