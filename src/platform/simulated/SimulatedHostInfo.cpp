// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedHostInfo.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "base/Fault.h"
#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

std::vector<std::uint32_t> wordsOf(const std::vector<SimulatedProcessors::Ticks>& all) {
    std::vector<std::uint32_t> words;
    words.reserve(all.size() * 4 + 4);
    for (const auto& ticks : all) words.insert(words.end(), ticks.begin(), ticks.end());
    return words;
}

/// An allocation starts with its own size in words, which the kernel, too, knows of its regions.
constexpr std::size_t headerWords = 1;

}  // namespace

ProcessorLoadInfo SimulatedHostInfo::processorLoadInfo() {
    ProcessorLoadInfo info;
    if (const auto failure = instruments_.enter(operations::hostProcessorInfo)) {
        info.result = *failure;
        return info;
    }
    const auto ticks = processors_.ticks();
    info.result = kernSuccess;
    info.processorCount = static_cast<std::uint32_t>(ticks.size());
    Failures& failures = instruments_.failures;
    if (failures.take(operations::hostProcessorInfoNull)) return info;
    auto words = wordsOf(ticks);
    if (failures.take(operations::hostProcessorInfoFewEntries) && !words.empty()) words.pop_back();
    if (failures.take(operations::hostProcessorInfoSurplusEntries))
        words.insert(words.end(), 4, 0xffffffffu);
    if (failures.take(operations::hostProcessorInfoZeroProcessors)) info.processorCount = 0;
    info.words = allocate(words);
    return info;
}

HostStatistics SimulatedHostInfo::statistics64(std::int32_t flavour,
                                               std::span<std::uint32_t> into) {
    if (const auto failure = instruments_.enter(operations::hostStatistics64)) return {*failure, 0};
    if (flavour != hostVMInfo64) return {};
    return {kernSuccess, encodeVMStatistics(memory_.pages(), into)};
}

HostPageSize SimulatedHostInfo::pageSize() {
    if (const auto failure = instruments_.enter(operations::hostPageSize)) return {*failure, 0};
    const bool isZero = instruments_.failures.take(operations::hostPageSizeZero).has_value();
    return {kernSuccess, isZero ? 0 : SimulatedMemory::pageSize};
}

KernelArray SimulatedHostInfo::allocate(const std::vector<std::uint32_t>& words) {
    auto memory = std::make_unique<std::uint32_t[]>(words.size() + headerWords);
    memory[0] = static_cast<std::uint32_t>(words.size());
    std::ranges::copy(words, memory.get() + headerWords);
    instruments_.handles.add(handles::kernelArray);
    return {*this, memory.release() + headerWords, words.size()};
}

void SimulatedHostInfo::vmDeallocate(const std::uint32_t* address, std::size_t bytes) noexcept {
    instruments_.counter.count(operations::vmDeallocate);
    const std::unique_ptr<const std::uint32_t[]> memory(address - headerWords);
    if (memory[0] * sizeof(std::uint32_t) != bytes)
        programmingFault("vm_deallocate with another size than was allocated");
    instruments_.handles.remove(handles::kernelArray);
}

}  // namespace vtx
