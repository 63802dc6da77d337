-- The suite's tables and views as far as stock-taking reads and writes them, for the embedded database.
--
-- Texts compare by the collation KORU, which every connection registers before it reads the file. Dates are
-- 'yyyy-mm-dd', with their Solar Hijri text in a second column. There are no foreign keys: a counting outlives its creator,
-- its goods and the documents that it is linked to.
--
-- Documents are numbered by AUTOINCREMENT: max(ID) right after an insert is the new row, and the key of a deleted
-- receipt or dispatch is never reused, so that a counting's link to it can never lead to someone else's document.
--
-- Several statements name columns without their table. Lines therefore have no ID, Code or date, documents have no
-- Barcode or Value, and goods and units have no ScaleID.

-- Stores, places and users ----------------------------------------------------------------------------------------

create table tblInventory (
  ID integer primary key,
  ParentID integer,  -- NULL for a store that is under none
  Name text not null collate KORU,
  IsDefault integer not null default 0
) strict;

-- Trees are kept expanded: for each node one row for every node below it, children and theirs alike, never itself.
create table tblInventoryParent (
  ID integer not null,
  ChildID integer not null,
  primary key (ID, ChildID)
) strict, without rowid;

create table tblUser (
  ID integer primary key,
  FullName text not null collate KORU
) strict;

-- A row allows the user to work in the store.
create table tblInventoryUser (
  UserID integer not null,
  InventoryID integer not null,
  primary key (UserID, InventoryID)
) strict, without rowid;

-- A row grants the user the form or command; asked by spPelinHasPermission.
create table tblPelinUserPermission (
  UserID integer not null,
  FormPermissionID integer not null,
  primary key (UserID, FormPermissionID)
) strict, without rowid;

create table tblBPLocation (
  ID integer primary key,
  ParentID integer,
  Name text not null collate KORU
) strict;

create table tblBPLocationChilds (
  ID integer not null,
  ChildID integer not null,
  primary key (ID, ChildID)
) strict, without rowid;

-- Goods -----------------------------------------------------------------------------------------------------------

create table tblGoodGroup (
  ID integer primary key,
  ParentID integer,
  Code text collate KORU,
  Name text not null collate KORU
) strict;

create table tblGoodGroupParent (
  ID integer not null,
  ChildID integer not null,
  primary key (ID, ChildID)
) strict, without rowid;

-- ScaleToBaseParent: how many base units make one of this unit. 1 marks a base unit; only those are counted in.
create table tblGoodScale (
  ID integer primary key,
  ParentID integer,
  Name text not null collate KORU,
  ScaleToBaseParent real
) strict;

create table tblGoodScaleParent (
  ID integer not null,
  ChildID integer not null,
  primary key (ID, ChildID)
) strict, without rowid;

create table tblGoodType (
  ID integer primary key,
  Name text not null collate KORU
) strict;

create table tblPelinCurrencyType (
  ID integer primary key,
  Name text not null collate KORU
) strict;

-- Barcode is the key that every line refers to. A good without one has the empty text and is never offered.
create table tblGood (
  Barcode text not null primary key collate KORU,
  Code text collate KORU,
  Name text not null collate KORU,
  RetailPrice real,
  CurrencyRetailPrice real,
  CCurrencyTypeID integer,
  TotalQty real,
  StandardDiscountPercent real,
  SaleScaleID integer,
  PurchaseScaleID integer,
  TypeID integer,
  GoodGroupID integer,
  TmpLocationID integer,
  Notes text collate KORU
) strict;

-- The units that a good may be counted in.
create table tblGoodSaleScale (
  Barcode text not null collate KORU,
  ScaleID integer not null,
  primary key (Barcode, ScaleID)
) strict, without rowid;

-- Stock documents: receipts into a store and dispatches out of it. Code is NULL until the document is registered. ----

create table tblInventoryReceipt (
  ID integer primary key autoincrement,
  Code integer,
  InventoryID integer,
  CreatorID integer,
  ReceiveDate text,
  FarsiReceiveDate text collate KORU,
  CreateDate text,
  FarsiCreateDate text collate KORU,
  Notes text collate KORU
) strict;

create table tblInventoryReceiptDetail (
  ReceiptID integer not null,
  Barcode text not null collate KORU,
  Qty real,
  ScaleID integer,
  ScaleQty real,
  Description text collate KORU,
  Value real
) strict;

create table tblInventoryDispatch (
  ID integer primary key autoincrement,
  Code integer,
  InventoryID integer,
  CreatorID integer,
  ReceiveDate text,  -- the date of the dispatch, under the name that receipts use
  FarsiReceiveDate text collate KORU,
  CreateDate text,
  FarsiCreateDate text collate KORU,
  Notes text collate KORU
) strict;

create table tblInventoryDispatchDetail (
  DispatchID integer not null,
  Barcode text not null collate KORU,
  Qty real,
  ScaleID integer,
  ScaleQty real,
  Description text collate KORU,
  Value real
) strict;

