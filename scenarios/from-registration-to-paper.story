# A counting is registered, read on paper in three forms, put into a workbook, and its two documents are opened; once the
# receipt is registered, the counting cannot be returned.
database sample
user 1
today 1404/12/29
view 17
click cmdEdit
tick
click cmdIsFinalized
tick
expect txtCode "8"
expect cmdView cmdFunc enabled
expect cmdEdit cmdDelete cmdPrint disabled
expect cmdPrint invisible
expect txtTotalBelowValue "4500"
expect txtTotalAboveValue "720004"
expect txtTotalValue "15314"

# The whole counting: its sums on paper are those below the grid. The report component sends its query on its own.
forget statements
click cmdView
expect form frmReport shown modal
expect title "مشاهده"
expect cmbReport "شمارش با مغايرت و مبلغ"
picture "report-chooser"
click frmReport.cmdPrint
expect form frmReport unloaded
expect statements
| "Select * from tblPelinReportTemplate where FormTypeID = 806"
| "Select * From tblPelinReportTemplate Where ID = 3"
| "Select top 1 Name from vwPelinCompany"
expect pointer normal
expect report 1 pages
expect report page 1 "شركت پخش آفتاب كوير" "گزارش شمارش انبار" "شماره رايانه اي: ۱۷" "شماره شمارش: ۸"
expect report page 1 "۱" "R001" "دستكش كار چرمي" "۷" "۵" "۲" "۱۴" "۶" "R006" "جمع ۶ سطر" "۴٬۵۰۰" "۷۲۰٬۰۰۴" "۱۵٬۳۱۴"
expect report page 1 "شمارش ۱۷" "صفحه ۱ از ۱"
picture "report-preview"
save report
close report
expect report none

# The sheet for the shelf, with three boxes to write into behind each unit.
click cmdView
choose cmbReport "برگة شمارش انبار (بدون موجودي)"
click frmReport.cmdOk
expect report 1 pages
expect report page 1 "برگه شمارش انبار" "۱" "6260000900012" "R001" "دستكش كار چرمي" "عدد" "" "" "" "۲"
save report
close report

# Only what differs from the books, and places to sign.
click cmdView
choose cmbReport "فهرست مغايرتها"
click frmReport.cmdPrint
expect report 1 pages
expect report page 1 "فهرست مغايرتهاي شمارش انبار" "R004" "جمع ۴ سطر" "۴٬۵۰۰" "۷۲۰٬۰۰۴" "شمارنده" "انباردار" "تاريخ و امضا"
save report
close report

# A report file that is neither as given nor below the base folder is the report component's failure.
sql "update tblPelinReportTemplate set FilePath = 'nowhere/a.rpt.txt' where ID = 5"
click cmdView
choose cmbReport "فهرست مغايرتها"
click frmReport.cmdPrint
message "خطا" "قالب گزارش \u2066/usr/share/koru-counting/nowhere/a.rpt.txt\u2069: چنين پرونده اي نيست."
expect report none
expect pointer normal

click cmdExcel
expect workbooks 6

# A dispatch for the shortage, and a receipt for the surpluses, which the store then receives.
click cmdInvExit
picture "dispatch-window"
document dispatch 333 view
click cmdInvReceipt
picture "receipt-window"
document receipt 232 register
question "هشدار" "آيا از ثبت نهايي رسيد انبار اطمينان داريد؟" yes
expect sql "select Code from tblInventoryReceipt where ID = 232"
| 212
click cmdFunc
question "هشدار" "آيا از بازگشت به حالت موقت شمارش اطمينان داريد؟" yes
message "خطا" "به اين شمارش، برگ رسيد نهايي به شماره رايانه اي 232 وابسته است. بنابراين امكان بازگشت شمارش به حالت موقت وجود ندارد."
expect txtCode "8"
tick
expect cmdFunc enabled
expect cmdEdit disabled
expect sql "select ReceiptID from tblInventoryCounting where ID = 17"
| 232
