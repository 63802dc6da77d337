#pragma once

#include <string>
#include <vector>

#include "tests/statements/SourceTexts.h"

namespace koru::test {

/// The file whose text constants a statement is built of: one of them is the statement's beginning, and no
/// other file has a longer one. Of several, the one whose constants cover more of the statement; several
/// names with " or " between them where that is equal, too. Empty where no file has its beginning.
[[nodiscard]] std::string FileOfStatement(const std::string& statement, const std::vector<SourceText>& texts);

}  // namespace koru::test
