-- Indexes for the statements as they are written. Each makes saving a line slower, so every one serves a statement.
-- The indexes for the rates of a good, (Barcode, ReceiptID, Value) and (Barcode, DispatchID, Value), are in
-- adapters/sqlite/AddedIndexes.h: they are also created in database files of earlier versions.

-- Book stock of a good: barcodes are compared trimmed, so the trimmed barcode leads. The plain barcode makes the index
-- covering for SQLite, and with the document and the numbers the table itself is never read.
create index ixInventoryReceiptDetail_Barcode on tblInventoryReceiptDetail
  (ltrim(rtrim(Barcode)) collate KORU, Barcode, ReceiptID, Qty, Value);
create index ixInventoryDispatchDetail_Barcode on tblInventoryDispatchDetail
  (ltrim(rtrim(Barcode)) collate KORU, Barcode, DispatchID, Qty, Value);

-- The lines of one document: when it is deleted, and for the goods that a store's receipts contain.
create index ixInventoryReceiptDetail_Receipt on tblInventoryReceiptDetail (ReceiptID);
create index ixInventoryDispatchDetail_Dispatch on tblInventoryDispatchDetail (DispatchID);

-- The registered documents of a store in a period.
create index ixInventoryReceipt_Inventory on tblInventoryReceipt (InventoryID, ReceiveDate, Code);
create index ixInventoryDispatch_Inventory on tblInventoryDispatch (InventoryID, ReceiveDate, Code);

-- The lines of a counting in their order; deleted and written anew with every save.
create index ixInventoryCountingDetail_Counting on tblInventoryCountingDetail (CountingID, RowNumber);
