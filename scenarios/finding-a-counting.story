# A counting is looked for by each kind of criterion, the results are sorted, one is opened, and the next search starts where
# this one ended.
database sample
user 1
today 1404/12/29
clearshow
click cmdSearch
expect form frmInvSearch shown modal
expect chkTemp on
expect chkFinal on
expect rows flexSearch 0

# Without a criterion every counting is found, temporary and final.
forget statements
click frmInvSearch.cmdSearch
expect rows flexSearch 17
expect statements
| "Select ID, Code,isnull(ManualCode,'') as ManualCode,InvName,FullName,isnull(FarsiCreateDate,'') as FarsiCreateDate,isnull(Notes,'') as Notes,isnull(FarsiFromDate,'') as FarsiFromDate,isnull(FarsiToDate,'') as FarsiToDate,Counter1,Counter2,Counter3,Accepter from vwInventoryCounting where ID<>-1"

# Temporary, final, neither.
check chkFinal off
click frmInvSearch.cmdSearch
expect rows flexSearch 10
check chkTemp off
click frmInvSearch.cmdSearch
expect rows flexSearch 0
check chkFinal on
click frmInvSearch.cmdSearch
expect rows flexSearch 7
check chkTemp on

# Numbers: the key, the manual number (as text), the final number.
type txtid1 "15abc"
click frmInvSearch.cmdSearch
expect rows flexSearch 3
type txtid1 ""
type txtMinG " ش-1404/17 "
type txtMaxG "ش-1404/17"
click frmInvSearch.cmdSearch
expect column flexSearch 1 "17"
type txtMinG ""
type txtMaxG ""
type txtcode1 "3"
type txtcode2 "4"
click frmInvSearch.cmdSearch
expect column flexSearch 2 "3" "4"
type txtcode1 ""
type txtcode2 ""

# Who prepared it, and who counted and accepted.
choose cmbcreator "حسين رضايي"
click frmInvSearch.cmdSearch
expect column flexSearch 1 "3" "6" "9" "15"
key cmbcreator Delete
pick frmInvSearch.mptCounter3 7
pick frmInvSearch.mptConfirmer 10
click frmInvSearch.cmdSearch
expect column flexSearch 1 "4" "12" "16"
pick frmInvSearch.mptCounter3 nothing
pick frmInvSearch.mptConfirmer nothing

# Days, and a store with those below it.
date gdpcreatedate1 1404/12/01
date gdpcreatedate2 1404/12/29
click frmInvSearch.cmdSearch
expect column flexSearch 1 "15" "16" "17"
date gdpcreatedate1 empty
date gdpcreatedate2 empty
pick frmInvSearch.gmpInventory 7
click frmInvSearch.cmdSearch
expect rows flexSearch 0
check chkAllInvs on
click frmInvSearch.cmdSearch
expect column flexSearch 1 "4" "7" "13"
picture "countings-found"
pick frmInvSearch.gmpInventory nothing
check chkAllInvs off

# Notes, and goods on the lines.
type frmInvSearch.txtBarCode "6260000900012"
click frmInvSearch.cmdSearch
expect column flexSearch 1 "16" "17"
type frmInvSearch.txtBarCode ""
type frmInvSearch.txtName "ماسك فيلتر"
click frmInvSearch.cmdSearch
expect column flexSearch 1 "17"
type frmInvSearch.txtName ""
type frmInvSearch.txtCode "R00"
click frmInvSearch.cmdSearch
expect column flexSearch 1 "16" "17"

# An apostrophe breaks the statement; nothing is sent, and the dialog stays usable.
type frmInvSearch.txtNotes "'"
click frmInvSearch.cmdSearch
message "خطا" "عمليات به دليل خطاي پايگاه داده انجام نشد.\nUnclosed quotation mark or incorrect syntax near a typed text."
type frmInvSearch.txtNotes ""
click frmInvSearch.cmdSearch
expect rows flexSearch 2

# Sorted by the store's name, then opened; the next search still has the criteria and the results.
sort flexSearch 3
expect column flexSearch 0 "1" "2"
doubleclick flexSearch 2
expect form frmInvSearch hidden
expect lblIDVal "17"
expect mode 0
expect rows flexDetail 6
click cmdSearch
expect frmInvSearch.txtCode "R00"
expect rows flexSearch 2
click frmInvSearch.cmdNew
expect frmInvSearch.txtCode ""
expect rows flexSearch 0
click frmInvSearch.cmdExit
expect form frmInvSearch hidden
