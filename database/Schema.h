#pragma once

#include <string_view>

namespace koru {

/// The statements that make the tables, views and indexes of an empty embedded database, one behind the
/// other. They are built into the program. The connection that runs them must know the collation KORU.
[[nodiscard]] std::string_view EmbeddedSchema();

/// The two parts of it. Millions of rows are written faster while there are no indexes yet.
[[nodiscard]] std::string_view EmbeddedTables();
[[nodiscard]] std::string_view EmbeddedIndexes();

}  // namespace koru
