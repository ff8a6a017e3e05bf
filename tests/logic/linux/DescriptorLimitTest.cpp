// SPDX-License-Identifier: MIT
#include "platform/linux/DescriptorLimit.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <limits>

namespace vtx::test {
namespace {

struct DescriptorLimit : testing::Test {
    void SetUp() override { ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0); }
    void TearDown() override { EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &usual), 0); }

    void begin(rlim_t soft) const {
        rlimit limit = usual;
        limit.rlim_cur = soft;
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    }
    static rlimit now() {
        rlimit limit{};
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
        return limit;
    }
    rlimit usual{};
};

TEST_F(DescriptorLimit, is_raised_to_what_is_wanted_and_no_further) {
    begin(100);
    raiseDescriptorLimit(200);
    EXPECT_EQ(now().rlim_cur, 200U);
    EXPECT_EQ(now().rlim_max, usual.rlim_max);
}

TEST_F(DescriptorLimit, is_raised_to_what_the_system_allows) {
    begin(100);
    raiseDescriptorLimit(std::numeric_limits<std::size_t>::max());
    EXPECT_EQ(now().rlim_cur, usual.rlim_max);
}

TEST_F(DescriptorLimit, is_taken_back_for_another_program) {
    begin(100);
    raiseDescriptorLimit(200);
    restoreDescriptorLimit();
    EXPECT_LT(now().rlim_cur, 200U) << "what the first raise of this process found";
}

TEST_F(DescriptorLimit, is_never_lowered) {
    begin(300);
    raiseDescriptorLimit(200);
    EXPECT_EQ(now().rlim_cur, 300U);
}

}  // namespace
}  // namespace vtx::test
