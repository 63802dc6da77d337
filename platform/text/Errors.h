#pragma once

#include <stdexcept>

namespace koru {

/// A number does not fit its width (a 16-bit row counter, a 16-bit property).
class OverflowError : public std::overflow_error {
 public:
  using std::overflow_error::overflow_error;
};

/// Invalid input from outside (a connection text, a property file, a scenario). what() is one sentence for
/// the user that names the input and the position.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace koru
