# The host never gave a connection, or one that leads nowhere.
database empty
user 1
connection "0"
view 1
error "هنوز پايگاه داده اي به اين فرم داده نشده است."
clearshow
error "هنوز پايگاه داده اي به اين فرم داده نشده است."
connection "Provider=Other;Password='a;b'"
view 1
error "نوع پايگاه داده (Provider) در رشته اتصال شناخته نشد: \u2066Provider=Other;Password=***;\u2069"
connection "Provider=SQLite;Data Source=nowhere/at-all.db"
view 1
error "پروندة پايگاه داده پيدا نشد: \u2066nowhere/at-all.db\u2069"
expect pointer normal
