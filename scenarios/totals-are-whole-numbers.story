# Amounts keep their fractions, totals are rounded half to even.
database empty
sql "insert into tblUser(ID, FullName) values(1, 'سارا')"
sql "insert into tblGood(Barcode, Name) values('1', 'الف'), ('2', 'ب'), ('3', 'پ')"
sql "insert into tblInventoryCounting(InventoryID, CreatorID) values(1, 1), (1, 1)"
sql "insert into tblInventoryCountingDetail(CountingID, RowNumber, Barcode, AcceptedCounting, SystemCounting, ContradictionCounting, BaseValue) values(1, 1, '1', 12.5, 0, 12.5, 1), (1, 2, '2', 0, 13.5, -13.5, 1), (1, 3, '3', NULL, NULL, NULL, NULL), (2, 1, '1', 13.5, 26, -12.5, 1.4), (2, 2, '2', 0.125, 0, 0.125, 2.5)"
user 1
view 1
expect row flexDetail 1 "1" "1" "" "الف" "" "-1" "" "" "" "12.5" "0" "" "12.5" "1" "" "12.5" "12.5"
expect row flexDetail 2 "2" "2" "" "ب" "" "-1" "" "" "" "0" "13.5" "13.5" "" "1" "13.5" "" "0"
expect row flexDetail 3 "3" "3" "" "پ" "" "-1" "" "" "" "" "" "" "" "0" "" "" ""
expect txtTotalAboveValue "12"
expect txtTotalBelowValue "14"
expect txtTotalValue "12"

# The rate itself is a whole number: 1.4 is read as 1, 2.5 as 2 or 3 as the database rounds.
view 2
expect cell flexDetail 1 13 "1"
expect cell flexDetail 1 14 "12.5"
expect txtTotalBelowValue "12"
