-- The part of the suite's tables that stock-taking reads and writes, for use without a suite database.
--
-- Batches are separated by GO. Texts are nvarchar, so that they store Persian under every collation; they
-- compare by the collation of the database (docs/sql-server.md). Dates are datetime, with their Solar Hijri
-- text in a second column. There are no foreign keys: a counting may refer to a deleted creator, good or
-- document.
--
-- Documents are numbered by identity: max(ID) right after an insert is the new row, and the key of a deleted
-- document is never assigned again.

-- Stores, places and users

create table tblInventory (
  ID int not null primary key,
  ParentID int null,  -- NULL for a top-level store
  Name nvarchar(200) not null,
  IsDefault bit not null default 0
)
GO

-- Closure of a tree: one row for each node and each of its descendants, without the node itself.
create table tblInventoryParent (
  ID int not null,
  ChildID int not null,
  primary key (ID, ChildID)
)
GO

create table tblUser (
  ID int not null primary key,
  FullName nvarchar(400) not null
)
GO

-- A row allows the user to work in the store.
create table tblInventoryUser (
  UserID int not null,
  InventoryID int not null,
  primary key (UserID, InventoryID)
)
GO

-- A row grants the user permission for the form or command; read by spPelinHasPermission.
create table tblPelinUserPermission (
  UserID int not null,
  FormPermissionID int not null,
  primary key (UserID, FormPermissionID)
)
GO

create table tblBPLocation (
  ID int not null primary key,
  ParentID int null,
  Name nvarchar(200) not null
)
GO

create table tblBPLocationChilds (
  ID int not null,
  ChildID int not null,
  primary key (ID, ChildID)
)
GO

-- Goods

create table tblGoodGroup (
  ID int not null primary key,
  ParentID int null,
  Code nvarchar(50) null,
  Name nvarchar(200) not null
)
GO

create table tblGoodGroupParent (
  ID int not null,
  ChildID int not null,
  primary key (ID, ChildID)
)
GO

-- ScaleToBaseParent: the number of base units in one unit. 1 marks a base unit; counts use base units only.
create table tblGoodScale (
  ID int not null primary key,
  ParentID int null,
  Name nvarchar(200) not null,
  ScaleToBaseParent float null
)
GO

create table tblGoodScaleParent (
  ID int not null,
  ChildID int not null,
  primary key (ID, ChildID)
)
GO

create table tblGoodType (
  ID int not null primary key,
  Name nvarchar(200) not null
)
GO

create table tblPelinCurrencyType (
  ID int not null primary key,
  Name nvarchar(200) not null
)
GO

-- Every line refers to a good by Barcode. A good with an empty barcode is never offered.
create table tblGood (
  Barcode nvarchar(100) not null primary key,
  Code nvarchar(100) null,
  Name nvarchar(400) not null,
  RetailPrice float null,
  CurrencyRetailPrice float null,
  CCurrencyTypeID int null,
  TotalQty float null,
  StandardDiscountPercent float null,
  SaleScaleID int null,
  PurchaseScaleID int null,
  TypeID int null,
  GoodGroupID int null,
  TmpLocationID int null,
  Notes nvarchar(max) null
)
GO

-- The units in which a good may be counted.
create table tblGoodSaleScale (
  Barcode nvarchar(100) not null,
  ScaleID int not null,
  primary key (Barcode, ScaleID)
)
GO

-- Stock documents. Code is NULL until the document is registered. Lines store the barcode and the trimmed
-- barcode: book stocks compare trimmed barcodes, and the server uses the index on that column.

create table tblInventoryReceipt (
  ID int not null identity(1,1) primary key,
  Code int null,
  InventoryID int null,
  CreatorID int null,
  ReceiveDate datetime null,
  FarsiReceiveDate nvarchar(20) null,
  CreateDate datetime null,
  FarsiCreateDate nvarchar(20) null,
  Notes nvarchar(max) null
)
GO

create table tblInventoryReceiptDetail (
  ReceiptID int not null,
  Barcode nvarchar(100) not null,
  Qty float null,
  ScaleID int null,
  ScaleQty float null,
  Description nvarchar(max) null,
  Value float null,
  TrimmedBarcode as ltrim(rtrim(Barcode)) persisted
)
GO

create table tblInventoryDispatch (
  ID int not null identity(1,1) primary key,
  Code int null,
  InventoryID int null,
  CreatorID int null,
  ReceiveDate datetime null,  -- the date of the dispatch; named as in receipts
  FarsiReceiveDate nvarchar(20) null,
  CreateDate datetime null,
  FarsiCreateDate nvarchar(20) null,
  Notes nvarchar(max) null
)
GO

create table tblInventoryDispatchDetail (
  DispatchID int not null,
  Barcode nvarchar(100) not null,
  Qty float null,
  ScaleID int null,
  ScaleQty float null,
  Description nvarchar(max) null,
  Value float null,
  TrimmedBarcode as ltrim(rtrim(Barcode)) persisted
)
GO

-- Countings. Code is the final number, 1 to n without gaps, and NULL while the counting is temporary.

create table tblInventoryCounting (
  ID int not null identity(1,1) primary key,
  Code int null,
  ManualCode nvarchar(255) null,
  InventoryID int null,
  CreatorID int null,
  CreateDate datetime null,
  FarsiCreateDate nvarchar(20) null,
  FromDate datetime null,
  FarsiFromDate nvarchar(20) null,
  ToDate datetime null,
  FarsiToDate nvarchar(20) null,
  CounterEmployeeID1 int null,
  CounterEmployeeID2 int null,
  CounterEmployeeID3 int null,
  CounterConfirmerID int null,
  Notes nvarchar(max) null,
  ReceiptID int null,
  DispatchID int null
)
GO

-- ContradictionCounting: accepted less book stock. Positive is a surplus, negative a shortage, NULL no difference.
create table tblInventoryCountingDetail (
  CountingID int not null,
  Barcode nvarchar(100) not null,
  RowNumber int null,
  ScaleID int null,
  FirstCounting float null,
  SecondCounting float null,
  ThirdCounting float null,
  AcceptedCounting float null,
  SystemCounting float null,
  ContradictionCounting float null,
  BaseValue float null
)
GO

-- Shared by the subsystems of the suite

create table tblPelinSystemParameters (
  ID int not null primary key,
  SystemID int not null,
  Value int null
)
GO

-- FilePath: absolute, or relative to the base folder, which ends with a separator.
create table tblPelinReportTemplate (
  ID int not null primary key,
  FormTypeID int not null,
  Title nvarchar(200) not null,
  FilePath nvarchar(400) null
)
GO

create table tblPelinCompany (
  ID int not null primary key,
  Name nvarchar(200) not null,
  BasePath nvarchar(400) null
)
