# A temporary counting is deleted after a question: its lines first, then the counting.
database sample
user 1
view 17
click cmdDelete
question "حذف شمارش" "آيا مطمئن هستيد؟" no
expect mode 0
expect rows flexDetail 6
click cmdDelete
question "حذف شمارش" "آيا مطمئن هستيد؟" close
expect mode 0

forget statements
click cmdDelete
question "حذف شمارش" "آيا مطمئن هستيد؟" yes
expect statements
| "{? = CALL spPelinHasPermission( 1, 80603 ) }"
| "delete tblInventoryCountingDetail where CountingID=17"
| "delete tblInventoryCounting where id=17"
expect mode 3
expect lblIDVal ""
expect txtGNO ""
expect rows flexDetail 0
expect cmdNew cmdExit enabled
expect cmdEdit cmdDelete disabled
expect sql "select count(*) from tblInventoryCountingDetail where CountingID = 17"
| 0
expect sql "select count(*) from tblInventoryCounting where ID = 17"
| 0
expect sql "select count(*) from tblInventoryCountingDetail where CountingID = 16"
| 2
