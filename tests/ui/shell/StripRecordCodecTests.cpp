// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "ui/shell/StripRecordCodec.h"

namespace vtx {
namespace {

using Side = StripRecord::Side;

std::optional<StripRecord> decoded(std::string_view text) {
    return StripRecordCodec::decode(toData(text));
}

class StripRecordRoundTrip : public testing::TestWithParam<StripRecord> {};

TEST_P(StripRecordRoundTrip, what_was_stored_is_read_back) {
    EXPECT_EQ(StripRecordCodec::decode(StripRecordCodec::encode(GetParam())), GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Records, StripRecordRoundTrip,
    testing::Values(StripRecord{}, StripRecord{"DP-1", DockEdge::none, Side::left, 7, 9},
                    StripRecord{"a \"b\" \\ ü", DockEdge::bottom, Side::right, 1234, 0},
                    StripRecord{"", DockEdge::left, Side::left, 0, 55},
                    StripRecord{"x", DockEdge::right, Side::right, 0, 100'000}));

class StripRecordNonsense : public testing::TestWithParam<const char*> {};

TEST_P(StripRecordNonsense, is_no_record) { EXPECT_EQ(decoded(GetParam()), std::nullopt); }

INSTANTIATE_TEST_SUITE_P(
    Texts, StripRecordNonsense,
    testing::Values("", "null", "[]", "{", "\xff\xfe", "{}",
                    R"({"screen":"A","edge":"top","side":"right","gap":0})",
                    R"({"screen":7,"edge":"top","side":"right","gap":0,"top":0})",
                    R"({"screen":"A","edge":"above","side":"right","gap":0,"top":0})",
                    R"({"screen":"A","edge":2,"side":"right","gap":0,"top":0})",
                    R"({"screen":"A","edge":"top","side":"","gap":0,"top":0})",
                    R"({"screen":"A","edge":"top","side":"right","gap":"0","top":0})",
                    R"({"screen":"A","edge":"top","side":"right","gap":0,"top":1e999})"));

TEST(StripRecordCodec, distances_beyond_any_screen_are_limited) {
    const auto record =
        decoded(R"({"screen":"A","edge":"none","side":"left","gap":-1e300,"top":1e300})");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->gap, 0);
    EXPECT_EQ(record->top, 100'000);
}

TEST(StripRecordCodec, a_text_that_is_far_too_long_is_not_read) {
    std::string text = R"({"screen":"A","edge":"top","side":"right","gap":0,"top":0})";
    EXPECT_TRUE(decoded(text));
    text.append(5000, ' ');
    EXPECT_FALSE(decoded(text));
}

}  // namespace
}  // namespace vtx
