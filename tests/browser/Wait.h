#pragma once

#include <QString>
#include <chrono>
#include <functional>
#include <stdexcept>

namespace koru::test {

/// The driver or the browser failed, or did not do in time what a test waits for.
class BrowserError : public std::runtime_error {
 public:
  explicit BrowserError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

/// The limit of every wait: long enough for a machine under load, so that only a hang reaches it.
inline constexpr std::chrono::seconds kWaitLimit(90);

/// Runs the event loop until the condition holds; a server in this process answers meanwhile. The condition
/// is looked at after events and every few milliseconds.
/// Throws BrowserError with `what` when the limit is reached.
void WaitUntil(const std::function<bool()>& condition, const QString& what,
               std::chrono::milliseconds limit = kWaitLimit);

}  // namespace koru::test
