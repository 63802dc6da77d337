-- 1 when the user holds the right to the form or command, 0 when not.
create procedure spPelinHasPermission @UserID int, @FormPermissionID int as
begin
  set nocount on
  if exists (select 1 from tblPelinUserPermission where UserID = @UserID and FormPermissionID = @FormPermissionID)
    return 1
  return 0
end
