#include "platform/controls/Event.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace koru {
namespace {

TEST(Event, Calls_its_listeners_in_order_until_they_stop_listening) {
  Event<int> event;
  std::vector<std::string> heard;
  Subscription first = event.Subscribe([&](int n) { heard.push_back("first " + std::to_string(n)); });
  Subscription second = event.Subscribe([&](int n) { heard.push_back("second " + std::to_string(n)); });
  event.Raise(1);
  first.End();
  event.Raise(2);
  EXPECT_EQ(heard, (std::vector<std::string>{"first 1", "second 1", "second 2"}));
}

TEST(Event, A_listener_that_is_ended_by_one_before_it_is_not_called_any_more) {
  Event<> event;
  int calls = 0;
  Subscription second;
  const Subscription first = event.Subscribe([&] { second.End(); });
  second = event.Subscribe([&] { ++calls; });
  event.Raise();
  EXPECT_EQ(calls, 0);
}

TEST(Event, May_be_destroyed_before_its_subscriptions) {
  const auto held = std::make_shared<int>(1);
  auto event = std::make_unique<Event<>>();
  Subscription subscription = event->Subscribe([held] {});
  EXPECT_EQ(held.use_count(), 2);
  event.reset();
  EXPECT_EQ(held.use_count(), 1) << "the listener went with the event";
  subscription.End();
}

TEST(Event, Every_listener_is_called_and_the_first_exception_is_returned) {
  Event<int> event;
  int sum = 0;
  event.Always([](int) { throw std::runtime_error("first"); });
  event.Always([](int) { throw std::runtime_error("second"); });
  event.Always([&](int value) { sum += value; });
  const std::exception_ptr failure = event.RaiseToAll(5);
  EXPECT_EQ(sum, 5);
  ASSERT_NE(failure, nullptr);
  try {
    std::rethrow_exception(failure);
  } catch (const std::runtime_error& first) {
    EXPECT_STREQ(first.what(), "first");
  }
}

}  // namespace
}  // namespace koru
