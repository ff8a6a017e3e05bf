// SPDX-License-Identifier: MIT
#include "platform/linux/MemInfo.h"

#include <algorithm>
#include <array>

#include "platform/linux/Parse.h"
#include "platform/linux/TextScan.h"

namespace vtx {
namespace {

/// No machine has this many kB, and sums of such values fit.
constexpr std::uint64_t amountLimit = std::uint64_t{1} << 50;

struct Field {
    std::string_view key;
    std::uint64_t MemInfo::* member;
};

constexpr std::array fields{Field{"MemTotal", &MemInfo::total},
                            Field{"MemFree", &MemInfo::free},
                            Field{"MemAvailable", &MemInfo::available},
                            Field{"Unevictable", &MemInfo::unevictable},
                            Field{"SwapTotal", &MemInfo::swapTotal},
                            Field{"SwapFree", &MemInfo::swapFree},
                            Field{"Zswap", &MemInfo::zswap},
                            Field{"SUnreclaim", &MemInfo::slabUnreclaimable},
                            Field{"KernelStack", &MemInfo::kernelStack},
                            Field{"PageTables", &MemInfo::pageTables}};
/// The first ones, without which there is nothing to tell.
constexpr unsigned requiredFields = 0b111;
static_assert(fields.size() == MemInfoText::fieldCount);

/// Of "     123 kB".
std::optional<std::uint64_t> parseAmount(std::string_view text) {
    TextScan scan(text);
    std::uint64_t amount = 0;
    scan.skipBlanks();
    if (!scan.takeWholeNumber(amount) || amount >= amountLimit) return std::nullopt;
    scan.skipBlanks();
    return trimmed(scan.rest()) == "kB" ? std::optional(amount) : std::nullopt;
}

/// The whole line of a field that begins there, and nothing else.
bool takeInPlace(std::string_view text, std::size_t place, const Field& field, MemInfo& into) {
    if (place != 0 && text[place - 1] != '\n') return false;
    const auto line = text.substr(place);
    if (!line.starts_with(field.key)) return false;
    TextScan scan(line.substr(field.key.size()));
    std::uint64_t amount = 0;
    if (!scan.take(':')) return false;
    while (scan.take(' ')) {
    }
    if (!scan.takeNumber(amount) || amount >= amountLimit) return false;
    into.*field.member = amount;
    return scan.take(' ') && scan.take('k') && scan.take('B') && scan.take('\n');
}

/// Absent where a line is not where it was.
std::optional<MemInfo> parseInPlace(std::string_view text, const MemInfoText::Places& places) {
    MemInfo info;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (!takeInPlace(text, places[i], fields[i], info)) return std::nullopt;
    return info.total == 0 ? std::nullopt : std::optional(info);
}

/// As declared, and where each field was found.
std::optional<MemInfo> parseMemInfo(std::string_view text, MemInfoText::Places& places) {
    MemInfo info;
    unsigned found = 0;
    constexpr unsigned all = (1U << fields.size()) - 1;
    const std::string_view whole = text;
    while (found != all) {
        const std::size_t place = whole.size() - text.size();
        const auto end = text.find('\n');
        if (end == std::string_view::npos) break;
        const auto line = text.substr(0, end);
        text.remove_prefix(end + 1);
        const auto colon = line.find(':');
        if (colon == std::string_view::npos) continue;
        const auto field = std::ranges::find(fields, line.substr(0, colon), &Field::key);
        if (field == fields.end()) continue;
        const unsigned bit = 1U << (field - fields.begin());
        const auto amount = (found & bit) != 0 ? std::nullopt : parseAmount(line.substr(colon + 1));
        if (!amount) continue;
        info.*field->member = *amount;
        found |= bit;
        places[static_cast<std::size_t>(field - fields.begin())] = place;
    }
    if ((found & requiredFields) != requiredFields || info.total == 0) return std::nullopt;
    return info;
}

std::uint64_t taken(std::uint64_t wanted, std::uint64_t& left) {
    const std::uint64_t part = std::min(wanted, left);
    left -= part;
    return part;
}

}  // namespace

std::optional<MemInfo> parseMemInfo(std::string_view text) {
    MemInfoText::Places places{};
    return parseMemInfo(text, places);
}

std::optional<MemInfo> MemInfoText::parse(std::string_view text) {
    if (size_ != 0 && text.size() == size_)
        if (auto info = parseInPlace(text, places_)) return info;
    places_.fill(std::string_view::npos);
    auto info = parseMemInfo(text, places_);
    // What a text lacks could come where nobody looks for it.
    const bool areAllThere = std::ranges::find(places_, std::string_view::npos) == places_.end();
    size_ = info && areAllThere ? text.size() : 0;
    return info;
}

VMPageCounts pageCountsOf(const MemInfo& info, std::uint64_t zramBytes, std::uint64_t pageSize) {
    const std::uint64_t perPage = std::max<std::uint64_t>(pageSize / 1024, 1);
    const std::uint64_t total = info.total / perPage;
    const std::uint64_t available = std::min(info.available / perPage, total);
    VMPageCounts pages;
    std::uint64_t left = total - available;
    pages.compressor = taken((info.zswap + zramBytes / 1024) / perPage, left);
    pages.wired = taken(
        (info.slabUnreclaimable + info.kernelStack + info.pageTables + info.unevictable) / perPage,
        left);
    pages.active = left;
    left = available;
    pages.free = taken(info.free / perPage, left);
    pages.inactive = left;
    return pages;
}

std::optional<std::uint64_t> parseZramPool(std::string_view text) {
    TextScan scan(text);
    for (int word = 0; word < 2; ++word) {
        scan.skipBlanks();
        (void)scan.takeWord();
    }
    std::uint64_t bytes = 0;
    scan.skipBlanks();
    if (!scan.takeWholeNumber(bytes)) return std::nullopt;  // it may be cut
    return bytes / 1024 < amountLimit ? std::optional(bytes) : std::nullopt;
}

}  // namespace vtx
