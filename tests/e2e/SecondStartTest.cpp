// SPDX-License-Identifier: MIT
// One program a session.
#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

class SecondStartE2E : public DesktopTest {};

TEST_F(SecondStartE2E, opens_the_popover_of_the_first_and_ends_well) {
    startVantrix();
    for (int start = 0; start < 2; ++start) {
        const auto second = desktop.start({VANTRIX_PROGRAM});
        EXPECT_EQ(second->exitStatus(), 0);
        EXPECT_TRUE(eventually([this] { return isPopoverOpen(); }));
    }
    EXPECT_FALSE(vantrix->hasEnded());
}

TEST_F(SecondStartE2E, the_simulated_program_is_another_one) {
    startVantrix();
    const auto simulated = desktop.start({VANTRIX_SIMULATED_PROGRAM});
    EXPECT_TRUE(
        eventually([this] { return desktop.application("vantrix-simulated").has_value(); }));
    EXPECT_FALSE(simulated->hasEnded());
    EXPECT_FALSE(isPopoverOpen());
}

}  // namespace
}  // namespace vtx::e2e
