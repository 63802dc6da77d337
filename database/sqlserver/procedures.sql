-- Returns 1 if the user has permission for the form or command, otherwise 0.
create procedure spPelinHasPermission @UserID int, @FormPermissionID int as
begin
  set nocount on
  if exists (select 1 from tblPelinUserPermission where UserID = @UserID and FormPermissionID = @FormPermissionID)
    return 1
  return 0
end
