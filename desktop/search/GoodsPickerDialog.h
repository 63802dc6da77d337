#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "desktop/search/GoodsFinder.h"
#include "platform/ports/GoodsPicker.h"

namespace koru {

/// The suite's goods picker on the desktop. With several goods the basket is shown again at the next time, so
/// that goods can be added and put back. Giving up changes nothing of what was picked before.
class GoodsPickerDialog : public GoodsPicker {
 public:
  /// `databases` must outlive the object. A connection is opened when the picker is first shown.
  explicit GoodsPickerDialog(DatabaseConnector& databases) : databases_(databases) {}

  void SetConnectionString(const std::string& connectionString) override;
  void SetUserID(std::int32_t /*userID*/) override {}  // whoever may count may see every good
  void SetInventory(std::int32_t id) override { store_ = id; }
  void SetSeveralGoods(bool several) override { several_ = several; }
  /// Throws DatabaseError when the database cannot be reached; failures while it is open are shown in it.
  void Show() override;

  [[nodiscard]] std::string List() const override;
  [[nodiscard]] std::string Name() const override { return One().name; }
  [[nodiscard]] std::string Barcode() const override { return One().barcode; }
  [[nodiscard]] std::string Code() const override { return One().code; }

 protected:
  /// Lets the person pick among the goods of `store`. `basket` is what had been picked before; without one,
  /// one good is picked. What is picked now, or nothing when the person gave up.
  virtual std::optional<std::vector<PickedGood>> LetPick(GoodsFinder& finder, std::int32_t store,
                                                         std::optional<std::vector<PickedGood>> basket);

 private:
  [[nodiscard]] PickedGood One() const { return picked_.size() == 1 ? picked_.front() : PickedGood(); }

  DatabaseConnector& databases_;
  std::unique_ptr<Database> database_;
  std::string connectionString_;
  std::int32_t store_ = GoodsFinder::kAllStores;
  bool several_ = false;
  std::vector<PickedGood> picked_;
};

}  // namespace koru
