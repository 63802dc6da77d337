#include "adapters/odbc/ServerTransaction.h"

namespace koru::server_transaction {
namespace {

constexpr std::int32_t kNotGranted = 1222;  ///< the server's number for a lock request that timed out

}  // namespace

void Begin(OdbcSession& session, std::chrono::seconds lockTimeout) {
  const auto timeout = std::to_string(std::chrono::milliseconds(lockTimeout).count());
  const Recordset lock = session.Run(
      "begin transaction;declare @koru_lock int;exec @koru_lock=sp_getapplock "
      "@Resource='KoruInventoryCounting',@LockMode='Exclusive',@LockOwner='Transaction',@LockTimeout=" +
      timeout + ";if @koru_lock<0 rollback transaction;select @koru_lock as KoruLock");
  if (lock.Field("KoruLock").Integer() >= 0) return;
  throw DatabaseError("ايستگاه ديگري در حال ذخيره، ثبت نهايي يا بازگرداندن يك شمارش است و در " +
                          std::to_string(lockTimeout.count()) +
                          " ثانيه پايان نيافت. چيزي نوشته نشد؛ اندكي بعد دوباره بكوشيد.",
                      kNotGranted, {}, DatabaseCause::Locked);
}

bool IsAlive(OdbcSession& session) {
  return session
             .Run(
                 "declare @koru_state int;set @koru_state=xact_state();if @koru_state=-1 rollback "
                 "transaction;select @koru_state as KoruState")
             .Field("KoruState")
             .Integer() == 1;
}

bool Commit(OdbcSession& session) {
  return session
             .Run(
                 "declare @koru_state int;set @koru_state=xact_state();if @koru_state=1 commit "
                 "transaction;if @koru_state=-1 rollback transaction;select @koru_state as KoruState")
             .Field("KoruState")
             .Integer() == 1;
}

}  // namespace koru::server_transaction
