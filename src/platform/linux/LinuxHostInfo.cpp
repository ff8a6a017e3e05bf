// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxHostInfo.h"

#include <algorithm>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// What a line grows by when each of its counters gains a digit or two.
constexpr std::size_t slackPerLine = 16;
constexpr std::size_t usualLine = 128;
constexpr std::size_t bytesLimit = 8 << 20;

}  // namespace

LinuxHostInfo::LinuxHostInfo(const LinuxRoot& root, const LinuxProcessors& processors)
    : processors_(processors),
      stat_(root.path("/proc/stat")),
      bytesWanted_((processors.count() + 1) * usualLine),
      ticks_(processors.count()) {}

ProcessorLoadInfo LinuxHostInfo::processorLoadInfo() {
    if (processors_.count() == 0 || !readTicks()) return {};
    Array& array = freeArray();
    auto at = array.words.begin();
    for (const auto& ticks : ticks_) at = std::ranges::copy(ticks.words(), at).out;
    array.isOut = true;
    return {kernSuccess, static_cast<std::uint32_t>(processors_.count()),
            KernelArray(*this, array.words.data(), array.words.size())};
}

bool LinuxHostInfo::readTicks() {
    CpuLines found;
    for (;;) {
        const auto text = stat_.read(bytesWanted_);
        if (!text) return false;
        found = leadingCpuLines(*text);
        if (found.isComplete || text->size() < bytesWanted_ || bytesWanted_ > bytesLimit) break;
        bytesWanted_ *= 2;
    }
    if (found.isComplete) {
        bytesWanted_ = found.lines.size() + (processors_.count() + 1) * slackPerLine;
    }
    bool understoodAny = false;
    while (!found.lines.empty()) {
        const auto line = parseCpuStatLine(takeLine(found.lines));
        const auto place = line ? processors_.placeOf(line->number) : std::nullopt;
        if (!place) continue;
        ticks_[*place].take(line->ticks);
        understoodAny = true;
    }
    return understoodAny;
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
