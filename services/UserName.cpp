#include "services/UserName.h"

namespace koru {

std::string FullNameOf(std::int32_t userID, dteInvCounting& data) {
  const Recordset user = data.rssqlcreator.Open(SqlText("Select FullName from tblUser where ID=") + userID);
  return user.RecordCount() == 0 ? std::string() : user.Field("FullName").Text();
}

}  // namespace koru
