#pragma once

#include <stdexcept>
#include <string>

namespace koru {

/// A sibling component could not be created. Code 429: no component is registered under the class name.
class ComponentError : public std::runtime_error {
 public:
  static constexpr int kNotRegistered = 429;

  ComponentError(const std::string& what, int code) : std::runtime_error(what), code_(code) {}
  [[nodiscard]] int Code() const { return code_; }

 private:
  int code_;
};

}  // namespace koru
