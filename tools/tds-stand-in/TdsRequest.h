#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace koru::test {

/// The statement of a Batch message, in UTF-8. Throws std::out_of_range when the message ends too soon.
[[nodiscard]] std::string ReadBatch(std::string_view body);

/// The database that a SignIn message names; empty when it leaves the choice to the server. Throws
/// std::out_of_range when the message ends too soon.
[[nodiscard]] std::string ReadDatabase(std::string_view body);

/// A procedure that a client calls.
struct ProcedureCall {
  std::string name;
  std::vector<std::int32_t> parameters;
};

/// What a Call message asks for. Throws std::out_of_range when the message ends too soon, and
/// std::invalid_argument for a call by number, and for parameters that are not whole numbers.
[[nodiscard]] ProcedureCall ReadCall(std::string_view body);

}  // namespace koru::test
