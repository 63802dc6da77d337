#include "tests/contract/ScratchSubject.h"

namespace koru::test {
namespace {

INSTANTIATE_TEST_SUITE_P(Embedded, DatabaseContract,
                         testing::Values(ContractCase{"Embedded",
                                                      [] { return std::make_unique<ScratchSubject>(); }}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace koru::test
