# The empty form is for those who hold the right; opening a stored counting needs none.
database sample
user 5
clearshow
message "خطا" "شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد."
expect form frmInvCounting hidden
expect pointer normal

user 2
clearshow
message "خطا" "شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد."
view 17
expect form frmInvCounting shown
click cmdExit

user 1
forget statements
clearshow
expect statements
| "Select Isnull(BasePath,'') as BasePath from vwPelinBasePath"
| "select FullName from tbluser where ID =1"
| "Select ID from tblInventory where IsDefault=1"
| "Select * from tblPelinSystemParameters Where ID=123 and Value=1"
| "{? = CALL spPelinHasPermission( 1, 806 ) }"
expect form frmInvCounting shown modeless
expect mode 3
expect focus cmdNew
expect pointer normal
expect lblIDVal ""
expect txtCode ""
expect txtGNO ""
expect txtCreator ""
expect txtNotes ""
expect txtTotalBelowValue ""
expect txtTotalAboveValue ""
expect txtTotalValue ""
expect gmpInventory nothing
expect gdpReceiveDate empty
expect rows flexDetail 0
expect cmdNew cmdExit enabled
expect flexDetail cmdEdit cmdDelete cmdTmpSave cmdCancel cmdView cmdPrint cmdGoods cmdCalc cmdDeleteAll disabled
expect mptCounter1 mptCounter2 mptCounter3 mptConfirmer gmpInventory gdpReceiveDate gdpFromDate gdpToDate disabled
expect txtGNO txtNotes locked
picture "opening-for-a-new-counting"

# The empty form over a stored counting leaves nothing of it.
view 17
clearshow
expect lblIDVal ""
expect mptCounter1 nothing
expect gdpFromDate empty
expect rows flexDetail 0
expect txtTotalValue ""
expect focus cmdNew
