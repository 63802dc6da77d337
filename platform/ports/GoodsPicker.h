#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/ports/Components.h"

namespace koru {

/// The suite's goods picker, hosted on the goods search: a person picks one good or several.
class GoodsPicker : public SiblingComponent {
 public:
  static constexpr std::string_view kClassName = "comGoodPicker.comGoodPicker1";

  virtual void SetConnectionString(const std::string& connectionString) = 0;
  virtual void SetUserID(std::int32_t userID) = 0;
  /// The store whose goods are offered; before the first call the goods of all stores are.
  virtual void SetInventory(std::int32_t id) = 0;
  /// Whether several goods may be picked at once.
  virtual void SetSeveralGoods(bool several) = 0;
  /// Shows the picker modally and returns when the person has picked or given up.
  virtual void Show() = 0;

  /// What was picked last, as it can follow `in`: the barcodes in apostrophes (one inside a barcode doubled),
  /// in parentheses, behind an empty first one. `('','100')` is one good, `('','100','200')` two; empty:
  /// nothing.
  [[nodiscard]] virtual std::string List() const = 0;
  /// Name, barcode and code of the one good that was picked; empty when there is none.
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::string Barcode() const = 0;
  [[nodiscard]] virtual std::string Code() const = 0;
};

}  // namespace koru
