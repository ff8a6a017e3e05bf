// SPDX-License-Identifier: MIT
#include "language/TimeAgo.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace vtx {
namespace {

TEST(TimeAgo, counts_whole_units_of_the_largest_that_fits) {
    const auto said = [](double seconds) { return timeAgo(seconds, Language::en); };
    EXPECT_EQ(said(1.0), "1 second ago");
    EXPECT_EQ(said(1.99), "1 second ago");
    EXPECT_EQ(said(59.9), "59 seconds ago");
    EXPECT_EQ(said(60), "1 minute ago");
    EXPECT_EQ(said(3599), "59 minutes ago");
    EXPECT_EQ(said(3600), "1 hour ago");
    EXPECT_EQ(said(86400 * 3.5), "3 days ago");
}

TEST(TimeAgo, less_than_a_second_and_what_lies_ahead_is_just_now) {
    for (const double seconds : {0.0, 0.99, -5.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(timeAgo(seconds, Language::en), "just now");
}

TEST(TimeAgo, a_time_beyond_reason_has_words_too) {
    EXPECT_EQ(timeAgo(std::numeric_limits<double>::infinity(), Language::en), "11574074 days ago");
}

TEST(TimeAgo, every_language_has_words_of_its_own) {
    std::set<std::string> now;
    std::set<std::string> some;
    for (const Language language : allLanguages) {
        now.insert(timeAgo(0, language));
        some.insert(timeAgo(5, language));
    }
    EXPECT_EQ(now.size(), allLanguages.size() - 1) << "the automatic one is English";
    EXPECT_EQ(some.size(), allLanguages.size() - 1);
}

TEST(TimeAgo, german_sets_the_number_between_its_words) {
    EXPECT_EQ(timeAgo(1, Language::de), "vor 1 Sekunde");
    EXPECT_EQ(timeAgo(86400 * 2, Language::de), "vor 2 Tagen");
}

TEST(TimeAgo, russian_and_polish_follow_the_end_of_the_number) {
    const auto russian = [](double seconds) { return timeAgo(seconds, Language::ru); };
    EXPECT_EQ(russian(1), "1 секунду назад");
    EXPECT_EQ(russian(3), "3 секунды назад");
    EXPECT_EQ(russian(11), "11 секунд назад");
    EXPECT_EQ(russian(21), "21 секунду назад");
    const auto polish = [](double seconds) { return timeAgo(seconds, Language::pl); };
    EXPECT_EQ(polish(1), "1 sekundę temu");
    EXPECT_EQ(polish(21), "21 sekund temu");
    EXPECT_EQ(polish(22), "22 sekundy temu");
    EXPECT_EQ(polish(12), "12 sekund temu");
}

}  // namespace
}  // namespace vtx
