# The first number that a user asks for does not exist, and then one that was deleted.
database sample
user 1
view 2147483647
message "خطا" "شمارش بااين شماره موجود نميباشد."
expect result false
expect mode 0
expect form frmInvCounting hidden
expect pointer normal

view -1
message "خطا" "شمارش بااين شماره موجود نميباشد."
expect form frmInvCounting hidden

sql "delete from tblInventoryCounting where ID = 17"
view 17
message "خطا" "شمارش بااين شماره موجود نميباشد."
expect result false
view 16
expect result true
expect form frmInvCounting shown modeless
