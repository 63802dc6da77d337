# 32,767 lines.
database empty
sql "insert into tblUser(ID, FullName) values(1, 'سارا')"
sql "with digits(d) as (select 0 union all select 1 union all select 2 union all select 3 union all select 4 union all select 5 union all select 6 union all select 7 union all select 8 union all select 9) insert into tblGood(Barcode, Code, Name) select 10000000 + i, 100000 + i, 'كالا' from (select 1 + a.d + 10 * b.d + 100 * c.d + 1000 * e.d + 10000 * f.d as i from digits a, digits b, digits c, digits e, digits f) as n where i <= 32767"
sql "insert into tblInventoryCounting(InventoryID, CreatorID) values(1, 1)"
sql "insert into tblInventoryCountingDetail(CountingID, RowNumber, Barcode, AcceptedCounting, SystemCounting, ContradictionCounting, BaseValue) select 1, Barcode - 10000000, Barcode, 3, 5, -2, 10 from tblGood"
user 1
view 1
expect rows flexDetail 32767
expect cell flexDetail 32767 0 "32767"
expect cell flexDetail 32767 1 "10032767"
expect cell flexDetail 32767 2 "132767"
expect cell flexDetail 32767 14 "20"
expect txtTotalBelowValue "655340"
expect txtTotalValue "983010"
