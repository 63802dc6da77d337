# The lines go into a workbook as they stand, each time into a new one; an empty form has nothing to export.
database sample
user 1
today 1404/12/29
clearshow
click cmdExcel
expect workbooks none
view 17
click cmdExcel
expect workbooks 6
expect pgbStatus invisible
expect pointer normal
view 11
click cmdExcel
expect workbooks 6 9
