#include "platform/ports/Components.h"

#include <utility>

#include "platform/ports/ComponentError.h"

namespace koru {

void ComponentRegistry::Register(std::string className, Factory factory) {
  factories_.insert_or_assign(std::move(className), std::move(factory));
}

void ComponentRegistry::Unregister(std::string_view className) {
  const auto found = factories_.find(className);
  if (found != factories_.end()) factories_.erase(found);
}

ComponentRegistry::Factory ComponentRegistry::Exchange(std::string_view className, Factory factory) {
  Factory before;
  if (const auto found = factories_.find(className); found != factories_.end()) before = found->second;
  if (factory) {
    Register(std::string(className), std::move(factory));
  } else {
    Unregister(className);
  }
  return before;
}

std::unique_ptr<SiblingComponent> ComponentRegistry::Create(std::string_view className) const {
  const auto found = factories_.find(className);
  if (found == factories_.end()) {
    throw ComponentError("در اين برنامه جزء \u200e" + std::string(className) + "\u200e نصب نشده است.",
                         ComponentError::kNotRegistered);
  }
  return found->second();
}

}  // namespace koru
