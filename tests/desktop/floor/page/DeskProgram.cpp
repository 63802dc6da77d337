// A desk in a process of its own, to be killed: DeskProgram FILE FOLDER PORT.
//
// Serves the floor for counting 1 of the database FILE, which is made when it does not exist, with the
// journal in FOLDER, on a port, 0 for a free one. Enters the figures that a journal has left, and prints a
// line with the port, the code of the first count and the number of those figures.

#include <signal.h>
#include <sys/prctl.h>

#include <QCoreApplication>
#include <filesystem>
#include <iostream>

#include "adapters/system/FloorJournalFiles.h"
#include "desktop/floor/server/FloorServer.h"
#include "tests/campaigns/FloorDesk.h"
#include "tests/campaigns/Store.h"

namespace koru::test {
namespace {

void Serve(const std::string& file, const std::filesystem::path& folder, std::uint16_t port) {
  if (!std::filesystem::exists(file)) Store().CopyTo(file);
  FloorJournalFiles journals(folder);
  FloorDesk desk(file, journals);
  const std::size_t left = desk.Session().Replay().entered;
  FloorServerSettings settings;
  settings.port = port;
  settings.folder = folder;
  const FloorServer server(desk.Session(), settings);
  std::cout << server.Port() << ' ' << desk.Session().Code(1) << ' ' << left << std::endl;
  QCoreApplication::exec();
}

}  // namespace
}  // namespace koru::test

int main(int argc, char** argv) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // it ends with the test
  const QCoreApplication application(argc, argv);
  if (argc != 4) return 2;
  try {
    koru::test::Serve(argv[1], argv[2], static_cast<std::uint16_t>(std::stoul(argv[3])));
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
