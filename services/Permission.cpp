#include "services/Permission.h"

namespace koru {

bool CheckPermission(SharedState& shared, FormPermission permission) {
  if (shared.data.spPelinHasPermission(shared.user.userID, permission)) return true;
  shared.messages.ShowMessage(sentences::kError, sentences::kNotPermitted);
  return false;
}

}  // namespace koru
