#include "tests/search/PlainInvSearch.h"

namespace koru {
namespace {

std::string Line(const std::string& before, const std::string& value, const std::string& after = "") {
  return value.empty() ? "" : before + value + after;
}

std::string Quoted(const std::string& before, const std::string& typed, const std::string& after) {
  return Line(before, WithoutOuterBlanks(typed), after);
}

std::string State(const PlainInvSearch& s) {
  if (s.temporary) return s.final ? "" : " and (Code is null) ";
  return s.final ? " and (Code is not null) " : " and (2=3) ";
}

std::string Store(const PlainInvSearch& s) {
  if (!s.store) return "";
  const std::string id = std::to_string(*s.store);
  if (!s.withChildren) return " and (InventoryID =" + id + ")";
  return " and (InventoryID =" + id +
         " or InventoryID in (Select ChildID from tblInventoryParent where tblInventoryParent.ID=" + id +
         "))";
}

const char* const kBase =
    "Select ID, Code,isnull(ManualCode,'') as ManualCode,InvName,FullName,isnull(FarsiCreateDate,'') as "
    "FarsiCreateDate,isnull(Notes,'') as Notes,isnull(FarsiFromDate,'') as "
    "FarsiFromDate,isnull(FarsiToDate,'') as "
    "FarsiToDate,Counter1,Counter2,Counter3,Accepter from vwInventoryCounting where ID<>-1";
const char* const kLines = " and ID in (Select CountingID from tblInventoryCountingDetail where Barcode ";

}  // namespace

std::string PlainInvSearch::Statement(const std::vector<int>& creators) const {
  const std::array<const char*, 6> dateColumns = {
      "CreateDate >=", "CreateDate <=", "FromDate >=", "FromDate <=", "ToDate >=", "ToDate <="};
  const std::array<const char*, 4> peopleColumns = {"CounterEmployeeID1", "CounterEmployeeID2",
                                                    "CounterEmployeeID3", "CounterConfirmerID"};
  std::string sql = kBase + State(*this);
  sql += Line(" and ID >=", id1.number) + Line(" and ID <=", id2.number);
  sql += Quoted(" and ManualCode >='", minG, "'") + Quoted(" and ManualCode <='", maxG, "'");
  sql += Line(" and Code >=", code1.number) + Line(" and Code <=", code2.number);
  if (creator >= 0)
    sql += " and CreatorID =" + std::to_string(creators.at(static_cast<std::size_t>(creator)));
  for (std::size_t i = 0; i < dates.size(); ++i) {
    sql += Line(std::string(" and ") + dateColumns.at(i) + "'", dates.at(i), "'");
  }
  sql += Store(*this);
  for (std::size_t i = 0; i < people.size(); ++i) {
    if (people.at(i))
      sql += std::string(" and ") + peopleColumns.at(i) + " =" + std::to_string(*people.at(i));
  }
  sql += Quoted(" and Notes like '%", notes, "%'");
  sql += Quoted(std::string(kLines) + "like '%", barcode, "%')");
  sql += Quoted(std::string(kLines) + "in (Select Barcode from tblGood where Name like '%", name, "%'))");
  sql += Quoted(std::string(kLines) + "in (Select Barcode from tblGood where Code like '%", code, "%'))");
  return sql;
}

void PlainInvSearch::FillIn(frmInvSearch& form) const {
  form.cmdNew.UserClick();
  form.chkTemp.UserCheck(temporary);
  form.chkFinal.UserCheck(final);
  const std::pair<TextBox*, const std::string*> boxes[] = {
      {&form.txtid1, &id1.typed},     {&form.txtid2, &id2.typed},   {&form.txtcode1, &code1.typed},
      {&form.txtcode2, &code2.typed}, {&form.txtMinG, &minG},       {&form.txtMaxG, &maxG},
      {&form.txtNotes, &notes},       {&form.txtBarCode, &barcode}, {&form.txtName, &name},
      {&form.txtCode, &code}};
  for (const auto& [box, typed] : boxes) box->UserType(*typed);
  form.cmbcreator.UserChoose(creator);
  DateBox* const dateBoxes[] = {&form.gdpcreatedate1, &form.gdpcreatedate2, &form.gdpFromDate1,
                                &form.gdpFromDate2,   &form.gdpToDate1,     &form.gdpToDate2};
  for (std::size_t i = 0; i < dates.size(); ++i) dateBoxes[i]->UserSet(ParseIso(dates.at(i)));
  form.gmpInventory.UserSelect(store.value_or(-1));
  form.chkAllInvs.UserCheck(withChildren);
  PersonSelector* const persons[] = {&form.mptCounter1, &form.mptCounter2, &form.mptCounter3,
                                     &form.mptConfirmer};
  for (std::size_t i = 0; i < people.size(); ++i) persons[i]->UserSelect(people.at(i).value_or(-1));
}

std::vector<CountingCriterion> CountingCriteria() {
  using S = PlainInvSearch;
  using R = std::mt19937;
  std::vector<CountingCriterion> all = {
      [](S& s, R&) { s.final = false; },
      [](S& s, R&) { s.temporary = false; },
      [](S& s, R&) { s.temporary = s.final = false; },
      [](S& s, R& r) { s.id1 = AnyOf(kNumberCases, r); },
      [](S& s, R& r) { s.id2 = AnyOf(kNumberCases, r); },
      [](S& s, R& r) { s.minG = AnyOf(kTexts, r); },
      [](S& s, R& r) { s.maxG = AnyOf(kTexts, r); },
      [](S& s, R& r) { s.code1 = AnyOf(kNumberCases, r); },
      [](S& s, R& r) { s.code2 = AnyOf(kNumberCases, r); },
      [](S& s, R& r) { s.creator = static_cast<int>(r() % 2); },
      [](S& s, R& r) { s.store = static_cast<int>(r() % 9); },
      [](S& s, R& r) { s.store = static_cast<int>(r() % 9), s.withChildren = true; },
      [](S& s, R&) { s.withChildren = true; },
      [](S& s, R& r) { s.notes = AnyOf(kTexts, r); },
      [](S& s, R& r) { s.barcode = AnyOf(kTexts, r); },
      [](S& s, R& r) { s.name = AnyOf(kTexts, r); },
      [](S& s, R& r) { s.code = AnyOf(kTexts, r); },
      [](S& s, R&) {
        s.notes = s.barcode = "   ", s.id1 = {"   ", ""};
      }};
  const std::array<std::string, 3> days = {"2024-02-29", "2023-12-01", "1999-01-09"};
  for (std::size_t i = 0; i < 6; ++i)
    all.emplace_back([i, days](S& s, R& r) { s.dates.at(i) = AnyOf(days, r); });
  for (std::size_t i = 0; i < 4; ++i) {
    all.emplace_back([i](S& s, R& r) { s.people.at(i) = static_cast<int>(r() % 20); });
  }
  return all;
}

}  // namespace koru
