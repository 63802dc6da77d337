# Countings of all kinds are opened on the same form; nothing of the one before shows through.
database sample
user 1

view 17
expect txtGNO "ش-1404/17"

# A final counting has its number.
view 2
expect result true
expect lblIDVal "2"
expect txtCode "2"
expect gmpInventory 6
expect mptCounter3 7
expect rows flexDetail 50

# No counters, no confirmer, no manual number, no notes.
view 8
expect lblIDVal "8"
expect txtCode ""
expect txtGNO ""
expect txtNotes ""
expect mptCounter1 nothing
expect mptCounter2 nothing
expect mptCounter3 nothing
expect mptConfirmer nothing
expect gmpInventory 5
expect rows flexDetail 20

# No lines: the header row alone, and totals of nothing.
view 9
expect txtCreator "حسين رضايي"
expect rows flexDetail 0
expect txtTotalBelowValue "0"
expect txtTotalAboveValue "0"
expect txtTotalValue "0"

# Its creator has left the company.
view 12
expect txtCreator ""
expect rows flexDetail 20
expect sql "select CreatorID, (select count(*) from tblUser where ID = CreatorID) from tblInventoryCounting where ID = 12"
| 13 0

# No period.
view 14
expect gdpReceiveDate 1404/11/10
expect gdpFromDate empty
expect gdpToDate empty

# A line without a unit.
view 10
expect cell flexDetail 1 4 "عدد"
expect cell flexDetail 1 5 "1"
expect cell flexDetail 2 4 ""
expect cell flexDetail 2 5 "-1"

# Ten lines are stored; the good of the second is gone, and nine are shown, numbered without a gap.
view 11
expect sql "select count(*) from tblInventoryCountingDetail where CountingID = 11"
| 10
expect column flexDetail 0 "1" "2" "3" "4" "5" "6" "7" "8" "9"
expect column flexDetail 1 "6260000100139" "6260000100429" "6260000100498" "6260000100504" "6260000100603" "6260000100948" "6260000101693" "6260000102225" "6260000102317"

# No counting has this number: a message, and the form stays as it was.
view 99
message "خطا" "شمارش بااين شماره موجود نميباشد."
expect result false
expect mode 0
expect form frmInvCounting shown
expect lblIDVal "11"
expect rows flexDetail 9

# Apostrophes in the notes are texts like others.
view 13
expect txtNotes "قفسه 'ب' و بسته\u200Cهاي 12' شمرده نشد"
