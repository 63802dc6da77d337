#include "desktop/manual/Chapters.h"

#include <QWidget>
#include <algorithm>

namespace koru {
namespace {

constexpr Chapter kChapters[] = {
    {"startPage", "databases.html#choose"},
    {"serverConnection", "server.html#form"},
    {"backup", "backup.html"},
    {"backupProgress", "backup.html"},
    {"about", "log.html"},
    {"countings", "start.html#list"},
    {"host", "start.html"},
    {"comInvCounting", "start.html#list"},
    {"draftOffer", "start.html#draft"},
    {"frmInvCounting", "counting.html"},
    {"floorDialog", "handheld.html"},
    {"leftFigures", "handheld.html#left"},
    {"floorBar", "handheld.html#pause"},
    {"frmInvSearch", "finding.html"},
    {"frmGoodSearch", "goods.html"},
    {"GrnBPGoodPicker", "goods.html#picker"},
    {"comInvReceipt", "documents.html"},
    {"comInvExit", "documents.html"},
    {"frmMovedStock", "comparing.html#moved"},
    {"frmReport", "printing.html"},
    {"reportPreview", "printing.html#preview"},
    {"printChoice", "printing.html#print"},
    {"comMSG", "trouble.html"},
    {"manual", "index.html"},
};

}  // namespace

std::span<const Chapter> Chapters() { return kChapters; }

QString ChapterOf(const QWidget& widget) {
  for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
    const auto* const found =
        std::find_if(std::begin(kChapters), std::end(kChapters),
                     [&](const Chapter& one) { return at->objectName() == QLatin1String(one.widget); });
    if (found != std::end(kChapters)) return QString::fromLatin1(found->page);
  }
  return {};
}

}  // namespace koru
