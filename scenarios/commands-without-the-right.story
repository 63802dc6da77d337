# Each guarded command is refused to the user who lacks its right, and does nothing.
database sample
user 6
clearshow
click cmdNew
message "خطا" "شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد."
expect mode 3
click cmdExit

user 7
view 17
click cmdEdit
message "خطا" "شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد."
expect mode 0
expect txtGNO locked
click cmdExit

user 4
view 17
click cmdDelete
message "خطا" "شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد."
expect mode 0
expect lblIDVal "17"
click cmdExit

user 8
view 17
click cmdSearch
message "خطا" "شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد."
expect mode 0
expect sql "select count(*) from tblInventoryCounting where ID = 17"
| 1
