#include "platform/ports/Components.h"

#include <gtest/gtest.h>

#include "platform/ports/ComponentError.h"

namespace koru {
namespace {

TEST(ComponentRegistry, Makes_a_new_component_for_each_call) {
  ComponentRegistry registry;
  registry.Register("a.b", [] { return std::make_unique<SiblingComponent>(); });
  const auto first = registry.Create("a.b");
  const auto second = registry.Create("a.b");
  EXPECT_NE(first.get(), second.get());
}

TEST(ComponentRegistry, An_unregistered_class_name_fails_with_error_429) {
  ComponentRegistry registry;
  registry.Register("a.b", [] { return std::make_unique<SiblingComponent>(); });
  registry.Unregister("a.b");
  try {
    static_cast<void>(registry.Create("a.b"));
    FAIL();
  } catch (const ComponentError& error) {
    EXPECT_EQ(error.Code(), 429);
    EXPECT_NE(std::string(error.what()).find("a.b"), std::string::npos);
  }
}

}  // namespace
}  // namespace koru
