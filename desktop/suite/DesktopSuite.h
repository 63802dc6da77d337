#pragma once

#include <exception>
#include <filesystem>
#include <memory>

#include "adapters/provider/ConnectorByProvider.h"
#include "adapters/system/DataFolder.h"
#include "adapters/system/SystemServices.h"
#include "adapters/xlsx/XlsxStarter.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "desktop/manual/Manual.h"
#include "desktop/suite/ChosenTables.h"
#include "platform/ports/Components.h"
#include "platform/ports/HostServices.h"
#include "services/Messages.h"

namespace koru {

/// What the component needs from the Qt program that embeds it: the windows of its forms, the suite's sibling
/// components, databases by their connection text, the machine's clock and files, and workbooks. Workbooks
/// are written to the user's documents folder and open in the program that the user has for them. F1 opens
/// the manual. Needs the application object, on which the host has called SetUpApplication, and is used on
/// its thread alone.
class DesktopSuite {
 public:
  /// All connections are made through `databases`. `dataFolder` has the report files (`reports`) that a suite
  /// without a base folder prints with; the built-in reports serve for those that do not exist there.
  explicit DesktopSuite(
      std::unique_ptr<DatabaseConnector> databases = std::make_unique<ConnectorByProvider>(),
      const std::filesystem::path& dataFolder = DataFolder());
  DesktopSuite(const DesktopSuite&) = delete;
  DesktopSuite& operator=(const DesktopSuite&) = delete;
  ~DesktopSuite();

  /// Counting on the floor is offered in counting windows that are made from now on, and keeps its journals,
  /// its key and its certificate in that folder, which is made when it is needed. Does nothing in a build
  /// without counting on the floor (KORU_FLOOR).
  void OfferFloor(const std::filesystem::path& folder);
  /// For comInvCountingWidget or comInvCounting, which the suite must outlive.
  [[nodiscard]] HostServices Services();
  [[nodiscard]] DatabaseConnector& Databases() { return *databases_; }
  /// Shows a failure to the user.
  void ShowFailure(const std::exception& failure) const { messages_.ShowFailure(failure); }
  /// Messages::AskQuestion.
  [[nodiscard]] int AskQuestion(const std::string& title, const std::string& question) const {
    return messages_.AskQuestion(title, question);
  }

 private:
  class Floor;  ///< what extends counting windows

  std::unique_ptr<DatabaseConnector> databases_;
  std::unique_ptr<Floor> floor_;
  ComponentRegistry components_;
  Messages messages_{components_};
  SystemClock clock_;
  SystemFileSystem files_;
  XlsxStarter spreadsheets_;
  ChosenTables tables_;
  SelectorRecords records_{*databases_};
  DesktopScreen screen_;
  Manual manual_{DataFolder() / "manual",
                 [this](const std::string& sentence) { messages_.ShowMessage(sentences::kError, sentence); }};
};

}  // namespace koru
