#include "tests/counting/CountingModel.h"

#include <algorithm>

namespace koru::test {
namespace {

Decimal HalfToEven(Decimal number, Decimal unit) {
  const Decimal whole = number / unit;
  const Decimal rest = number % unit * 2;
  const bool up = rest > unit || (rest == unit && whole % 2 != 0);
  return (whole + (up ? 1 : 0)) * unit;
}

/// Thousandths times hundredths, or less: no digit is lost.
Decimal Product(Decimal a, Decimal b) { return a / 100 * (b / 10'000); }

std::string Field(std::optional<Decimal> number) { return number ? DecimalText(number) : "NULL"; }

}  // namespace

std::string DecimalText(std::optional<Decimal> number) {
  if (!number) return {};
  const Decimal magnitude = *number < 0 ? -*number : *number;
  std::string text = std::to_string(magnitude / kOne);
  std::string decimals = std::to_string(magnitude % kOne + kOne).substr(1);
  decimals.erase(decimals.find_last_not_of('0') + 1);
  if (!decimals.empty()) text += "." + decimals;
  return (*number < 0 ? "-" : "") + text;
}

void ModelLine::Calculate() {
  shortage = surplus = shortageAmount = surplusAmount = std::nullopt;
  const Decimal difference = accepted.value_or(0) - system.value_or(0);
  if (difference > 0) {
    surplus = HalfToEven(difference, kOne / 1000);
    surplusAmount = Product(*surplus, rate.value_or(0));
  } else if (difference < 0) {
    shortage = HalfToEven(-difference, kOne / 1000);
    shortageAmount = Product(*shortage, rate.value_or(0));
  }
  if (accepted) countedAmount = Product(*accepted, rate.value_or(0));
}

std::string ModelLine::Cells() const {
  std::string cells = std::to_string(unit);
  for (const auto& number : {counts[0], counts[1], counts[2], accepted, system, shortage, surplus, rate,
                             shortageAmount, surplusAmount, countedAmount}) {
    cells += "|" + DecimalText(number);
  }
  return cells;
}

std::string ModelLine::Stored() const {
  std::optional<Decimal> contradiction;
  if (surplus.value_or(0) > 0) {
    contradiction = surplus;
  } else if (shortage.value_or(0) > 0) {
    contradiction = -*shortage;
  }
  return barcode + "|" + std::to_string(unit) + "|" + Field(counts[0]) + "|" + Field(counts[1]) + "|" +
         Field(counts[2]) + "|" + Field(accepted) + "|" + Field(system) + "|" + Field(contradiction) + "|" +
         DecimalText(rate.value_or(0));
}

ModelLine ModelLine::Reloaded() const {
  ModelLine line = *this;
  line.rate = (rate.value_or(0) + kOne / 2) / kOne * kOne;
  if (line.surplus == 0) line.surplus = std::nullopt;
  if (line.shortage == 0) line.shortage = std::nullopt;
  const auto amount = [&](std::optional<Decimal> quantity) {
    return quantity ? std::optional(Product(*quantity, *line.rate)) : std::nullopt;
  };
  line.shortageAmount = amount(line.shortage);
  line.surplusAmount = amount(line.surplus);
  line.countedAmount = amount(line.accepted);
  return line;
}

int CountingModel::NextCode() const {
  int last = 0;
  for (const auto& [id, counting] : countings) last = std::max(last, counting.code.value_or(0));
  return last + 1;
}

void CountingModel::Register(int id) {
  ModelCounting& counting = countings.at(id);
  counting.code = NextCode();
  counting.dispatch = std::nullopt;
  counting.receipt = std::nullopt;
  std::map<std::string, ModelLine> byBarcode;
  for (const auto& [row, line] : counting.lines) byBarcode.emplace(line.barcode, line);
  for (const auto& [barcode, line] : byBarcode) {
    const bool more = line.surplus.value_or(0) > 0;
    if (!more && line.shortage.value_or(0) == 0) continue;
    auto& document = more ? counting.receipt : counting.dispatch;
    const Decimal quantity = more ? *line.surplus : *line.shortage;
    if (!document) document.emplace();
    document->lines += barcode + "|" + DecimalText(quantity) + "|" + std::to_string(line.unit) + "\n";
    document->quantities[barcode] = quantity;
  }
}

void CountingModel::RegisterDocument(ModelDocument& document, bool isReceipt) {
  document.registered = true;
  for (const auto& [barcode, quantity] : document.quantities)
    registeredStock[barcode] += isReceipt ? quantity : -quantity;
}

bool CountingModel::Return(int id) {
  ModelCounting& counting = countings.at(id);
  if (counting.receipt && counting.receipt->registered) return false;
  if (counting.dispatch && counting.dispatch->registered) return false;
  counting.receipt = std::nullopt;
  counting.dispatch = std::nullopt;
  const int freed = *counting.code;
  counting.code = std::nullopt;
  for (auto& [other, moved] : countings) {
    if (moved.code && *moved.code > freed) --*moved.code;
  }
  return true;
}

}  // namespace koru::test
