-- Views, one per batch, as the server requires.

create view vwPelinCompany as
select ID, Name from tblPelinCompany
GO

create view vwPelinBasePath as
select top 1 BasePath from tblPelinCompany order by ID
GO

create view vwGoodGroup_CodeMajor as
select ID, ParentID, Code, Name from tblGoodGroup
GO

create view vwGoodScaleMajor as
select ID, ParentID, Name, ScaleToBaseParent from tblGoodScale
GO

-- All countings, including those whose store, creator or counters no longer exist.
create view vwInventoryCounting as
select
  counting.ID, counting.Code, counting.ManualCode,
  counting.InventoryID, store.Name as InvName,
  counting.CreatorID, creator.FullName,
  counting.CreateDate, counting.FarsiCreateDate,
  counting.FromDate, counting.FarsiFromDate,
  counting.ToDate, counting.FarsiToDate,
  counting.CounterEmployeeID1, counter1.FullName as Counter1,
  counting.CounterEmployeeID2, counter2.FullName as Counter2,
  counting.CounterEmployeeID3, counter3.FullName as Counter3,
  counting.CounterConfirmerID, confirmer.FullName as Accepter,
  counting.Notes
from tblInventoryCounting as counting
left join tblInventory as store on store.ID = counting.InventoryID
left join tblUser as creator on creator.ID = counting.CreatorID
left join tblUser as counter1 on counter1.ID = counting.CounterEmployeeID1
left join tblUser as counter2 on counter2.ID = counting.CounterEmployeeID2
left join tblUser as counter3 on counter3.ID = counting.CounterEmployeeID3
left join tblUser as confirmer on confirmer.ID = counting.CounterConfirmerID
GO

-- The rows of a report: one for each line that the counting form shows, joined with the header. The rate is
-- rounded to whole currency units, as on the form. A missing quantity and its amount are NULL.
create view vwInventoryCountingPrint as
select
  counting.ID, counting.Code, counting.ManualCode, counting.InventoryID, counting.InvName,
  counting.CreatorID, counting.FullName,
  counting.CreateDate, counting.FarsiCreateDate,
  counting.FromDate, counting.FarsiFromDate,
  counting.ToDate, counting.FarsiToDate,
  counting.CounterEmployeeID1, counting.Counter1,
  counting.CounterEmployeeID2, counting.Counter2,
  counting.CounterEmployeeID3, counting.Counter3,
  counting.CounterConfirmerID, counting.Accepter,
  counting.Notes,
  line.RowNumber, line.Barcode,
  isnull(good.Code, '') as GoodCode,
  isnull(good.Name, '') as GoodName,
  isnull(scale.Name, '') as UnitName,
  line.FirstCounting, line.SecondCounting, line.ThirdCounting,
  line.AcceptedCounting, line.SystemCounting, line.ContradictionCounting,
  case when line.ContradictionCounting < 0 then -line.ContradictionCounting end as Shortage,
  case when line.ContradictionCounting > 0 then line.ContradictionCounting end as Surplus,
  round(isnull(line.BaseValue, 0), 0) as BaseValue,
  case when line.ContradictionCounting < 0
       then -line.ContradictionCounting * round(isnull(line.BaseValue, 0), 0) end as ShortageValue,
  case when line.ContradictionCounting > 0
       then line.ContradictionCounting * round(isnull(line.BaseValue, 0), 0) end as SurplusValue,
  line.AcceptedCounting * round(isnull(line.BaseValue, 0), 0) as TotalValue
from vwInventoryCounting as counting
join tblInventoryCountingDetail as line on line.CountingID = counting.ID
join tblGood as good on good.Barcode = line.Barcode
left join tblGoodScale as scale on scale.ID = line.ScaleID
