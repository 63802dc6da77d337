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

# The goods picker: one good fills the three fields with what it is.
click cmdDeleteAll
question "هشدار" "آيا تمامي كالاها و شمارشهاي وارد شده حذف شوند؟" yes
click cmdGoods
key frmGoodSearch.txtBarCode F3
picture "goods-picker"
picked "6260000303318"
expect frmGoodSearch.txtBarCode "6260000303318"
expect frmGoodSearch.txtCode "0201002"
expect frmGoodSearch.txtTitle "مايع ظرفشويي ليمويي 1 ليتري"
click frmGoodSearch.cmdSearch
expect column flexDetail 1 "6260000303318"

# Several goods are only told to be several; the search takes the list, not what stands in the fields. The good that has its
# line already is not added again.
click cmdGoods
question "هشدار" "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟" yes
key frmGoodSearch.txtTitle F3
picked "6260000303349" "6260000303318"
expect frmGoodSearch.txtBarCode "چند کالا"
expect frmGoodSearch.txtCode "چند کالا"
expect frmGoodSearch.txtTitle "چند کالا"
click frmGoodSearch.cmdSearch
expect column flexDetail 1 "6260000303318" "6260000303349"
expect column flexDetail 0 "1" "2"

# Whoever gives up leaves the picker with what had been picked before; a new search forgets it in the fields.
click cmdGoods
question "هشدار" "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟" yes
key frmGoodSearch.txtCode F3
picked nothing
expect frmGoodSearch.txtBarCode "چند کالا"
click cmdNewSearch
expect frmGoodSearch.txtBarCode ""
expect frmGoodSearch.txtCode ""
click frmGoodSearch.cmdExit
expect rows flexDetail 2
