// SPDX-License-Identifier: MIT
#include "ui/models/PressureNotice.h"

#include <gtest/gtest.h>

#include "language/Localization.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

constexpr std::uint64_t mib = 1048576;

class PressureNoticeTest : public testing::Test {
protected:
    AppBench bench;
};

TEST_F(PressureNoticeTest, at_the_normal_level_there_is_none) {
    EXPECT_FALSE(describePressure(MemoryStats::Pressure::normal, {}));
}

TEST_F(PressureNoticeTest, a_warning_is_orange_and_a_critical_level_red) {
    const auto warning = describePressure(MemoryStats::Pressure::warning, {});
    EXPECT_EQ(warning->tint, Tint::orange);
    EXPECT_EQ(warning->symbol, "exclamationmark.circle");
    EXPECT_EQ(warning->status, Localization::shared().string(L10n::Key::memory_statusWarning));
    const auto critical = describePressure(MemoryStats::Pressure::critical, {});
    EXPECT_EQ(critical->tint, Tint::red);
    EXPECT_EQ(critical->symbol, "exclamationmark.triangle.fill");
    EXPECT_EQ(critical->status, Localization::shared().string(L10n::Key::memory_statusCritical));
}

TEST_F(PressureNoticeTest, names_who_uses_most_with_its_size) {
    ProcessSnapshot process;
    process.name = "firefox";
    process.residentMemoryBytes = 4915 * mib;
    const auto notice = describePressure(MemoryStats::Pressure::warning, {process});
    ASSERT_EQ(notice->consumers.size(), 1U);
    EXPECT_EQ(notice->consumers[0], (PressureNotice::Consumer{"firefox", "4.8 GB"}));
}

TEST_F(PressureNoticeTest, a_process_without_a_name_has_the_mark_of_what_is_not_known) {
    const auto notice = describePressure(MemoryStats::Pressure::warning, {ProcessSnapshot{}});
    EXPECT_EQ(notice->consumers.at(0).name, "—");
}

}  // namespace
}  // namespace vtx
