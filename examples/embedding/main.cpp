#include <QApplication>

#include "desktop/forms/comInvCountingWidget.h"
#include "desktop/suite/DesktopSuite.h"
#include "desktop/toolkit/Application.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  koru::SetUpApplication(application);  // right to left, Persian texts, font and colours
  koru::DesktopSuite suite;
  koru::comInvCountingWidget counting(suite.Services());
  counting.SetOLEConnectionString("Provider=SQLite;Data Source=counting.db");
  counting.SetUserID(7);
  counting.show();  // lists the temporary countings; View(17) and ClearShow() open the counting form
  return QApplication::exec();
}
