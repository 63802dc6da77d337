#pragma once

#include <string_view>

namespace koru {

/// The statements, in one text, that create the tables, views and indexes of an empty embedded database. They
/// are built into the program. The connection that runs them must provide the collation KORU.
[[nodiscard]] std::string_view EmbeddedSchema();

/// The two parts of EmbeddedSchema: bulk inserts are faster before the indexes exist.
[[nodiscard]] std::string_view EmbeddedTables();
[[nodiscard]] std::string_view EmbeddedIndexes();

}  // namespace koru
