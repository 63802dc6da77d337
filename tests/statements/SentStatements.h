#pragma once

#include <string>
#include <vector>

namespace koru::test {

/// What the component sends when a user does something, in that order.
struct Operation {
  std::string title;
  std::vector<std::string> statements;
};

/// All that a user can make the component send: a counting form on a small suite is led through every
/// command, with every criterion of both searches. The values are the same every time.
[[nodiscard]] std::vector<Operation> SentStatements();

}  // namespace koru::test
