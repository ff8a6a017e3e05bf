// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "PreferenceRecords.h"
#include "core/PreferencesCodec.h"

namespace vtx {
namespace {

using records::allDifferent;
using records::decode;
using records::emptyRecord;

std::string nested(std::size_t depth, std::string_view open, std::string_view close) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i) text += open;
    for (std::size_t i = 0; i < depth; ++i) text += close;
    return text;
}

}  // namespace

class NoRecord : public testing::TestWithParam<std::string> {};

TEST_P(NoRecord, is_not_decoded) { EXPECT_EQ(decode(GetParam()), std::nullopt); }

INSTANTIATE_TEST_SUITE_P(
    PreferencesDamage, NoRecord,
    testing::Values("", " ", "null", "true", "[]", "[{}]", "\"{}\"", "1", "{", "}", "{}{}", "{},",
                    "{} x", "{'showCPU':true}", R"({"showCPU":tru})", R"({"showCPU":true,})",
                    R"({"showCPU" true})", R"({showCPU:true})", R"({"showCPU":NaN})",
                    R"({"showCPU":Infinity})", R"(/**/{})", R"({"a":01})", R"({"a":1e999-1})",
                    R"({"a":1e999.5})", R"({"a":"\x"})", R"({"a":"\ud800"})",
                    std::string("{}\0", 3), std::string("\0{}", 3),
                    std::string("{\"languageCode\":\"e\0n\"}", 22), "{\"languageCode\":\"\xff\"}",
                    "{\"\xc3\x28\":1}", "{\"languageCode\":\"\xed\xa0\x80\"}",
                    "{\"languageCode\":\"\xc0\xaf\"}", "\xff\xfe{\0}\0", "bplist00\xd1"));

TEST(PreferencesDamage, a_record_cut_short_at_any_byte_is_not_decoded) {
    const Data whole = encodePreferences(allDifferent()).value();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(decodePreferences(std::span(whole).first(length)), std::nullopt) << length;
    }
}

TEST(PreferencesDamage, a_record_with_any_byte_damaged_decodes_or_not_but_does_no_harm) {
    const Data whole = encodePreferences(allDifferent()).value();
    constexpr std::array<unsigned char, 3> damages{'"', '{', 0xff};
    for (std::size_t i = 0; i < whole.size(); ++i) {
        Data damaged = whole;
        damaged[i] = std::byte{damages[i % damages.size()]};
        const auto decoded = decodePreferences(damaged);
        EXPECT_TRUE(!decoded || encodePreferences(*decoded)) << i;
    }
}

TEST(PreferencesDamage, a_record_of_ten_megabytes_is_read_like_any_other) {
    constexpr std::size_t size = 10'000'000;
    const auto decoded = decode(R"({"future":")" + std::string(size, 'x') + R"(","colorCPU":")" +
                                std::string(size, 'y') + R"("})");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->colorCPU.size(), size);
    EXPECT_EQ(decode(std::string(size, ' ') + "{}"), emptyRecord());
    EXPECT_EQ(decode(std::string(size, '{')), std::nullopt);
    EXPECT_EQ(decode(R"({"alertTempCelsius":)" + std::string(size, '1') + "}"), emptyRecord());
}

TEST(PreferencesDamage, zero_is_never_too_large_whatever_its_exponent) {
    for (const std::string zero : {"0e999", "0.0E+99999999999999999999", "-0e400", "0e-999"}) {
        const auto decoded = decode(R"({"alertTempCelsius":)" + zero + "}");
        ASSERT_TRUE(decoded) << zero;
        EXPECT_EQ(decoded->alertTempCelsius, 0.0) << zero;
    }
}

TEST(PreferencesDamage, nesting_is_followed_to_512_levels_and_no_deeper) {
    EXPECT_EQ(decode(R"({"future":)" + nested(511, "[", "]") + "}"), emptyRecord());
    EXPECT_EQ(decode(R"({"future":)" + nested(513, "[", "]") + "}"), std::nullopt);
    EXPECT_EQ(decode(R"({"future":)" + nested(1'000'000, "[", "]") + "}"), std::nullopt);
    EXPECT_EQ(decode(R"({"future":)" + nested(200'000, "{\"a\":", "}") + "}"), std::nullopt);
    EXPECT_EQ(decode(nested(2'000'000, "[", "")), std::nullopt);
}

}  // namespace vtx
