#pragma once

#include <stdexcept>

namespace koru {

/// A number does not fit the width that the system gives it (a 16-bit row counter, a 16-bit property).
class OverflowError : public std::overflow_error {
 public:
  using std::overflow_error::overflow_error;
};

/// Something from outside (a connection text, a property file, a scenario) is not usable. what() is one
/// sentence for a person that names the thing and the place.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace koru
