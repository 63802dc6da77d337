#pragma once

#include <string>
#include <vector>

#include "platform/ports/Components.h"

namespace koru {

/// RAII: until destruction, what Messages shows is collected here instead, and nobody at the desk sees it or
/// has to answer it: a question gets no answer. The suite's message component is then registered as before.
/// Captures end in the reverse order of their beginnings.
class CapturedMessages {
 public:
  /// `components` must outlive the object.
  explicit CapturedMessages(ComponentRegistry& components);
  CapturedMessages(const CapturedMessages&) = delete;
  CapturedMessages& operator=(const CapturedMessages&) = delete;
  ~CapturedMessages();

  /// The texts of the messages and questions in their order, one to a line; empty when there was none.
  [[nodiscard]] std::string Text() const;

 private:
  class Component;

  ComponentRegistry& components_;
  ComponentRegistry::Factory before_;
  std::vector<std::string> texts_;
};

}  // namespace koru
