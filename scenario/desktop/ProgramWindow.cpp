#include "scenario/desktop/ProgramWindow.h"

#include "desktop/toolkit/QtText.h"

namespace koru {

ProgramWindow::ProgramWindow(const ProgramStart& start)
    : folder_(start.folder),
      session_(start.folder / "config" / "koru-counting.ini"),
      window_(session_, start.folder / "sample.db") {
  if (start.connection.empty()) return;
  window_.Control().SetOLEConnectionString(ToQt(start.connection));
  window_.Control().SetUserID(start.user);
}

void ProgramWindow::Show() {
  window_.show();
  window_.Start();
}

}  // namespace koru
