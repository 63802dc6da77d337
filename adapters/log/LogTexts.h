#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/SqlText.h"

namespace koru {

/// The text with its shape alone: each ASCII digit is 9, each letter and each character of another script is
/// x; blanks, apostrophes and other ASCII characters stay.
[[nodiscard]] std::string Masked(std::string_view text);

/// The statement with its typed texts masked.
[[nodiscard]] std::string MaskedStatement(const SqlText& statement);

/// A server's error message about a statement. Every typed text in it, and every part of one that is at least
/// three bytes long, is masked.
[[nodiscard]] std::string MaskedError(std::string_view error, const SqlText& statement);

/// A connection text for the log, without passwords; one that cannot be read is left out.
[[nodiscard]] std::string ConnectionForLog(const std::string& connectionText);

/// A failure of a connection for the log: the passwords of the connection text are written as *** where a
/// driver repeats them.
[[nodiscard]] std::string ErrorWithoutPasswords(std::string error, const std::string& connectionText);

}  // namespace koru
