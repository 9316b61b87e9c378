// SPDX-License-Identifier: Apache-2.0
#include "tests/shells/conformance/Conformance.h"
#include "tests/support/HeadlessPrintSettings.h"
#include "tests/support/HeadlessStage.h"

namespace publishing {
namespace {

const Shell kHeadless = {
    [](AlertSink alerts) { return std::make_unique<HeadlessStage>(std::move(alerts)); }};

const PrintSettingsKind kInMemory = {
    [] { return std::make_unique<HeadlessPrintSettings>(); },
    [](PrintSettings& settings, std::int32_t mode) {
      dynamic_cast<HeadlessPrintSettings&>(settings).setDuplex(mode);
    }};

INSTANTIATE_TEST_SUITE_P(Headless, ShellConformance, testing::Values(kHeadless));
INSTANTIATE_TEST_SUITE_P(Headless, PrintSettingsConformance, testing::Values(kInMemory));

}  // namespace
}  // namespace publishing
