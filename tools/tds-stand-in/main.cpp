// koru-tds-stand-in: runs a command with a stand-in for the suite's server.
//
// What a test against it cannot prove (README.md): it shares the product's lexer and the embedded adapter's
// translation, knows no rights and no collations, and its refusals are from knowledge of the server, not from
// a server.

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {
namespace {

constexpr const char* kServer = "KORU_SQLSERVER";
constexpr const char* kDelay = "KORU_STAND_IN_DELAY_MS";
constexpr const char* kRowsByKey = "KORU_STAND_IN_ROWS_BY_KEY";
constexpr int kUnusable = 2;
constexpr int kNotFound = 127;
constexpr int kSignalled = 128;

int NotStarted(const char* command, int error) {
  std::cerr << command << ": " << std::strerror(error) << '\n';
  return kNotFound;
}

/// Runs the command with the default handling of `leftToIt` and returns its exit code.
int RunBeside(char** command, const sigset_t& leftToIt) {
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  posix_spawnattr_setsigdefault(&attributes, &leftToIt);
  pid_t process = 0;
  const int error = posix_spawnp(&process, command[0], nullptr, &attributes, command, environ);
  posix_spawnattr_destroy(&attributes);
  if (error != 0) return NotStarted(command[0], error);
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : kSignalled + WTERMSIG(status);
}

int RunWithServer(char** command) {
  StandInServer server;
  if (const char* delay = std::getenv(kDelay)) {
    server.SetDelay(std::chrono::milliseconds(std::strtoul(delay, nullptr, 10)));
  }
  if (std::getenv(kRowsByKey) != nullptr) server.GiveRowsByKey();
  setenv(kServer, server.ConnectionText().c_str(), 1);
  // Ctrl+C ends the command, which ends this program.
  sigset_t leftToIt;
  sigemptyset(&leftToIt);
  for (const int signal : {SIGINT, SIGQUIT}) {
    sigaddset(&leftToIt, signal);
    std::signal(signal, SIG_IGN);
  }
  return RunBeside(command, leftToIt);
}

}  // namespace
}  // namespace koru::test

int main(int argc, char** argv) {
  using namespace koru::test;
  if (argc < 2) {
    std::cerr << "usage: koru-tds-stand-in COMMAND [ARG...]\n"
                 "Runs the command with KORU_SQLSERVER naming a stand-in for the suite's server, which ends "
                 "with it;\nif KORU_SQLSERVER is set already, with the server that it names.\n"
                 "KORU_STAND_IN_DELAY_MS=N makes each request take N milliseconds longer.\n"
                 "KORU_STAND_IN_ROWS_BY_KEY=1 gives rows without an order in that of their keys.\n"
                 "A test that passes with it may fail on a real server: see tools/tds-stand-in/README.md.\n";
    return kUnusable;
  }
  if (std::getenv(kServer) == nullptr) return RunWithServer(argv + 1);
  execvp(argv[1], argv + 1);
  return NotStarted(argv[1], errno);
}
