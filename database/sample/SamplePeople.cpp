#include "database/sample/SamplePeople.h"

#include <array>
#include <string_view>

#include "database/sample/SampleRows.h"
#include "database/sample/SampleStores.h"

namespace koru::sample {
namespace {

// The form permissions of stock-taking: opening the form, then its commands.
constexpr std::array kPermissions = {806, 80601, 80602, 80603, 80604, 80605, 80606, 80607};

constexpr int kLacksNothing = 0;
constexpr int kLacksEverything = -1;

enum class Stores { All, FoodOnly, None };

struct User {
  std::string_view name;
  int lacks;  // the one permission that the user is without
  Stores stores;
};

constexpr std::array<User, kUserCount> kUsers = {
    {{"زهرا كريمي", kLacksNothing, Stores::All},
     {"علي‌رضا محمدي", kLacksEverything, Stores::All},
     {"مريم احمدي", 80606, Stores::All},
     {"حسين رضايي", 80603, Stores::All},
     {"فاطمه حسيني", 806, Stores::All},
     {"محمد مرادي", 80601, Stores::All},
     {"نرگس صادقي", 80602, Stores::All},
     {"مهدي كاظمي", 80604, Stores::All},
     {"ليلا رحيمي", 80605, Stores::All},
     {"رضا اكبري", 80607, Stores::All},
     {"سميه يوسفي", kLacksNothing, Stores::FoodOnly},
     {"كيوان گودرزي", kLacksNothing, Stores::None}}};

bool MayWorkIn(const User& user, int store) {
  if (user.stores == Stores::FoodOnly) return store == kDryFoodStore || store == kColdStore;
  return user.stores == Stores::All;
}

}  // namespace

void WritePeople(SqliteConnection& connection) {
  RowWriter users = RowWriter::Inserts(connection, "tblUser");
  RowWriter permissions = RowWriter::Inserts(connection, "tblPelinUserPermission");
  RowWriter stores = RowWriter::Inserts(connection, "tblInventoryUser");
  int id = 0;
  for (const User& user : kUsers) {
    users.Write({{"ID", ++id}, {"FullName", user.name}});
    for (const int permission : kPermissions) {
      if (user.lacks == kLacksEverything || user.lacks == permission) continue;
      permissions.Write({{"UserID", id}, {"FormPermissionID", permission}});
    }
    for (int store = 1; store <= kStoreCount; ++store) {
      if (MayWorkIn(user, store)) stores.Write({{"UserID", id}, {"InventoryID", store}});
    }
  }
}

}  // namespace koru::sample