-- Countings. Code is the final number, 1 to n without gaps; NULL while the counting is temporary. --------------------

create table tblInventoryCounting (
  ID integer primary key autoincrement,
  Code integer,
  ManualCode text collate KORU,
  InventoryID integer,
  CreatorID integer,
  CreateDate text,
  FarsiCreateDate text collate KORU,
  FromDate text,
  FarsiFromDate text collate KORU,
  ToDate text,
  FarsiToDate text collate KORU,
  CounterEmployeeID1 integer,
  CounterEmployeeID2 integer,
  CounterEmployeeID3 integer,
  CounterConfirmerID integer,
  Notes text collate KORU,
  ReceiptID integer,
  DispatchID integer
) strict;

-- ContradictionCounting: accepted less book stock; positive is a surplus, negative a shortage, NULL no difference.
create table tblInventoryCountingDetail (
  CountingID integer not null,
  Barcode text not null collate KORU,
  RowNumber integer,
  ScaleID integer,
  FirstCounting real,
  SecondCounting real,
  ThirdCounting real,
  AcceptedCounting real,
  SystemCounting real,
  ContradictionCounting real,
  BaseValue real
) strict;

-- What the subsystems of the suite share --------------------------------------------------------------------------

create table tblPelinSystemParameters (
  ID integer primary key,
  SystemID integer not null,
  Value integer
) strict;

-- FilePath: absolute, or relative to the base folder, which ends in its own separator.
create table tblPelinReportTemplate (
  ID integer primary key,
  FormTypeID integer not null,
  Title text not null collate KORU,
  FilePath text collate KORU
) strict;

create table tblPelinCompany (
  ID integer primary key,
  Name text not null collate KORU,
  BasePath text collate KORU
) strict;

-- Views -----------------------------------------------------------------------------------------------------------

create view vwPelinCompany as
select ID, Name from tblPelinCompany order by ID;

create view vwPelinBasePath as
select BasePath from tblPelinCompany order by ID limit 1;

create view vwGoodGroup_CodeMajor as
select ID, ParentID, Code, Name from tblGoodGroup;

create view vwGoodScaleMajor as
select ID, ParentID, Name, ScaleToBaseParent from tblGoodScale;

-- Every counting, also one whose store, creator or counters exist no longer.
create view vwInventoryCounting as
select
  counting.ID, counting.Code, counting.ManualCode,
  counting.InventoryID, store.Name as InvName,
  counting.CreatorID, creator.FullName,
  counting.CreateDate, counting.FarsiCreateDate,
  counting.FromDate, counting.FarsiFromDate,
  counting.ToDate, counting.FarsiToDate,
  counting.CounterEmployeeID1, first.FullName as Counter1,
  counting.CounterEmployeeID2, second.FullName as Counter2,
  counting.CounterEmployeeID3, third.FullName as Counter3,
  counting.CounterConfirmerID, confirmer.FullName as Accepter,
  counting.Notes
from tblInventoryCounting as counting
left join tblInventory as store on store.ID = counting.InventoryID
left join tblUser as creator on creator.ID = counting.CreatorID
left join tblUser as first on first.ID = counting.CounterEmployeeID1
left join tblUser as second on second.ID = counting.CounterEmployeeID2
left join tblUser as third on third.ID = counting.CounterEmployeeID3
left join tblUser as confirmer on confirmer.ID = counting.CounterConfirmerID;

-- What a report prints: one row per line that the counting form shows, with the header beside it. The rate is rounded
-- to whole money as on the form; a quantity that a line does not have, and its amount, are NULL.
create view vwInventoryCountingPrint as
select
  counting.*,
  line.RowNumber, line.Barcode,
  ifnull(good.Code, '') collate KORU as GoodCode,
  ifnull(good.Name, '') collate KORU as GoodName,
  ifnull(scale.Name, '') collate KORU as UnitName,
  line.FirstCounting, line.SecondCounting, line.ThirdCounting,
  line.AcceptedCounting, line.SystemCounting, line.ContradictionCounting,
  case when line.ContradictionCounting < 0 then -line.ContradictionCounting end as Shortage,
  case when line.ContradictionCounting > 0 then line.ContradictionCounting end as Surplus,
  round(ifnull(line.BaseValue, 0)) as BaseValue,
  case when line.ContradictionCounting < 0
       then -line.ContradictionCounting * round(ifnull(line.BaseValue, 0)) end as ShortageValue,
  case when line.ContradictionCounting > 0
       then line.ContradictionCounting * round(ifnull(line.BaseValue, 0)) end as SurplusValue,
  line.AcceptedCounting * round(ifnull(line.BaseValue, 0)) as TotalValue
from vwInventoryCounting as counting
join tblInventoryCountingDetail as line on line.CountingID = counting.ID
join tblGood as good on good.Barcode = line.Barcode
left join tblGoodScale as scale on scale.ID = line.ScaleID;
