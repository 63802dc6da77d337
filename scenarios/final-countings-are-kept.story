# A final counting can be looked at, and neither be changed nor deleted.
database sample
user 1
view 1
expect txtCode "1"
click cmdEdit
message "خطا" "اين شمارش ثبت نهايي شده است و نميتوان آن را اصلاح نمود."
expect mode 0
click cmdDelete
message "خطا" "اين شمارش ثبت نهايي شده است و نميتوان آن را ابطال نمود."
expect mode 0
expect lblIDVal "1"
expect sql "select count(*) from tblInventoryCounting where ID = 1"
| 1
