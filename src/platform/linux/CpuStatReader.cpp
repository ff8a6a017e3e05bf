// SPDX-License-Identifier: MIT
#include "platform/linux/CpuStatReader.h"

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// What a line grows by when each of its counters gains a digit or two.
constexpr std::size_t slackPerLine = 16;
constexpr std::size_t usualLine = 128;
constexpr std::size_t bytesLimit = 8 << 20;

}  // namespace

CpuStatReader::CpuStatReader(const LinuxRoot& root, const LinuxProcessors& processors)
    : processors_(processors),
      stat_(root.path("/proc/stat")),
      bytesWanted_((processors.count() + 1) * usualLine),
      ticks_(processors.count()) {}

bool CpuStatReader::read() {
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

}  // namespace vtx
