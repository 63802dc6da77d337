#include "siblings/goods/GoodsFinder.h"

#include <utility>

#include "platform/sql/SqlText.h"
#include "platform/text/Text.h"
#include "services/FixQuote.h"

namespace koru {
namespace {

/// `word` escaped for a `like` pattern, so that it matches itself only.
std::string Pattern(std::string_view word) {
  std::string pattern;
  for (const char c : word) {
    const bool wildcard = c == '%' || c == '_' || c == '[';
    pattern += wildcard ? std::string{'[', c, ']'} : std::string(1, c);
  }
  return FixQuote(pattern);
}

SqlText Contains(FixedSql like, std::string_view word) { return SqlText(like) + Typed(Pattern(word)) + "%'"; }

/// Stored names contain either kind of digits; barcodes and codes contain 0-9, whatever the keyboard layout
/// gives.
SqlText OccursInGood(std::string_view word) {
  const std::string latin = LatinDigits(word);
  return SqlText(" and (") + Contains("tblGood.Name like '%", word) +
         Contains(" or tblGood.Code like '%", latin) + Contains(" or tblGood.Barcode like '%", latin) + ")";
}

SqlText OfStore(std::int32_t store) {
  return SqlText("(InventoryID=") + store +
         " or InventoryID in (Select ChildID from tblInventoryParent Where tblInventoryParent.ID=" + store +
         "))";
}

SqlText InOrder(std::string_view typed) {
  const std::string exact = FixQuote(LatinDigits(typed));
  if (exact.empty()) return SqlText(" order by tblGood.Name");
  return SqlText(" order by case when tblGood.Barcode='") + Typed(exact) + "' or tblGood.Code='" +
         Typed(exact) + "' then 0 else 1 end,tblGood.Name";
}

std::vector<std::string_view> Words(std::string_view typed) {
  std::vector<std::string_view> words;
  for (typed = Trim(typed); !typed.empty(); typed = Trim(typed)) {
    const std::string_view word = typed.substr(0, typed.find(' '));
    words.push_back(word);
    typed.remove_prefix(word.size());
  }
  return words;
}

}  // namespace

void GoodsFinder::OnlyOfStore(std::int32_t store) {
  if (store_ != store) moved_.clear();
  store_ = store;
}

bool GoodsFinder::MovedInStore(const std::string& barcode) {
  const auto known = moved_.find(barcode);
  if (known != moved_.end()) return known->second;
  const std::string quoted = FixQuote(Trim(barcode));
  const auto occursIn = [&](FixedSql lines, FixedSql documents) {
    const SqlText sql =
        SqlText(lines) + " Where LTrim(RTrim(Barcode))='" + Typed(quoted) + documents + OfStore(store_) + ")";
    CheckTypedSpans(sql);
    return database_.Open(sql).RecordCount() > 0;
  };
  const bool moved = occursIn("Select top 1 ReceiptID from tblInventoryReceiptDetail",
                              "' and ReceiptID in (Select ID from tblInventoryReceipt Where ") ||
                     occursIn("Select top 1 DispatchID from tblInventoryDispatchDetail",
                              "' and DispatchID in (Select ID from tblInventoryDispatch Where ");
  moved_.emplace(barcode, moved);
  return moved;
}

FoundGoods GoodsFinder::Find(std::string_view typed) {
  const bool narrowed = store_ != kAllStores;
  SqlText sql = SqlText("Select top ") + ((narrowed ? kMaxExamined : kMaxListed) + 1);
  sql +=
      " tblGood.Barcode as Barcode,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName"
      " from tblGood Where tblGood.Barcode<>''";
  for (const std::string_view word : Words(typed)) sql += OccursInGood(word);
  sql += InOrder(Trim(typed));
  CheckTypedSpans(sql);
  FoundGoods found;
  Recordset rows = database_.Open(sql);
  found.more = narrowed && rows.RecordCount() > kMaxExamined;
  for (; !rows.AtEnd(); rows.MoveNext()) {
    std::string barcode = rows.Field("Barcode").Text();
    if (narrowed && !MovedInStore(barcode)) continue;
    if (found.goods.size() == kMaxListed) {
      found.more = true;
      break;
    }
    found.goods.push_back({std::move(barcode), rows.Field("GoodCode").Text(), rows.Field("GoodName").Text()});
  }
  return found;
}

std::string GoodsFinder::StoreName(std::int32_t store) const {
  const Recordset rows = database_.Open(SqlText("Select Name from tblInventory Where ID=") + store);
  return rows.AtEnd() ? std::string() : rows.Field("Name").Text();
}

}  // namespace koru
