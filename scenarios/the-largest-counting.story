# 32,767 lines.
database empty
sql "insert into tblUser(ID, FullName) values(1, 'سارا')"
sql "with recursive n(i) as (select 1 union all select i + 1 from n where i < 32767) insert into tblGood(Barcode, Code, Name) select printf('%08d', i), printf('C%05d', i), 'كالاي ' || i from n"
sql "insert into tblInventoryCounting(ID, InventoryID, CreatorID) values(1, 1, 1)"
sql "insert into tblInventoryCountingDetail(CountingID, RowNumber, Barcode, AcceptedCounting, SystemCounting, ContradictionCounting, BaseValue) select 1, rowid, Barcode, 3, 5, -2, 10 from tblGood"
user 1
view 1
expect rows flexDetail 32767
expect cell flexDetail 32767 0 "32767"
expect cell flexDetail 32767 3 "كالاي 32767"
expect cell flexDetail 32767 14 "20"
expect txtTotalBelowValue "655340"
expect txtTotalValue "983010"
