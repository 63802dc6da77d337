#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/ports/Components.h"

namespace koru {

/// The suite's goods picker, hosted on the goods search: the user picks one or several goods.
class GoodsPicker : public SiblingComponent {
 public:
  static constexpr std::string_view kClassName = "comGoodPicker.comGoodPicker1";

  virtual void SetConnectionString(const std::string& connectionString) = 0;
  virtual void SetUserID(std::int32_t userID) = 0;
  /// The store whose goods are offered. Before the first call, the goods of all stores are.
  virtual void SetInventory(std::int32_t id) = 0;
  /// Whether several goods may be picked at once.
  virtual void SetSeveralGoods(bool several) = 0;
  /// Shows the picker modally and returns after the user has picked goods or cancelled.
  virtual void Show() = 0;

  /// The goods picked last, as an operand of `in`: barcodes in apostrophes (apostrophes doubled), in
  /// parentheses, after an empty first element. `('','100')` is one good, `('','100','200')` are two. Empty
  /// when nothing was picked.
  [[nodiscard]] virtual std::string List() const = 0;
  /// Name, barcode and code of the picked good; empty unless exactly one was picked.
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::string Barcode() const = 0;
  [[nodiscard]] virtual std::string Code() const = 0;
  /// The name of a picked good, for messages; empty where the picker does not know it.
  [[nodiscard]] virtual std::string NameOf(std::string_view /*barcode*/) const { return {}; }
  /// Whether the goods were picked from those of all stores although the store of SetInventory was offered.
  [[nodiscard]] virtual bool LeftStore() const { return false; }
};

}  // namespace koru
