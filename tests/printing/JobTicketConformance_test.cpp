// SPDX-License-Identifier: Apache-2.0
#include "printing/JobTicket.h"
#include "tests/shells/conformance/Conformance.h"

namespace publishing {
namespace {

const PrintSettingsKind kJobTicket = {
    [] { return std::make_unique<JobTicket>(); },
    [](PrintSettings& settings, std::int32_t mode) {
      dynamic_cast<JobTicket&>(settings).setSides(static_cast<Sides>(mode));
    }};

INSTANTIATE_TEST_SUITE_P(JobTicket, PrintSettingsConformance, testing::Values(kJobTicket));

// The print core has no controls.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ShellConformance);

}  // namespace
}  // namespace publishing
