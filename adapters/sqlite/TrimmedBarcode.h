#pragma once

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// Lets `Barcode='x'` use an index on the trimmed barcode, which the tables of document lines have because
/// book stocks compare barcodes trimmed; an index for the plain barcode as well would double their size.
/// Equal barcodes are equal when trimmed, so `LTrim(RTrim(Barcode))=LTrim(RTrim('x'))` is put beside the
/// comparison, which stays. (Barcodes that begin with a zero-width non-joiner and then blanks are the
/// exception; no scanner reads such.)
///
/// It is done for every column that has such an index and none of its own, where `and` alone joins the
/// comparison.
void UseTrimmedIndex(StatementTokens& tokens, SqliteConnection& connection);

}  // namespace koru
