// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxHostInfo.h"

#include <unistd.h>

#include <algorithm>

#include "platform/shapes/Memory.h"

namespace vtx {
namespace {

constexpr KernReturn kernInvalidArgument = 4;

}  // namespace

LinuxHostInfo::LinuxHostInfo(const LinuxRoot& root, const LinuxProcessors& processors,
                             MemInfoReader& memory)
    : processors_(processors), stat_(root, processors), memory_(memory) {}

ProcessorLoadInfo LinuxHostInfo::processorLoadInfo() {
    if (processors_.count() == 0 || !stat_.read()) return {};
    Array& array = freeArray();
    auto at = array.words.begin();
    for (const auto& ticks : stat_.ticks()) at = std::ranges::copy(ticks.words(), at).out;
    array.isOut = true;
    return {kernSuccess, static_cast<std::uint32_t>(processors_.count()),
            KernelArray(*this, array.words.data(), array.words.size())};
}

HostStatistics LinuxHostInfo::statistics64(std::int32_t flavour, std::span<std::uint32_t> into) {
    if (flavour != hostVMInfo64) return {kernInvalidArgument, 0};
    const auto size = pageSize();
    const auto sample = memory_.read();
    if (!sample || size.result != kernSuccess) return {};
    return {kernSuccess,
            encodeVMStatistics(pageCountsOf(sample->info, sample->zramBytes, size.bytes), into)};
}

HostPageSize LinuxHostInfo::pageSize() {
    static const long bytes = ::sysconf(_SC_PAGESIZE);
    if (bytes <= 0) return {};
    return {kernSuccess, static_cast<std::uint64_t>(bytes)};
}

LinuxHostInfo::Array& LinuxHostInfo::freeArray() {
    const auto kept =
        std::ranges::find_if(arrays_, [](const auto& array) { return !array->isOut; });
    if (kept != arrays_.end()) return **kept;
    arrays_.push_back(std::make_unique<Array>());
    arrays_.back()->words.resize(processors_.count() * 4);
    return *arrays_.back();
}

void LinuxHostInfo::vmDeallocate(const std::uint32_t* address, std::size_t /*bytes*/) noexcept {
    for (const auto& array : arrays_) {
        if (array->words.data() == address) array->isOut = false;
    }
}

std::size_t LinuxHostInfo::outstandingArrays() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(arrays_, [](const auto& array) { return array->isOut; }));
}

}  // namespace vtx
