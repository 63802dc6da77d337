#pragma once

#include <cstdint>
#include <string>

#include "platform/ports/HostServices.h"
#include "services/Messages.h"
#include "services/dteInvCounting.h"

namespace koru {

/// What the counting form does with its document; its numbers are the suite's.
enum class DocumentMode : int { Viewing = 0, Editing = 1, New = 2, Empty = 3 };

/// Who works with the component, at the widths at which the control keeps the values.
struct SignedInUser {
  std::int32_t userID = 0;
  std::int16_t employeeID = 0;
  std::int16_t positionID = 0;
  std::int32_t accPeriodSpecID = 0;
  std::int16_t forcedReceiptID = -1;  ///< -1: the host forces no receipt on the form
};

/// What the forms of one loaded component have in common; made by the control and passed to each form.
struct SharedState {
  explicit SharedState(const HostServices& where)
      : services(where), data(where.databases), messages(where.components) {}

  HostServices services;
  dteInvCounting data;
  Messages messages;
  SignedInUser user;
  DocumentMode DocMode = DocumentMode::Empty;
  std::string ConnectionString;
  bool ShowAsModal = false;
  std::int32_t CurrentCountingID = 0;
};

}  // namespace koru
