# The two documents of a registered counting are opened; once the receipt is registered, there is no way back.
database sample
user 1
today 1404/12/29
view 17

# A temporary counting has no documents yet.
click cmdInvExit
message "خطا" "برگه خروجي از روي اين شمارش صادر نشده است."
click cmdInvReceipt
message "خطا" "برگه رسيدي از روي اين شمارش صادر نشده است."

click cmdEdit
tick
click cmdIsFinalized
expect txtCode "8"
expect sql "select DispatchID, ReceiptID from tblInventoryCounting where ID = 17"
| 333 232
tick

# Each opens in a window of its own. Whoever thinks twice leaves it temporary.
click cmdInvExit
picture "dispatch"
document dispatch 333 view
click cmdInvReceipt
document receipt 232 register
question "هشدار" "آيا از ثبت نهايي رسيد انبار اطمينان داريد؟" no
expect sql "select Code from tblInventoryDispatch where ID = 333 union all select Code from tblInventoryReceipt where ID = 232"
| NULL
| NULL

# The receipt gets the number after the highest one.
click cmdInvReceipt
document receipt 232 register
question "هشدار" "آيا از ثبت نهايي رسيد انبار اطمينان داريد؟" yes
expect sql "select ID from tblInventoryReceipt where Code = (select max(Code) from tblInventoryReceipt)"
| 232
expect sql "select max(Code), count(*) from tblInventoryReceipt where Code is not null"
| 212 212

# What the store has received cannot be taken back by the counting; the message names the receipt by its key.
click cmdFunc
question "هشدار" "آيا از بازگشت به حالت موقت شمارش اطمينان داريد؟" yes
message "خطا" "به اين شمارش، برگ رسيد نهايي به شماره رايانه اي 232 وابسته است. بنابراين امكان بازگشت شمارش به حالت موقت وجود ندارد."
expect txtCode "8"
expect sql "select count(*) from tblInventoryReceiptDetail where ReceiptID = 232"
| 3
expect sql "select Code from tblInventoryDispatch where ID = 333"
| NULL

# A counting that had surpluses only has no dispatch; a link to a deleted receipt opens nothing.
view 6
click cmdInvExit
message "خطا" "برگه خروجي از روي اين شمارش صادر نشده است."
click cmdInvReceipt
document receipt 230 view
view 7
click cmdInvReceipt
message "خطا" "برگه رسيدي از روي اين شمارش صادر نشده است."
