// SPDX-License-Identifier: MIT
#include "platform/linux/TimeOfDay.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace vtx::test {
namespace {

/// A variable of the process, until the end of the scope.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) { ::setenv(name, value, 1); }
    ~Variable() { ::unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
};

TimeOfDay timeIn(const char* variable, std::string locale) {
    return TimeOfDay([=](std::string_view name) -> std::optional<std::string> {
        return name == variable ? std::optional(locale) : std::nullopt;
    });
}

constexpr auto afternoon = Date{std::chrono::hours(14) + std::chrono::minutes(3) +
                                std::chrono::seconds(7) + std::chrono::milliseconds(999)};

TEST(TimeOfDay, has_hour_minute_and_second_cut_not_rounded) {
    const Variable zone("TZ", "UTC0");
    EXPECT_EQ(timeIn("LANG", "C.UTF-8").text(afternoon), "14:03:07");
}

TEST(TimeOfDay, is_the_time_of_the_users_zone_as_it_is_now) {
    const auto time = timeIn("LANG", "C.UTF-8");
    {
        const Variable zone("TZ", "EST5");
        EXPECT_EQ(time.text(afternoon), "09:03:07");
    }
    const Variable zone("TZ", "IST-5:30");
    EXPECT_EQ(time.text(afternoon), "19:33:07");
}

TEST(TimeOfDay, a_locale_that_is_not_there_has_a_day_of_24_hours) {
    const Variable zone("TZ", "UTC0");
    for (const auto* name : {"xx_XX.UTF-8", "../..", "en_US@nothing", ""})
        EXPECT_EQ(timeIn("LC_ALL", name).text(afternoon), "14:03:07") << name;
}

TEST(TimeOfDay, is_written_as_the_user_does) {
    const Variable made("LOCPATH", VANTRIX_TEST_LOCALES);
    const locale_t american = ::newlocale(LC_TIME_MASK, "en_US.UTF-8", locale_t{});
    if (!american) GTEST_SKIP() << "this machine has no American locale, nor what makes one";
    ::freelocale(american);
    const Variable zone("TZ", "UTC0");
    EXPECT_EQ(timeIn("LC_TIME", "en_US.UTF-8").text(afternoon), "02:03:07 PM");
}

TEST(TimeOfDay, dates_before_all_calendars_have_a_time_too) {
    const Variable zone("TZ", "UTC0");
    EXPECT_EQ(timeIn("LANG", "C").text(Date{std::chrono::seconds(-1)}), "23:59:59");
    EXPECT_EQ(timeIn("LANG", "C").text(distantPast), "00:00:00");
}

}  // namespace
}  // namespace vtx::test
