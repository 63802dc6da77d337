#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ports/GoodsPicker.h"
#include "siblings/goods/GoodsFinder.h"

namespace koru {

/// What a user is asked to pick.
struct PickRequest {
  std::int32_t store = GoodsFinder::kAllStores;  ///< whose goods are offered
  /// The goods that were picked before, where several may be picked; without it one good is picked.
  std::optional<std::vector<PickedGood>> basket;
};

/// Shows what `finder` finds and returns the picked goods, or nothing when the user cancels. The restriction
/// to a store that the finder is left with is what the user wanted last.
using PickGoods =
    std::function<std::optional<std::vector<PickedGood>>(GoodsFinder& finder, PickRequest request)>;

/// The suite's goods picker, whose window is a function. With several goods, the basket is shown again the
/// next time, so that goods can be added and removed. Cancelling keeps what was picked before.
class SuiteGoodsPicker : public GoodsPicker {
 public:
  /// `databases` must outlive the object. A connection is opened when the picker is first shown.
  SuiteGoodsPicker(DatabaseConnector& databases, PickGoods pick)
      : databases_(databases), pick_(std::move(pick)) {}

  void SetConnectionString(const std::string& connectionString) override;
  void SetUserID(std::int32_t /*userID*/) override {}  // whoever may count may see every good
  void SetInventory(std::int32_t id) override { store_ = id; }
  void SetSeveralGoods(bool several) override { several_ = several; }
  /// Throws DatabaseError when the database cannot be reached, and what the window throws.
  void Show() override;

  [[nodiscard]] std::string List() const override;
  [[nodiscard]] std::string Name() const override { return One().name; }
  [[nodiscard]] std::string Barcode() const override { return One().barcode; }
  [[nodiscard]] std::string Code() const override { return One().code; }
  [[nodiscard]] std::string NameOf(std::string_view barcode) const override;
  [[nodiscard]] bool LeftStore() const override { return leftStore_; }

 private:
  [[nodiscard]] PickedGood One() const { return picked_.size() == 1 ? picked_.front() : PickedGood(); }

  DatabaseConnector& databases_;
  PickGoods pick_;
  std::unique_ptr<Database> database_;
  std::string connectionString_;
  std::int32_t store_ = GoodsFinder::kAllStores;
  bool several_ = false;
  bool leftStore_ = false;
  std::vector<PickedGood> picked_;
};

}  // namespace koru
