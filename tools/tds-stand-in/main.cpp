#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {
namespace {

constexpr const char* kServer = "KORU_SQLSERVER";
constexpr int kUnusable = 2;
constexpr int kNotFound = 127;
constexpr int kSignalled = 128;

int NotStarted(const char* command, int error) {
  std::cerr << command << ": " << std::strerror(error) << '\n';
  return kNotFound;
}

/// Starts the command, which has the signals back that this program leaves to it, and waits for its end.
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
  const StandInServer server;
  setenv(kServer, server.ConnectionText().c_str(), 1);
  // Who breaks off at the keyboard ends the command, and the server goes in its own time.
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
                 "Runs the command with KORU_SQLSERVER naming a stand-in for the suite's server, which goes "
                 "with it;\nwhere KORU_SQLSERVER names a server already, with that.\n";
    return kUnusable;
  }
  if (std::getenv(kServer) == nullptr) return RunWithServer(argv + 1);
  execvp(argv[1], argv + 1);
  return NotStarted(argv[1], errno);
}
