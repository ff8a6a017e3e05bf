// SPDX-License-Identifier: MIT
#include "platform/linux/ReadPace.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

using std::chrono::hours;
using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::seconds;
using Reader = ReadPace::Reader;

struct PaceOfAChip : testing::Test {
    void note(Duration took, Reader reader = Reader::worker) { pace.note(reader, took, now); }
    /// How long it stays slow from now on, to the second.
    [[nodiscard]] Duration slowFor() const {
        Duration span(0);
        while (!pace.isFast(now + span) && span < hours(3)) span += seconds(1);
        return span;
    }

    ReadPace pace;
    Instant now{hours(1)};
};

TEST_F(PaceOfAChip, that_has_not_answered_is_slow) { EXPECT_FALSE(pace.isFast(now)); }

TEST_F(PaceOfAChip, that_answers_at_once_is_fast_from_then_on) {
    note(microseconds(500));
    EXPECT_TRUE(pace.isFast(now));
    EXPECT_TRUE(pace.isFast(now + hours(1000)));
}

TEST_F(PaceOfAChip, that_took_long_is_slow_for_half_a_minute_whatever_its_short_answers) {
    note(microseconds(2));
    note(microseconds(501));
    for (int i = 0; i < 100; ++i) note(microseconds(2));
    EXPECT_EQ(slowFor(), seconds(30));
}

TEST_F(PaceOfAChip, that_always_takes_long_never_becomes_fast) {
    for (int i = 0; i < 3600; ++i, now += seconds(1)) {
        note(milliseconds(40));
        EXPECT_FALSE(pace.isFast(now));
    }
}

TEST_F(PaceOfAChip, that_somebody_waited_for_is_slow_twice_as_long_the_next_time) {
    for (const int expected : {30, 60, 120, 240, 480, 960, 1920, 3600, 3600}) {
        note(seconds(1), Reader::caller);
        EXPECT_EQ(slowFor(), seconds(expected));
        now += slowFor();
    }
}

TEST_F(PaceOfAChip, that_did_not_answer_is_not_waited_for_until_it_has) {
    EXPECT_TRUE(pace.isWorthWaiting());
    pace.noteUnanswered();
    EXPECT_FALSE(pace.isWorthWaiting());
    note(seconds(3));
    EXPECT_TRUE(pace.isWorthWaiting());
}

}  // namespace
}  // namespace vtx
