// SPDX-License-Identifier: MIT
// What key stores encode, by round trip through what the logic decodes, and the other way.
#include <gtest/gtest.h>

#include <limits>

#include "platform/shapes/SMCBlock.h"
#include "platform/shapes/SMCValue.h"
#include "smc/SMCCode.h"
#include "smc/SMCNumericDecoder.h"
#include "smc/SMCParameterBlock.h"

namespace vtx {
namespace {

Data bytesUpTo(std::size_t count) {
    Data data;
    for (std::size_t i = 0; i < count; ++i) data.push_back(static_cast<std::byte>(i + 1));
    return data;
}

SMCParameterBlock received(const SMCAnswer& answer) {
    SMCParameterBlock block;
    std::ranges::copy(encodeSMCAnswer(answer), block.raw().begin());
    return block;
}

TEST(SMCShapes, both_sides_pack_codes_alike) {
    for (const char* text : {"FNum", "flt ", "#KEY", "", "T", "F10Ac", "\xff\xfe"})
        EXPECT_EQ(packSMCCode(text), smcCode(text)) << text;
    EXPECT_EQ(smcCode("FNum"), 0x464E756DU);
    EXPECT_EQ(smcCode("F10Ac"), smcCode("10Ac"));
}

TEST(SMCShapes, a_question_arrives_as_it_was_asked) {
    SMCParameterBlock block;
    block.setKey(smcCode("Tp01"));
    block.setInfo({4, smcTypes::flt, 0xD0});
    block.setCommand(SMCParameterBlock::Command::writeValue);
    block.setIndex(70'000);
    block.setValue(bytesUpTo(40));
    SMCRequest expected{smcCode("Tp01"), 4, smcTypes::flt, 0xD0, smcCommands::writeValue,
                        70'000,          {}};
    std::ranges::copy(bytesUpTo(32), expected.bytes.begin());
    EXPECT_EQ(decodeSMCRequest(block.raw()), expected);
}

TEST(SMCShapes, an_answer_arrives_as_it_was_given) {
    const auto block = received({smcCode("Te05"), 2, smcTypes::ui16, 0x80, 0x84, bytesUpTo(2)});
    EXPECT_EQ(block.key(), smcCode("Te05"));
    EXPECT_EQ(block.info(), (KeyInfo{2, smcTypes::ui16, 0x80}));
    EXPECT_EQ(block.result(), 0x84);
    EXPECT_EQ(Data(block.value(2).begin(), block.value(2).end()), bytesUpTo(2));
}

TEST(SMCShapes, of_a_long_value_32_bytes_cross) {
    const auto block = received({0, 40, 0, 0, 0, bytesUpTo(40)});
    EXPECT_EQ(Data(block.value(40).begin(), block.value(40).end()), bytesUpTo(32));
}

TEST(SMCShapes, the_type_stands_in_the_block_with_its_last_character_first) {
    const auto block = encodeSMCAnswer({0, 0, packSMCCode("flt "), 0, 0, {}});
    EXPECT_EQ(asText(std::span(block).subspan(32, 4)), " tlf");
}

TEST(SMCShapes, what_is_not_80_bytes_is_no_question) {
    const Data data(96);
    for (const std::size_t size : {0U, 1U, 48U, 79U, 81U, 96U})
        EXPECT_EQ(decodeSMCRequest(std::span(data).first(size)), std::nullopt) << size;
    EXPECT_EQ(decodeSMCRequest(std::span(data).first(80)), SMCRequest{});
}

TEST(SMCShapes, numbers_of_every_type_come_back) {
    EXPECT_EQ(decodeNumeric(encodeSMCFloat(61.5F), smcTypes::flt, 4), 61.5);
    EXPECT_EQ(decodeNumeric(encodeSMCUnsigned8(200), smcTypes::ui8, 1), 200.0);
    EXPECT_EQ(decodeNumeric(encodeSMCUnsigned16(40'000), smcTypes::ui16, 2), 40'000.0);
    EXPECT_EQ(decodeNumeric(encodeSMCQuarters(1350.25), smcTypes::fpe2, 2), 1350.25);
    EXPECT_EQ(decodeNumeric(encodeSMCSigned256ths(-3.5), smcTypes::sp78, 2), -3.5);
    EXPECT_EQ(encodeSMCUnsigned32(0x01020304), bytesUpTo(4));
}

TEST(SMCShapes, numbers_that_do_not_fit_become_the_nearest_that_do) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(decodeNumeric(encodeSMCQuarters(1e9), smcTypes::fpe2, 2), 16383.75);
    EXPECT_EQ(decodeNumeric(encodeSMCQuarters(-1), smcTypes::fpe2, 2), 0.0);
    EXPECT_EQ(decodeNumeric(encodeSMCSigned256ths(-1e9), smcTypes::sp78, 2), -128.0);
    EXPECT_EQ(encodeSMCQuarters(none).size(), 2U);
    EXPECT_EQ(encodeSMCSigned256ths(none).size(), 2U);
}

}  // namespace
}  // namespace vtx
