#pragma once

#include "platform/sql/Database.h"

namespace koru::test {

/// Empties a server's database and fills it with a small suite:
///   store 2 (the default), where user 7 may work, who holds every right; two base units, of which every
///   second good has its own; `goods` goods with one registered receipt of all of them, and one registered
///   dispatch of every third; temporary counting 1 with a line for each good.
/// So a line of a calculation sends 4 to 6 statements.
void FillSuite(Database& server, int goods);

}  // namespace koru::test
