#include "database/sample/SampleStores.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/sample/SampleRows.h"
#include "database/sample/SampleTree.h"

namespace koru::sample {
namespace {

struct Store {
  int id;
  int parent;  // 0 for none
  std::string_view name;
};

constexpr std::array<Store, kStoreCount> kStores = {
    {{1, 0, "انبار مركزي"},
     {2, 1, "انبار مواد غذايي"},
     {kDryFoodStore, 2, "انبار خشكبار و غلات"},
     {kColdStore, 2, "سردخانه"},
     {kCleaningStore, 1, "انبار شوينده و بهداشتي"},
     {kHardwareStore, 1, "انبار ابزار و لوازم‌التحرير"},
     {7, 0, "انبار فروشگاه‌ها"},
     {kFirstShop, 7, "فروشگاه شهر ري"},
     {kSecondShop, 7, "فروشگاه كرج"},
     {kReturnsStore, 0, "انبار مرجوعي و ضايعات"}}};

std::optional<int> ParentKey(int parent) { return parent == 0 ? std::nullopt : std::optional(parent); }

constexpr int kHalls = 4;
constexpr int kAisles = 2;
constexpr int kShelves = 3;

/// The place of an aisle among all aisles, from 0.
int AisleNumber(int hall, int aisle) { return (hall - 1) * kAisles + aisle - 1; }

int HallKey(int hall) { return hall * 100; }
int AisleKey(int hall, int aisle) { return HallKey(hall) + aisle * 10; }

void WritePlaces(SqliteConnection& connection) {
  constexpr std::array<std::string_view, 8> kLetters = {"الف", "ب", "پ", "ت", "ج", "چ", "ك", "گ"};
  RowWriter rows = RowWriter::Inserts(connection, "tblBPLocation");
  std::vector<std::pair<int, int>> nodes;
  const auto add = [&](int id, int parent, const std::string& name) {
    rows.Write({{"ID", id}, {"ParentID", ParentKey(parent)}, {"Name", name}});
    nodes.emplace_back(id, parent);
  };
  for (int hall = 1; hall <= kHalls; ++hall) {
    add(HallKey(hall), 0, "سالن " + std::to_string(hall));
    for (int aisle = 1; aisle <= kAisles; ++aisle) {
      const std::string letter(kLetters.at(static_cast<std::size_t>(AisleNumber(hall, aisle))));
      add(AisleKey(hall, aisle), HallKey(hall), "راهرو " + letter);
      for (int shelf = 1; shelf <= kShelves; ++shelf) {
        add(AisleKey(hall, aisle) + shelf, AisleKey(hall, aisle),
            "قفسه " + letter + "-" + std::to_string(shelf));
      }
    }
  }
  WriteClosure(connection, "tblBPLocationChilds", nodes);
}

}  // namespace

int ShelfOf(int store, int shelf) {
  const int hall = store - kDryFoodStore + 1;
  return AisleKey(hall, shelf / kShelves + 1) + shelf % kShelves + 1;
}

void WriteStores(SqliteConnection& connection) {
  RowWriter rows = RowWriter::Inserts(connection, "tblInventory");
  std::vector<std::pair<int, int>> nodes;
  for (const Store& store : kStores) {
    rows.Write({{"ID", store.id},
                {"ParentID", ParentKey(store.parent)},
                {"Name", store.name},
                {"IsDefault", store.id == kDryFoodStore}});
    nodes.emplace_back(store.id, store.parent);
  }
  WriteClosure(connection, "tblInventoryParent", nodes);
  WritePlaces(connection);
}

}  // namespace koru::sample
