// SPDX-License-Identifier: MIT
#include "smc/SMCNumericDecoder.h"

#include <gtest/gtest.h>

#include "platform/shapes/SMCValue.h"
#include "smc/SMCCode.h"
#include "smc/TemperatureValueDecoder.h"

namespace vtx {
namespace {

Data bytes(std::initializer_list<int> values) {
    Data data;
    for (const int value : values) data.push_back(static_cast<std::byte>(value));
    return data;
}

TEST(SMCNumericDecoder, floats_have_their_lowest_byte_first_and_whole_numbers_their_highest) {
    EXPECT_EQ(decodeNumeric(bytes({0, 0, 0x80, 0x3F}), smcTypes::flt, 4), 1.0);
    EXPECT_EQ(decodeNumeric(bytes({0x01, 0x02}), smcTypes::ui16, 2), 258.0);
    EXPECT_EQ(decodeNumeric(bytes({0x13, 0x88}), smcTypes::fpe2, 2), 1250.0);
    EXPECT_EQ(decodeNumeric(bytes({0xFF, 0x80}), smcTypes::sp78, 2), -0.5);
    EXPECT_EQ(decodeNumeric(bytes({0x2A, 0xFF}), smcTypes::ui8, 1), 42.0);
}

TEST(SMCNumericDecoder, both_spellings_of_quarters_decode_alike) {
    for (const auto& data : {bytes({}), bytes({7}), bytes({0xFF, 0xFF}), bytes({1, 2, 3, 4})})
        EXPECT_EQ(decodeNumeric(data, smcTypes::fp2e, 2), decodeNumeric(data, smcTypes::fpe2, 2));
}

TEST(SMCNumericDecoder, an_unknown_type_is_told_by_its_size) {
    const auto type = smcCode("{xyz");
    EXPECT_EQ(decodeNumeric(encodeSMCFloat(2.5F), type, 4), 2.5);
    EXPECT_EQ(decodeNumeric(bytes({0, 10}), type, 2), 2.5);
    EXPECT_EQ(decodeNumeric(bytes({0, 10, 99}), type, 3), 2.5);
    EXPECT_EQ(decodeNumeric(bytes({10}), type, 1), std::nullopt);
}

TEST(SMCNumericDecoder, a_size_that_lies_does_not_lead_beyond_the_data) {
    const auto type = smcCode("hex_");
    EXPECT_EQ(decodeNumeric(bytes({0, 10, 99}), type, 4'000'000'000U), 2.5);
    EXPECT_EQ(decodeNumeric(bytes({10}), type, 32), std::nullopt);
    EXPECT_EQ(decodeNumeric(encodeSMCFloat(2.5F), type, 1), std::nullopt);
}

TEST(SMCNumericDecoder, a_type_whose_data_is_too_short_is_told_by_its_size) {
    EXPECT_EQ(decodeNumeric(bytes({0, 10}), smcTypes::flt, 2), 2.5);
    EXPECT_EQ(decodeNumeric(bytes({10}), smcTypes::ui16, 2), std::nullopt);
    EXPECT_EQ(decodeNumeric(bytes({}), smcTypes::ui8, 1), std::nullopt);
}

TEST(SMCNumericDecoder, fixed_point_types_with_too_little_data_are_nothing_whatever_their_size) {
    for (const auto type : {smcTypes::fpe2, smcTypes::fp2e, smcTypes::sp78})
        EXPECT_EQ(decodeNumeric(bytes({9}), type, 4), std::nullopt);
}

TEST(SMCNumericDecoder, empty_data_is_nothing_for_every_type) {
    for (const char* type : {"flt ", "fpe2", "fp2e", "ui16", "ui8 ", "sp78", "ch8*"})
        for (const std::uint32_t size : {0U, 2U, 4U})
            EXPECT_EQ(decodeNumeric({}, smcCode(type), size), std::nullopt) << type;
}

TEST(TemperatureValueDecoder, takes_floats_of_four_bytes_and_nothing_else) {
    const Data value = encodeSMCFloat(61.25F);
    const auto decode = [](std::span<const std::byte> data, std::uint32_t size, const char* type) {
        return TemperatureValueDecoder::decodeSMCFloat(data, size, smcCode(type));
    };
    EXPECT_EQ(decode(value, 4, "flt "), 61.25);
    EXPECT_EQ(decode(value, 8, "flt "), 61.25);
    EXPECT_EQ(decode(value, 3, "flt "), std::nullopt);
    EXPECT_EQ(decode(std::span(value).first(3), 4, "flt "), std::nullopt);
    EXPECT_EQ(decode(value, 4, "sp78"), std::nullopt);
    EXPECT_EQ(decode(value, 4, "flt"), std::nullopt);
}

}  // namespace
}  // namespace vtx
