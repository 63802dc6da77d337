#include "desktop/toolkit/Application.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>
#include <QTranslator>

#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/PersianTexts.h"

namespace koru {
namespace {

constexpr double kPointSize = 9.5;

/// Fonts in order of preference: first one designed for forms, last one that every system has.
QFont FormFont() {
  for (const char* family : {"Vazirmatn UI", "Vazirmatn", "DejaVu Sans"}) {
    if (!QFontDatabase::hasFamily(family)) continue;
    QFont font(family);
    font.setPointSizeF(kPointSize);
    return font;
  }
  QFont font = QApplication::font();
  font.setPointSizeF(kPointSize);
  return font;
}

void LoadPersianTexts(QApplication& application) {
  // The application owns its translators. NOLINTBEGIN(cppcoreguidelines-owning-memory)
  auto* const translator = new QTranslator(&application);
  if (translator->load(QStringLiteral("qtbase_fa"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(translator);
  }
  QApplication::installTranslator(new PersianTexts(&application));  // asked before the one above
  // NOLINTEND(cppcoreguidelines-owning-memory)
}

}  // namespace

void SetUpApplication(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QLocale::setDefault(QLocale::c());  // the digits of the forms
  LoadPersianTexts(application);
  QApplication::setLayoutDirection(Qt::RightToLeft);
  QApplication::setFont(FormFont());
  SetColors(application, QApplication::palette());
}

}  // namespace koru
