// SPDX-License-Identifier: MIT
// The block of the SMC and its values: what both sides make of the same bytes; and what is believed
// of the temperatures of a whole field of sensors.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <vector>

#include "Fuzz.h"
#include "base/Bytes.h"
#include "platform/shapes/SMCBlock.h"
#include "smc/HotSpotClassifier.h"
#include "smc/SMCCode.h"
#include "smc/SMCNumericDecoder.h"
#include "smc/SMCParameterBlock.h"
#include "smc/TemperatureOutlierFilter.h"
#include "smc/TemperatureValueDecoder.h"

using namespace vtx;

namespace {

void tryBlock(std::span<const std::byte> input) {
    const auto request = decodeSMCRequest(input);
    fuzz::expect(request.has_value() == (input.size() == smcBlockSize));
    if (!request) return;
    SMCParameterBlock block;
    std::ranges::copy(input, block.raw().begin());
    // A question in the short form names its key as text, which only the answering side knows.
    const bool isShort =
        input[42] == std::byte{0} && input[22] == std::byte{smcCommands::readValue};
    fuzz::expect(request->key == (isShort ? packSMCCode(asText(input.first<4>())) : block.key()));
    fuzz::expect(block.info() ==
                 KeyInfo{request->dataSize, request->dataType, request->attributes});
    fuzz::expect(std::ranges::equal(
        block.value(request->dataSize),
        std::span(request->bytes).first(std::min<std::size_t>(request->dataSize, 32))));
}

void tryValue(std::span<const std::byte> input) {
    if (input.size() < 8) return;
    const auto type = readLittleEndian32(input.first<4>());
    const auto size = readLittleEndian32(input.subspan<4, 4>());
    const auto data = input.subspan(8);
    const auto number = decodeNumeric(data, type, size);
    fuzz::expect(!number || !data.empty());
    const auto celsius = TemperatureValueDecoder::decodeSMCFloat(data, size, type);
    fuzz::expect(!celsius || (number && std::bit_cast<std::uint64_t>(*celsius) ==
                                            std::bit_cast<std::uint64_t>(*number)));
    // The known types besides are told by the type alone.
    for (const auto known : {smcTypes::ui8, smcTypes::ui16, smcTypes::fpe2, smcTypes::sp78}) {
        const auto value = decodeNumeric(data, known, size);
        fuzz::expect(!value || data.size() < 2 || (*value >= -128.0 && *value <= 65535.0));
    }
}

/// The temperatures among the input's numbers, each of eight bytes, and of its bytes, each a
/// degree.
std::vector<double> temperaturesOf(std::span<const std::byte> input) {
    constexpr std::size_t most = 64;
    std::vector<double> values;
    const bool isWide = !input.empty() && input.front() == std::byte{0xFF};
    if (isWide) input = input.subspan(1);
    const std::size_t step = isWide ? sizeof(double) : 1;
    for (; input.size() >= step && values.size() < most; input = input.subspan(step)) {
        double value = std::to_integer<int>(input.front());
        if (isWide) std::memcpy(&value, input.data(), sizeof value);
        if (value > 0.0 && value < 150.0) values.push_back(value);
    }
    return values;
}

void tryField(std::span<const std::byte> input) {
    const auto values = temperaturesOf(input);
    const auto believed = TemperatureOutlierFilter::maxRejectingOutliers(values);
    fuzz::expect(believed.has_value() == !values.empty());
    if (!believed) return;
    fuzz::expect(std::ranges::find(values, *believed) != values.end());
    fuzz::expect(std::ranges::count_if(values, [&](double each) { return each > *believed; }) <=
                 10);

    SensorPeaks peaks;
    for (std::size_t i = 0; i < values.size(); ++i)
        peaks.emplace("T" + std::to_string(i), values[i]);
    const auto verdict = HotSpotClassifier::classifyWithStats(peaks);
    fuzz::expect(verdict.denylist.size() < peaks.size());
    for (const auto& key : verdict.denylist)
        fuzz::expect(peaks.contains(key) && peaks[key] >= verdict.cutoff);
    for (const auto& [key, peak] : peaks)
        fuzz::expect(peak <= verdict.baseline || peaks.size() < 4 || verdict.cutoff > peak ||
                     verdict.denylist.contains(key));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto input = fuzz::asInputBytes(data, size);
    tryBlock(input);
    tryValue(input);
    tryField(input);
    return 0;
}
