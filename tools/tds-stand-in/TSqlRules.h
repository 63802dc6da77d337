#pragma once

#include <string>
#include <vector>

namespace koru::test {

/// Checks a batch against the rules of the suite's server's dialect: one sentence per violation, none for a
/// valid batch.
///
/// Violations are: literals, brackets and comments that are not closed; letters beyond ASCII outside of
/// national literals, names in brackets and comments; words and operators of other dialects; a view or
/// procedure that is not alone in its batch; a view that is sorted without `top`; two statements separated by
/// `;`; a comparison in the place of a value; more than 1000 rows in one `values`, or rows of different
/// lengths; `set identity_insert` that is not switched off again, or without an insert that names the key;
/// column types, lengths and defaults that the server does not know, columns with neither `null` nor `not
/// null`, more than one identity or one that is not `int`.
[[nodiscard]] std::vector<std::string> BrokenRules(const std::string& batch);

}  // namespace koru::test
