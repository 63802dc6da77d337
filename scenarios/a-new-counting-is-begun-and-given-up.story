# New, a few fields, a second thought, and out.
database sample
today 1404/10/20
user 1
clearshow
forget statements
click cmdNew
expect statements
| "{? = CALL spPelinHasPermission( 1, 80601 ) }"
| "select FullName from tbluser where ID =1"
| "Select * From tblInventoryUser Where UserID=1 and InventoryID=3"
expect mode 2
expect focus gmpInventory
expect gmpInventory 3
expect gdpReceiveDate 1404/10/20
expect gdpFromDate empty
expect gdpToDate empty
expect txtCreator "زهرا كريمي"
expect flexDetail cmdTmpSave cmdCancel cmdExit cmdGoods cmdCalc cmdDeleteAll enabled
expect cmdNew cmdEdit cmdDelete cmdView cmdPrint disabled
expect mptCounter1 mptCounter2 mptCounter3 mptConfirmer gmpInventory gdpReceiveDate gdpFromDate gdpToDate enabled
expect txtGNO txtNotes editable

type txtGNO "دفتر 12 - ص \"ب\""
type txtNotes "سطر يك\nسطر دو"
pick mptCounter1 4
pick mptConfirmer 10
date gdpFromDate 1404/01/01
date gdpToDate 1404/10/20
expect txtGNO "دفتر 12 - ص \"ب\""
expect txtNotes "سطر يك\nسطر دو"
expect mptCounter1 4
expect mptConfirmer 10
expect gdpFromDate 1404/01/01
pick mptConfirmer nothing
expect mptConfirmer nothing
date gdpToDate empty
expect gdpToDate empty

# The day of the counting can be changed but never be left empty.
date gdpReceiveDate 1404/10/19
expect gdpReceiveDate 1404/10/19
date gdpReceiveDate empty
expect gdpReceiveDate 1404/10/20

# Exit asks first while a document is being entered.
click cmdExit
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" no
expect mode 2
expect mptCounter1 4
expect form frmInvCounting shown
close
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" close
expect mode 2
expect form frmInvCounting shown

click cmdExit
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
expect form frmInvCounting shown
expect mode 3
expect focus cmdExit
expect txtGNO ""
expect txtNotes ""
expect mptCounter1 nothing
expect gdpReceiveDate empty
expect gmpInventory nothing
expect cmdNew enabled
expect cmdCancel disabled
click cmdExit
expect form frmInvCounting unloaded
expect sql "select count(*), max(ID) from tblInventoryCounting"
| 17 17
