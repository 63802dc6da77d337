#include "control/services/Permission.h"

namespace koru {

bool MayDo(SharedState& shared, FormPermission permission) {
  if (shared.data.spPelinHasPermission(shared.user.userID, permission)) return true;
  shared.messages.ShowMessage(sentences::kError, sentences::kNotPermitted);
  return false;
}

}  // namespace koru
