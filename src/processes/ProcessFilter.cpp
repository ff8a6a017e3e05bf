// SPDX-License-Identifier: MIT
#include "processes/ProcessFilter.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/Locale.h"

namespace vtx {
namespace {

/// In UTF-8: those of ASCII, the next line, and the spaces of the scripts that have their own.
constexpr std::array<std::string_view, 25> blanks{" ",
                                                  "\t",
                                                  "\n",
                                                  "\v",
                                                  "\f",
                                                  "\r",
                                                  "\xC2\x85",
                                                  "\xC2\xA0",
                                                  "\xE1\x9A\x80",
                                                  "\xE2\x80\x80",
                                                  "\xE2\x80\x81",
                                                  "\xE2\x80\x82",
                                                  "\xE2\x80\x83",
                                                  "\xE2\x80\x84",
                                                  "\xE2\x80\x85",
                                                  "\xE2\x80\x86",
                                                  "\xE2\x80\x87",
                                                  "\xE2\x80\x88",
                                                  "\xE2\x80\x89",
                                                  "\xE2\x80\x8A",
                                                  "\xE2\x80\xA8",
                                                  "\xE2\x80\xA9",
                                                  "\xE2\x80\xAF",
                                                  "\xE2\x81\x9F",
                                                  "\xE3\x80\x80"};

/// Bytes of the first blank that is where it is looked for; 0 where there is none.
template <class IsThere>
std::size_t blankThere(IsThere isThere) {
    const auto found = std::ranges::find_if(blanks, isThere);
    return found == blanks.end() ? 0 : found->size();
}

}  // namespace

std::string_view trimmedOfBlanks(std::string_view text) {
    const auto begins = [&text](std::string_view blank) { return text.starts_with(blank); };
    const auto ends = [&text](std::string_view blank) { return text.ends_with(blank); };
    while (const auto bytes = blankThere(begins)) text.remove_prefix(bytes);
    while (const auto bytes = blankThere(ends)) text.remove_suffix(bytes);
    return text;
}

ProcessFilter::ProcessFilter(std::string_view search, const Locale& locale)
    : text_(locale.lowercased(trimmedOfBlanks(search))), locale_(locale) {}

bool ProcessFilter::matches(const ProcessSnapshot& process) const {
    if (text_.empty()) return true;
    return locale_.lowercased(process.name).find(text_) != std::string::npos ||
           fmt::format("{}", process.pid).find(text_) != std::string::npos;
}

std::vector<ProcessSnapshot> ProcessFilter::of(const std::vector<ProcessSnapshot>& all) const {
    if (text_.empty()) return all;
    std::vector<ProcessSnapshot> matching;
    std::ranges::copy_if(all, std::back_inserter(matching),
                         [this](const ProcessSnapshot& process) { return matches(process); });
    return matching;
}

}  // namespace vtx
