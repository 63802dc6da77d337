# A typical counting from end to end: entered, counted, calculated, saved, corrected, registered with its two documents,
# returned to temporary and registered again.
database sample
user 1
today 1404/12/29
clearshow
expect mode 3
expect focus cmdNew

# A new counting proposes today, the user and the default store; this one is of the store for returned goods.
click cmdNew
expect mode 2
expect gdpReceiveDate 1404/12/29
expect txtCreator "زهرا كريمي"
expect gmpInventory 3
pick gmpInventory 10
type txtGNO "ش-1404/18"
type txtNotes "شمارش پايان سال 'مرجوعي'"
date gdpFromDate 1404/01/01
date gdpToDate 1404/12/29
pick mptCounter1 4
pick mptCounter2 6
pick mptCounter3 7
pick mptConfirmer 3
expect cmdTmpSave cmdIsFinalized enabled

# The goods search finds the goods of the store; each becomes a line that lacks its whole book stock.
click cmdGoods
expect form frmGoodSearch shown modal
choose optNonPrecise
pick frmGoodSearch.gmpInventory nothing
type frmGoodSearch.txtBarCode "62600009000"
picture "goods-search"
click frmGoodSearch.cmdSearch
expect form frmGoodSearch hidden
expect rows flexDetail 6
expect column flexDetail 2 "R001" "R002" "R003" "R004" "R005" "R006"
expect column flexDetail 10 "5" "-4" "0" "9" "0" "7"
expect column flexDetail 11 "5" "" "" "9" "" "7"
expect column flexDetail 14 "10" "" "" "13500" "" "6300"
expect column flexDetail 9 "" "" "" "" "" ""
expect txtTotalBelowValue "19810"
tick
expect cmdTmpSave cmdIsFinalized enabled

# Three people count, and the confirmer accepts. A negative count is refused, a number keeps its leading part.
cell flexDetail 1 6 "7"
cell flexDetail 1 7 "6"
cell flexDetail 1 8 "7"
cell flexDetail 1 9 "7"
expect cell flexDetail 1 11 ""
expect cell flexDetail 1 12 "2"
expect cell flexDetail 1 15 "4"
expect cell flexDetail 1 16 "14"
cell flexDetail 2 9 "0"
cell flexDetail 3 9 "1"
cell flexDetail 4 9 "-6"
message "خطا" "تعداد كمتر از اندازة مجاز است."
expect cell flexDetail 4 9 ""
picture "negative-count-refused"
cell flexDetail 4 9 "6.5 كيلو"
expect cell flexDetail 4 9 "6.5"
expect cell flexDetail 4 11 "2.5"
expect cell flexDetail 4 14 "3750"
cell flexDetail 5 9 "0"
cell flexDetail 6 9 "7"
expect cell flexDetail 6 11 ""
expect txtTotalBelowValue "3750"
expect txtTotalAboveValue "720004"
expect txtTotalValue "16064"
picture "lines-counted"

# Sorting by name rewrites the row numbers.
sort flexDetail 3
expect column flexDetail 0 "1" "2" "3" "4" "5" "6"
expect column flexDetail 2 "R001" "R006" "R004" "R003" "R005" "R002"
sort flexDetail 1

# Saved as temporary: it has a key and no number.
click cmdTmpSave
expect mode 0
expect lblIDVal "18"
expect txtCode ""
expect title "شمارش موقت"
expect sql "select Code, ManualCode, InventoryID, CreatorID, FarsiCreateDate, FarsiFromDate, FarsiToDate, CounterEmployeeID1, CounterEmployeeID2, CounterEmployeeID3, CounterConfirmerID, Notes from tblInventoryCounting where ID = 18"
| NULL "ش-1404/18" 10 1 "1404/12/29" "1404/01/01" "1404/12/29" 4 6 7 3 "شمارش پايان سال 'مرجوعي'"
expect sql "select RowNumber, Barcode, ScaleID, FirstCounting, SecondCounting, ThirdCounting, AcceptedCounting, SystemCounting, ContradictionCounting, BaseValue from tblInventoryCountingDetail where CountingID = 18 order by RowNumber"
| 1 "6260000900012" 1 7 6 7 7 5 2 2
| 2 "6260000900029" 1 NULL NULL NULL 0 -4 4 180000
| 3 "6260000900036" 1 NULL NULL NULL 1 0 1 0
| 4 "6260000900043" 1 NULL NULL NULL 6.5 9 -2.5 1500
| 5 "6260000900050" 1 NULL NULL NULL 0 0 NULL 0
| 6 "6260000900067" 1 NULL NULL NULL 7 7 NULL 900
tick
expect cmdEdit cmdDelete cmdView enabled
expect cmdTmpSave cmdIsFinalized cmdFunc disabled

