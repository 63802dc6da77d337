#include "lines/DocumentCondition.h"

namespace koru {

SqlText DocumentCondition(const InvCountingControls& controls, std::int32_t invID) {
  SqlText condition;
  // Dispatches, too, carry their date in ReceiveDate.
  if (const auto from = controls.gdpFromDate.Value())
    condition = condition + "ReceiveDate>='" + *from + "' and ";
  if (const auto to = controls.gdpToDate.Value()) condition = condition + "ReceiveDate<='" + *to + "' and ";
  return condition + " Code is not NULL and (InventoryID=" + invID +
         " or InventoryID in (Select ChildID from tblInventoryParent Where ID=" + invID;
}

}  // namespace koru
