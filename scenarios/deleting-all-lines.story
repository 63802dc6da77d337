# All lines go from the grid after a question; nothing is written.
database sample
user 1
view 17
click cmdEdit
forget statements
click cmdDeleteAll
question "هشدار" "آيا تمامي كالاها و شمارشهاي وارد شده حذف شوند؟" no
expect rows flexDetail 6
expect txtTotalValue "15314"
click cmdDeleteAll
question "هشدار" "آيا تمامي كالاها و شمارشهاي وارد شده حذف شوند؟" yes
expect rows flexDetail 0
expect txtTotalBelowValue "0"
expect txtTotalAboveValue "0"
expect txtTotalValue "0"

# Without a line there is nothing to ask.
click cmdDeleteAll
expect statements
expect sql "select count(*) from tblInventoryCountingDetail where CountingID = 17"
| 6
