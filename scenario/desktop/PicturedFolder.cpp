#include "scenario/desktop/PicturedFolder.h"

#include <QLabel>

#include "desktop/toolkit/QtText.h"
#include "platform/text/FilePath.h"

namespace koru {

PicturedFolder::PicturedFolder(const QWidget& window, const std::filesystem::path& folder) {
  const QString shown = ToQt(TextOf(folder));
  for (QLabel* const label : window.findChildren<QLabel*>()) {
    QString text = label->text();
    if (!text.contains(shown)) continue;
    before_.emplace_back(label, text);
    label->setText(text.replace(shown, QStringLiteral("/srv/suite")));
  }
}

PicturedFolder::~PicturedFolder() {
  for (const auto& [label, text] : before_) label->setText(text);
}

}  // namespace koru
