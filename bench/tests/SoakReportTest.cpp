// SPDX-License-Identifier: MIT
#include "soak/SoakReport.h"

#include <gmock/gmock.h>

#include <span>

namespace vtx::bench {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::size_t samplesOfASixth = 10;
constexpr std::uint64_t mib = 1024;

/// An hour in which nothing changes: each second sample is a calm one, the others hold more.
SoakReport anHour() {
    SoakReport report;
    report.length = 1h;
    report.steps = 100;
    report.stripChanges = 20;
    report.hasEndedInOrder = true;
    for (std::size_t i = 0; i < 6 * samplesOfASixth; ++i) {
        const bool isCalm = i % 2 == 0;
        const Holding held{.pssKiB = 15 * mib,
                           .ussKiB = 5 * mib,
                           .rssKiB = 30 * mib,
                           .ownKiB = isCalm ? 4 * mib : 9 * mib,
                           .threads = isCalm ? 4U : 7U,
                           .descriptors = isCalm ? 23U : 90U};
        Holding server;
        server.ownKiB = isCalm ? 24 * mib : 40 * mib;
        report.samples.push_back({i * 1min, isCalm, held, server});
    }
    return report;
}

/// Changes what was held from the sixth of that number on, counted from 0.
void change(SoakReport& report, std::size_t sixth, std::size_t Holding::* field, std::size_t by) {
    for (std::size_t i = sixth * samplesOfASixth; i < report.samples.size(); ++i)
        report.samples[i].holding.*field += by;
}

TEST(SoakReport, what_stays_as_it_was_is_well) { EXPECT_THAT(complaints(anHour()), IsEmpty()); }

TEST(SoakReport, one_descriptor_or_thread_more_at_the_end_is_not_well) {
    auto report = anHour();
    change(report, 3, &Holding::descriptors, 1);
    EXPECT_THAT(complaints(report), ElementsAre(HasSubstr("descriptors: 1.00 more")));
    change(report, 5, &Holding::threads, 1);
    EXPECT_THAT(complaints(report), ElementsAre(HasSubstr("descriptors"), HasSubstr("threads")));
}

TEST(SoakReport, what_comes_within_the_first_sixth_is_the_coming_to_rest) {
    auto report = anHour();
    change(report, 1, &Holding::descriptors, 5);
    change(report, 1, &Holding::threads, 1);
    EXPECT_THAT(complaints(report), IsEmpty());
}

TEST(SoakReport, a_little_more_memory_is_well_unless_it_is_more_in_each_sixth) {
    auto report = anHour();
    for (auto& sample : std::span(report.samples).subspan(2 * samplesOfASixth))
        sample.holding.ownKiB += 600;
    EXPECT_THAT(complaints(report), IsEmpty());
    for (std::size_t i = 0; i < report.samples.size(); ++i)
        report.samples[i].holding.ownKiB = 4 * mib + i / samplesOfASixth * 100;
    EXPECT_THAT(complaints(report), ElementsAre(HasSubstr("no file holds in MiB: more in each")));
}

TEST(SoakReport, more_memory_than_a_mebibyte_is_not_well) {
    auto report = anHour();
    for (auto& sample : std::span(report.samples).subspan(4 * samplesOfASixth))
        sample.holding.rssKiB += 2 * mib;
    EXPECT_THAT(complaints(report), ElementsAre(HasSubstr("resident memory in MiB: 2.00 more")));
}

TEST(SoakReport, what_the_display_is_left_to_hold_is_judged_where_it_can_be_told) {
    auto report = anHour();
    for (auto& sample : std::span(report.samples).subspan(4 * samplesOfASixth))
        sample.server->ownKiB += 5 * mib;
    EXPECT_THAT(complaints(report), ElementsAre(HasSubstr("X server in MiB: 5.00 more")));
    for (auto& sample : report.samples) sample.server.reset();
    EXPECT_THAT(complaints(report), IsEmpty());
}

TEST(SoakReport, steps_that_were_repeated_a_strip_that_stands_still_and_a_late_end_are_not_well) {
    auto report = anHour();
    report.repeats = 3;
    EXPECT_THAT(complaints(report), IsEmpty());
    report.repeats = 4;
    report.stripChanges = 4;
    report.hasEndedInOrder = false;
    EXPECT_THAT(complaints(report),
                ElementsAre("4 of 100 steps had to be repeated", "the strip stands still",
                            "the program did not end as it was asked to"));
}

TEST(SoakReport, of_a_short_soak_the_memory_is_not_judged_and_one_step_may_be_repeated) {
    auto report = anHour();
    report.length = 2min;
    report.steps = 20;
    report.repeats = 1;
    change(report, 3, &Holding::threads, 1);
    EXPECT_THAT(complaints(report), IsEmpty());
    EXPECT_THAT(table(report), HasSubstr("too short to judge"));
}

}  // namespace
}  // namespace vtx::bench
