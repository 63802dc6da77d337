# Without the suite's message component nothing is shown, and a question counts as not answered.
database sample
user 1
unregister comMessage.comMSG
view 99
expect result false
view 17
click cmdDelete
expect mode 0
expect rows flexDetail 6
view 1
click cmdEdit
expect mode 0
user 5
clearshow
expect mode 3
