// A host with Qt: the counting widget in the host's window, on a database file and with settings of the host.
// Usage: koru-desktop-host FOLDER (of counting.db, which is made with sample data, and of host.ini)
#include <QApplication>
#include <QMainWindow>
#include <QMetaProperty>
#include <QSettings>
#include <QToolBar>
#include <filesystem>
#include <string>

#include "database/Sample.h"
#include "desktop/forms/comInvCountingWidget.h"
#include "desktop/suite/DesktopSuite.h"
#include "desktop/toolkit/Application.h"

namespace {

/// Every property of the widget is kept in the settings under its own name.
void Restore(koru::comInvCountingWidget& counting, const QSettings& settings) {
  for (const QString& name : settings.childKeys())
    counting.setProperty(name.toUtf8().constData(), settings.value(name));
}

void Keep(const koru::comInvCountingWidget& counting, QSettings& settings) {
  const QMetaObject& meta = koru::comInvCountingWidget::staticMetaObject;
  for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
    settings.setValue(QLatin1String(meta.property(i).name()), meta.property(i).read(&counting));
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  koru::SetUpApplication(application);  // right to left, Persian texts, font and colours
  const std::string folder = argc > 1 ? argv[1] : ".";
  const std::string database = folder + "/counting.db";
  QSettings settings(QString::fromStdString(folder + "/host.ini"), QSettings::IniFormat);

  koru::DesktopSuite suite;  // before the window: the widget must not outlive it
  try {
    if (!std::filesystem::exists(database)) koru::CreateSample(database, {});
  } catch (const std::exception& failure) {
    suite.ShowFailure(failure);
    return 1;
  }
  QMainWindow window;
  auto* const counting = new koru::comInvCountingWidget(suite.Services(), &window);
  counting->SetUserID(1);  // the user who has signed in to the host
  Restore(*counting, settings);
  QObject::connect(counting, &koru::comInvCountingWidget::propertyChanged, &window,
                   [&] { Keep(*counting, settings); });
  counting->SetOLEConnectionString(QString::fromStdString(koru::EmbeddedConnectionText(database)));
  window.setWindowTitle(QStringLiteral("شمارش انبار"));
  window.setCentralWidget(counting);
  window.addToolBar(QString())->addAction(QStringLiteral("شمارش جديد"), counting,
                                          &koru::comInvCountingWidget::ClearShow);
  window.resize(1000, 600);
  window.show();
  return QApplication::exec();
}
