#pragma once

#include <cstdint>
#include <string>

#include "platform/ports/HostServices.h"
#include "services/Messages.h"
#include "services/dteInvCounting.h"

namespace koru {

/// What the counting form does with its document. The numbers are the suite's.
enum class DocumentMode : int { Viewing = 0, Editing = 1, New = 2, Empty = 3 };

/// The user who works with the component. Each key has the width of the control's property.
struct SignedInUser {
  std::int32_t userID = 0;
  std::int16_t employeeID = 0;
  std::int16_t positionID = 0;
  std::int32_t accPeriodSpecID = 0;
  std::int16_t forcedReceiptID = -1;  ///< -1: the host forces no receipt on the form
};

/// The state that the forms of one control share; the control makes it and passes it to each form.
struct SharedState {
  /// Everything in `host` must outlive the state.
  explicit SharedState(const HostServices& host)
      : services(host), data(host.databases), messages(host.components) {}

  HostServices services;
  dteInvCounting data;
  Messages messages;
  SignedInUser user;
  DocumentMode DocMode = DocumentMode::Empty;
  bool ShowAsModal = false;  ///< whether system parameter 123 asks for modal forms

  // Kept for the suite, whose forms read them under these names: this component only writes them.
  std::string ConnectionString;
  std::int32_t CurrentCountingID = 0;  ///< the counting that was last asked for, also one that does not exist
};

}  // namespace koru