# Corrected: the first good is counted as three, so that there is a second shortage; a calculation reads the books again.
click cmdEdit
expect mode 1
cell flexDetail 1 9 "3"
expect cell flexDetail 1 11 "2"
click cmdCalc
expect column flexDetail 10 "5" "-4" "0" "9" "0" "7"
expect column flexDetail 11 "2" "" "" "2.5" "" ""
expect txtTotalBelowValue "3754"
expect pgbStatus invisible
tick

# Registered: the next number of all countings, a dispatch for the shortages and a receipt for the surpluses.
click cmdIsFinalized
expect mode 0
expect txtCode "8"
expect title "شمارش"
tick
expect cmdFunc enabled
expect cmdEdit cmdDelete cmdTmpSave cmdIsFinalized disabled
picture "registered"
expect sql "select Code from tblInventoryCounting where Code is not null order by Code"
| 1
| 2
| 3
| 4
| 5
| 6
| 7
| 8
expect sql "select d.ID, d.Code, d.InventoryID, d.CreatorID, d.FarsiReceiveDate, d.Notes from tblInventoryDispatch d join tblInventoryCounting c on c.DispatchID = d.ID where c.ID = 18"
| 333 NULL 10 1 "1404/12/29" "سند ايجاد شده از روي شمارش به شماره رايانهاي 18"
expect sql "select Barcode, Qty, ScaleID, ScaleQty, Description from tblInventoryDispatchDetail where DispatchID = 333 order by Barcode"
| "6260000900012" 2 1 2 ""
| "6260000900043" 2.5 1 2.5 ""
expect sql "select r.ID, r.Code, r.InventoryID, r.CreatorID, r.FarsiReceiveDate, r.Notes from tblInventoryReceipt r join tblInventoryCounting c on c.ReceiptID = r.ID where c.ID = 18"
| 232 NULL 10 1 "1404/12/29" "سند ايجاد شده از روي شمارش به شماره رايانهاي 18"
expect sql "select Barcode, Qty, ScaleID, ScaleQty, Description from tblInventoryReceiptDetail where ReceiptID = 232 order by Barcode"
| "6260000900029" 4 1 4 ""
| "6260000900036" 1 1 1 ""

# Returned: the documents are gone, the number is free, and the others keep 1 to 7.
click cmdFunc
question "هشدار" "آيا از بازگشت به حالت موقت شمارش اطمينان داريد؟" no
expect txtCode "8"
click cmdFunc
question "هشدار" "آيا از بازگشت به حالت موقت شمارش اطمينان داريد؟" yes
expect txtCode ""
expect sql "select count(*), max(Code) from tblInventoryCounting where Code is not null"
| 7 7
expect sql "select ID from tblInventoryDispatch where ID = 333 union select DispatchID from tblInventoryDispatchDetail where DispatchID = 333"
expect sql "select ID from tblInventoryReceipt where ID = 232 union select ReceiptID from tblInventoryReceiptDetail where ReceiptID = 232"
tick
expect cmdEdit enabled
expect cmdFunc disabled

# Registered again, with all as it was counted: one set of documents, and the numbers are 1 to 8.
click cmdEdit
cell flexDetail 1 9 "7"
tick
click cmdIsFinalized
expect txtCode "8"
expect sql "select count(*), count(distinct Code), max(Code) from tblInventoryCounting where Code is not null"
| 8 8 8
expect sql "select Barcode, Qty, ScaleID from tblInventoryDispatchDetail where DispatchID = (select DispatchID from tblInventoryCounting where ID = 18)"
| "6260000900043" 2.5 1
expect sql "select Barcode, Qty, ScaleID from tblInventoryReceiptDetail where ReceiptID = (select ReceiptID from tblInventoryCounting where ID = 18) order by Barcode"
| "6260000900012" 2 1
| "6260000900029" 4 1
| "6260000900036" 1 1
expect sql "select ID from tblInventoryDispatch where ID > 331 and ID <> (select DispatchID from tblInventoryCounting where ID = 18)"
expect sql "select ID from tblInventoryReceipt where ID > 231 and ID <> (select ReceiptID from tblInventoryCounting where ID = 18)"
tick
click cmdExit
expect form frmInvCounting unloaded
