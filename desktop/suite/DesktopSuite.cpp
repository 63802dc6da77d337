#include "desktop/suite/DesktopSuite.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

#ifdef KORU_FLOOR
#include "adapters/system/FloorJournalFiles.h"
#include "desktop/floor/FloorDesk.h"
#endif
#include "desktop/suite/Windows.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

XlsxPlace PlaceOfWorkbooks(const Messages& messages) {
  XlsxPlace place;
  place.folder = FromQt(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  place.open = [](const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path)));
  };
  place.showMessage = [&messages](const std::string& sentence) {
    messages.ShowMessage(sentences::kWarning, sentence);
  };
  return place;
}

}  // namespace

#ifdef KORU_FLOOR
class DesktopSuite::Floor {
 public:
  explicit Floor(const std::filesystem::path& folder) : folder_(folder), journals_(folder) {}

  /// The window owns the desk.
  void Extend(InvCountingWindow& window, frmInvCounting& form) {
    FloorServerSettings server;
    server.folder = folder_;
    new FloorDesk(window, form, journals_, std::move(server));  // NOLINT(cppcoreguidelines-owning-memory)
  }

 private:
  std::filesystem::path folder_;
  FloorJournalFiles journals_;
};

void DesktopSuite::OfferFloor(const std::filesystem::path& folder) {
  floor_ = std::make_unique<Floor>(folder);
}
#else
class DesktopSuite::Floor {
 public:
  static void Extend(InvCountingWindow& /*window*/, frmInvCounting& /*form*/) {}
};

void DesktopSuite::OfferFloor(const std::filesystem::path& /*folder*/) {}
#endif

DesktopSuite::~DesktopSuite() = default;

DesktopSuite::DesktopSuite(std::unique_ptr<DatabaseConnector> databases,
                           const std::filesystem::path& dataFolder)
    : databases_(std::move(databases)), spreadsheets_(PlaceOfWorkbooks(messages_), clock_) {
  RegisterWindows(screen_, records_, [this](InvCountingWindow& window, frmInvCounting& form) {
    if (floor_ != nullptr) floor_->Extend(window, form);
  });
  RegisterDesktopComponents(components_, *databases_, dataFolder);
}

HostServices DesktopSuite::Services() {
  HostServices services{*databases_, components_, screen_, clock_, files_, spreadsheets_};
  services.tables = &tables_;
  return services;
}

}  // namespace koru
