# Which stores a counting may be made for.
database sample
user 11
clearshow
click cmdNew
expect gmpInventory 3

# One where the user may not work.
pick gmpInventory 5
message "خطا" "كاربر انتخاب شده در اين انبار مجاز به كار نميباشد."
expect gmpInventory nothing
forget statements
pick gmpInventory 4
expect statements
| "Select * From tblInventoryUser Where UserID=11 and InventoryID=4"
| "Select * from tblInventory where ParentID=4"
expect gmpInventory 4
pick gmpInventory nothing
expect gmpInventory nothing
click cmdExit
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
click cmdExit

# One that stands for others: the default store comes back.
user 1
clearshow
click cmdNew
pick gmpInventory 4
pick gmpInventory 2
message "خطا" "انبار انتخاب شده فرزند دارد."
expect gmpInventory 3
click cmdExit
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
click cmdExit

# Without a default store nothing is proposed, and a store with children leaves nothing.
sql "update tblInventory set IsDefault = 0"
clearshow
click cmdNew
expect gmpInventory nothing
pick gmpInventory 1
message "خطا" "انبار انتخاب شده فرزند دارد."
expect gmpInventory nothing
click cmdExit
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
click cmdExit

# Lines that are on the grid are not put under another store without a question.
view 17
click cmdEdit
pick gmpInventory 4
question "نياز به بازسازي" "تغيير انبار به بازسازي مجدد منجر مي شود. آيا ادامه مي دهيد؟" yes
expect gmpInventory 4
expect rows flexDetail 6
pick gmpInventory 5
question "نياز به بازسازي" "تغيير انبار به بازسازي مجدد منجر مي شود. آيا ادامه مي دهيد؟" no
expect gmpInventory nothing
