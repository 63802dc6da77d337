# Whoever closes the report chooser prints nothing, and finds the form as it was.
database sample
user 1
view 1
tick
click cmdView
expect form frmReport shown modal
expect cmbReport "شمارش با مغايرت و مبلغ"
close
expect form frmReport unloaded
expect form frmInvCounting shown
expect mode 0
