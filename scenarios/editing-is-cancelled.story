# What was typed into the header goes back to what is stored; the lines stay as they stand until the counting is viewed
# again.
database sample
user 1
view 17
forget statements
click cmdEdit
expect statements
| "{? = CALL spPelinHasPermission( 1, 80602 ) }"
expect mode 1
expect txtCreator "زهرا كريمي"
expect gdpReceiveDate 1404/12/28
expect flexDetail cmdTmpSave cmdCancel cmdExit cmdGoods cmdCalc cmdDeleteAll enabled
expect cmdNew cmdEdit cmdDelete disabled
expect txtGNO txtNotes editable
type txtGNO "تازه"
type txtNotes ""
pick mptCounter1 9
date gdpFromDate 1404/06/01
click cmdDeleteAll
question "هشدار" "آيا تمامي كالاها و شمارشهاي وارد شده حذف شوند؟" yes
expect rows flexDetail 0

click cmdCancel
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" no
expect mode 1
expect txtGNO "تازه"

forget statements
click cmdCancel
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
expect statements
| "Select * from tblInventoryCounting where ID =17"
| "Select FullName from tblUser where ID=1"
expect mode 0
expect pointer normal
expect txtGNO "ش-1404/17"
expect txtNotes "شمارش دوره\u200Cاي انبار"
expect mptCounter1 4
expect gdpFromDate 1404/01/01
expect rows flexDetail 0
expect sql "select count(*) from tblInventoryCountingDetail where CountingID = 17"
| 6

view 17
expect rows flexDetail 6
