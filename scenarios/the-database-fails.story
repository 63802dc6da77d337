# A statement fails: the user is told in Persian with the server's words, and the form stays usable.
database sample
user 1
fail statement 4 "Timeout expired"
view 17
error "Timeout expired"
expect pointer normal

view 17
expect result true
expect rows flexDetail 6

# The lines are deleted, the counting is not: what was written stays written.
fail statement 3 "The connection is broken"
click cmdDelete
question "حذف شمارش" "آيا مطمئن هستيد؟" yes
message "خطا" "عمليات به دليل خطاي پايگاه داده انجام نشد.\nThe connection is broken"
expect mode 0
expect pointer normal
expect sql "select (select count(*) from tblInventoryCountingDetail where CountingID = 17), (select count(*) from tblInventoryCounting where ID = 17)"
| 0 1

click cmdDelete
question "حذف شمارش" "آيا مطمئن هستيد؟" yes
expect mode 3
expect sql "select count(*) from tblInventoryCounting where ID = 17"
| 0

# Cancel cannot read the header again: the document stays in editing.
view 16
click cmdEdit
fail statement 1 "Timeout expired"
click cmdCancel
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
message "خطا" "عمليات به دليل خطاي پايگاه داده انجام نشد.\nTimeout expired"
expect mode 1
expect pointer normal
click cmdCancel
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
expect mode 0
