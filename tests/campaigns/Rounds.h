#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/campaigns/Station.h"
#include "tests/campaigns/Store.h"

namespace koru::test {

/// A kind of work as a test's name has it.
[[nodiscard]] std::string NameOf(Work work);
/// The stored counting that a round works on; 0 for a new one.
[[nodiscard]] int CountingOf(Work work);

/// The lines that the work writes, known before it is reported.
[[nodiscard]] std::string LinesOf(Work work, int mark);

/// What a program reports of itself to another process: the outcome, in a line.
[[nodiscard]] std::string Written(const Outcome& outcome);
[[nodiscard]] Outcome ReadOutcome(const std::string& line);

/// Expects that the file keeps all rules, and that it holds what was reported; `before` is what it held.
void ExpectKept(const std::string& file, Work work, const Outcome& outcome,
                const std::map<int, StoredCounting>& before);

/// Expects that, where nothing of a save or a registration was kept, the form is what it was before: what was
/// typed is still being entered, under the key that it had.
void ExpectStillEntered(const std::string& file, Work work, const Outcome& outcome,
                        const std::map<int, StoredCounting>& before);

}  // namespace koru::test
