# A temporary counting of six goods is opened: its header, its lines, and what can be done with it.
database sample
user 1
forget statements
view 17
expect statements
| "Select Isnull(BasePath,'') as BasePath from vwPelinBasePath"
| "select FullName from tbluser where ID =1"
| "Select ID from tblInventory where IsDefault=1"
| "Select * from tblInventoryCounting where ID =17"
| "Select FullName from tblUser where ID=1"
| "select round(isnull(BaseValue,0),0) as Value, tblGood.barcode,FirstCounting,SecondCounting,ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,isnull(ScaleID,-1) as ScaleID,isnull(tblGoodScale.Name,'') as UnitName,isnull(tblGood.Code,'') as GoodCode,tblGood.Name as GoodName from tblInventoryCountingDetail Inner Join tblGood on tblInventoryCountingDetail.Barcode=tblGood.Barcode Left Outer Join tblGoodScale On ScaleID=tblGoodScale.ID where CountingID =17 Order By RowNumber"
| "Select * from tblPelinSystemParameters Where ID=123 and Value=1"

expect result true
expect mode 0
expect form frmInvCounting shown modeless
expect pointer normal
expect focus cmdEdit

expect lblIDVal "17"
expect txtCode ""
expect txtGNO "ش-1404/17"
expect txtCreator "زهرا كريمي"
expect gmpInventory 10
expect gdpReceiveDate 1404/12/28
expect gdpFromDate 1404/01/01
expect gdpToDate 1404/12/28
expect mptCounter1 4
expect mptCounter2 6
expect mptCounter3 nothing
expect mptConfirmer 3
expect txtNotes "شمارش دوره\u200Cاي انبار"

# Accepted less book stock: above zero is a surplus (column 12), below it a shortage (11); the rate gives the amounts.
expect rows flexDetail 6
expect row flexDetail 1 "1" "6260000900012" "R001" "دستكش كار چرمي" "عدد" "1" "7" "7" "" "7" "5" "" "2" "2" "" "4" "14"
expect row flexDetail 2 "2" "6260000900029" "R002" "ماسك فيلتردار" "عدد" "1" "0" "0" "" "0" "-4" "" "4" "180000" "" "720000" "0"
expect row flexDetail 3 "3" "6260000900036" "R003" "كلاه ايمني" "عدد" "1" "2" "1" "1" "1" "0" "" "1" "0" "" "0" "0"
expect row flexDetail 4 "4" "6260000900043" "R004" "عينك محافظ" "عدد" "1" "6" "6" "" "6" "9" "3" "" "1500" "4500" "" "9000"
expect row flexDetail 5 "5" "6260000900050" "R005" "گوشي ايمني" "عدد" "1" "1" "0" "0" "0" "0" "" "" "0" "" "" "0"
expect row flexDetail 6 "6" "6260000900067" "R006" "طناب كار 10 متري" "عدد" "1" "7" "7" "" "7" "7" "" "" "900" "" "" "6300"
expect color flexDetail 1 "F7F2F0"
expect color flexDetail 2 "EEE2DF"
expect color flexDetail 3 "F7F2F0"
expect txtTotalBelowValue "4500"
expect txtTotalAboveValue "720004"
expect txtTotalValue "15314"

# The titles, with their blanks and the characters that nobody sees.
expect row flexDetail 0 "   رديف" "  کد ميله\u200Cاي            " "كد              " "نام                                   " "واحد          " "شماره واحد      " "شمارش اول         " "شمارش دوم         " "شمارش سوم         " "شمارش مورد قبول  \u00A0" "موجودي دفتري      " "كسري       " "   اضافي   " "نرخ واحد        " " مبلغ كسري           " " مبلغ اضافي          " " مبلغ موجودي شمارش شده"

expect flexDetail cmdNew cmdEdit cmdDelete cmdExit enabled
expect cmdTmpSave cmdCancel cmdPrint cmdGoods cmdCalc cmdDeleteAll disabled
expect mptCounter1 mptCounter2 mptCounter3 mptConfirmer gmpInventory gdpReceiveDate gdpFromDate gdpToDate disabled
expect txtGNO txtNotes locked
expect pgbStatus invisible
picture "opening-a-counting"
click cmdExit
expect form frmInvCounting unloaded
