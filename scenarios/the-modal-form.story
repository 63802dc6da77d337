# System parameter 123 makes the form modal: the host waits until it is closed.
database sample
user 1
sql "update tblPelinSystemParameters set Value = 1 where ID = 123"
view 17
expect form frmInvCounting shown modal
expect focus cmdEdit
click cmdEdit
click cmdExit
question "انصراف از ثبت شمارش" "آيا مطمئن هستيد؟" yes
expect mode 0
click cmdExit
expect result true
expect form frmInvCounting unloaded

clearshow
expect form frmInvCounting shown modal
expect mode 3
close
expect form frmInvCounting unloaded

# Another value, or no row, is no.
sql "update tblPelinSystemParameters set Value = 2 where ID = 123"
view 17
expect form frmInvCounting shown modeless
expect result true
click cmdExit
sql "delete from tblPelinSystemParameters where ID = 123"
view 17
expect form frmInvCounting shown modeless
