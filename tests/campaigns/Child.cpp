#include "tests/campaigns/Child.h"

#include <poll.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <utility>

namespace koru::test {

Child::Child(const std::function<void(const Report&)>& work) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  process_ = fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ > 0) {
    close(ends[1]);
    reports_ = ends[0];
    return;
  }
  close(ends[0]);
  int result = 0;
  try {
    work([&](const std::string& text) {
      if (write(ends[1], text.data(), text.size()) != static_cast<ssize_t>(text.size())) std::abort();
    });
  } catch (const std::exception& failure) {
    static_cast<void>(std::fprintf(stderr, "the child failed: %s\n", failure.what()));
    result = 1;
  }
  _exit(result);  // nothing of the parent's is flushed or destroyed twice
}

Child::~Child() {
  if (reports_ >= 0) Wait();
}

bool Child::HasEnded() const {
  pollfd reports{reports_, 0, 0};
  return poll(&reports, 1, 0) == 1 && (reports.revents & POLLHUP) != 0;
}

std::string Child::Wait() {
  std::string reported;
  std::array<char, 4096> buffer{};
  for (ssize_t size = 0; (size = read(reports_, buffer.data(), buffer.size())) > 0;)
    reported.append(buffer.data(), static_cast<std::size_t>(size));
  close(std::exchange(reports_, -1));
  waitpid(process_, &status_, 0);
  return reported;
}

bool Child::WasKilled() const { return WIFSIGNALED(status_) && WTERMSIG(status_) == SIGKILL; }
bool Child::EndedWell() const { return WIFEXITED(status_) && WEXITSTATUS(status_) == 0; }

void KillAfter(long nanoseconds) {
  sigevent how{};
  how.sigev_notify = SIGEV_SIGNAL;
  how.sigev_signo = SIGKILL;
  timer_t timer{};
  const itimerspec when{{0, 0}, {0, std::max(1L, nanoseconds)}};
  if (timer_create(CLOCK_MONOTONIC, &how, &timer) != 0 || timer_settime(timer, 0, &when, nullptr) != 0) {
    throw std::runtime_error("no timer");
  }
}

}  // namespace koru::test
