-- Indexes for the component's statements.

-- Lines clustered by document: they are read and deleted together.
create clustered index ixInventoryCountingDetail_Counting on tblInventoryCountingDetail (CountingID, RowNumber)
GO
create clustered index ixInventoryReceiptDetail_Receipt on tblInventoryReceiptDetail (ReceiptID)
GO
create clustered index ixInventoryDispatchDetail_Dispatch on tblInventoryDispatchDetail (DispatchID)
GO

-- All figures of a good, its book stock and its rates, without a look at the table.
create index ixInventoryReceiptDetail_Barcode on tblInventoryReceiptDetail (Barcode, ReceiptID) include (Qty, Value)
GO
create index ixInventoryDispatchDetail_Barcode on tblInventoryDispatchDetail (Barcode, DispatchID) include (Qty, Value)
GO

-- The book stock compares LTrim(RTrim(Barcode)): a server that takes the computed column for that expression seeks here,
-- another one reads the indexes above from their beginning.
create index ixInventoryReceiptDetail_Trimmed on tblInventoryReceiptDetail (TrimmedBarcode, ReceiptID) include (Qty)
GO
create index ixInventoryDispatchDetail_Trimmed on tblInventoryDispatchDetail (TrimmedBarcode, DispatchID) include (Qty)
GO

-- The registered documents of a store in a period.
create index ixInventoryReceipt_Inventory on tblInventoryReceipt (InventoryID, ReceiveDate) include (Code)
GO
create index ixInventoryDispatch_Inventory on tblInventoryDispatch (InventoryID, ReceiveDate) include (Code)
GO

-- Final numbers: the maximum, and renumbering after a return.
create index ixInventoryCounting_Code on tblInventoryCounting (Code)
GO

-- Countings that contain a good.
create index ixInventoryCountingDetail_Barcode on tblInventoryCountingDetail (Barcode) include (CountingID)
