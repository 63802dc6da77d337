# Goods are added by group with its children, looked for again, picked one and several, and not at all.
database sample
user 1
today 1404/12/29
clearshow

# Without a store there is nothing to add to.
click cmdNew
pick gmpInventory nothing
click cmdGoods
message "خطا" "انبار انتخاب نشده است."
pick gmpInventory 5

# A group and all under it, of the goods that came into the store.
click cmdGoods
expect form frmGoodSearch shown modal
expect frmGoodSearch.gmpInventory 5
expect optPrecise on
pick gmpProductGroup 2
expect chkAllBranches on
click frmGoodSearch.cmdSearch
expect sql "select count(*) from tblGood where Barcode <> '' and GoodGroupID in (2, 21, 22, 23) and Barcode in (select Barcode from tblInventoryReceiptDetail d join tblInventoryReceipt r on r.ID = d.ReceiptID where r.InventoryID = 5)"
| 111
expect rows flexDetail 111

# Exit reads the same selection again; nothing is there twice.
click cmdGoods
question "هشدار" "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟" yes
click frmGoodSearch.cmdExit
expect rows flexDetail 111

# No stops it before the search is shown.
click cmdGoods
question "هشدار" "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟" no
expect form frmGoodSearch hidden

# A new search that is left by Exit adds nothing; a closed question goes on.
click cmdGoods
question "هشدار" "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟" close
click cmdNewSearch
expect gmpProductGroup nothing
click frmGoodSearch.cmdExit
expect rows flexDetail 111
expect cell flexDetail 111 0 "111"
