// SPDX-License-Identifier: MIT
#include "platform/linux/MemInfo.h"

#include <algorithm>
#include <array>

#include "platform/linux/Parse.h"

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

std::optional<std::uint64_t> parseAmount(std::string_view text) {
    text = trimmed(text);
    if (!text.ends_with(" kB")) return std::nullopt;
    const auto amount = parseUnsigned(text.substr(0, text.size() - 3));
    return amount && *amount < amountLimit ? amount : std::nullopt;
}

std::uint64_t taken(std::uint64_t wanted, std::uint64_t& left) {
    const std::uint64_t part = std::min(wanted, left);
    left -= part;
    return part;
}

}  // namespace

std::optional<MemInfo> parseMemInfo(std::string_view text) {
    MemInfo info;
    unsigned found = 0;
    constexpr unsigned all = (1U << fields.size()) - 1;
    while (found != all) {
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
    }
    if ((found & requiredFields) != requiredFields || info.total == 0) return std::nullopt;
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
    constexpr std::string_view blank = " \t\n";
    for (int number = 0; number < 3; ++number) {
        const auto from = text.find_first_not_of(blank);
        if (from == std::string_view::npos) return std::nullopt;
        text.remove_prefix(from);
        const auto end = text.find_first_of(blank);
        if (end == std::string_view::npos) return std::nullopt;  // it may be cut
        if (number == 2) {
            const auto bytes = parseUnsigned(text.substr(0, end));
            return bytes && *bytes / 1024 < amountLimit ? bytes : std::nullopt;
        }
        text.remove_prefix(end);
    }
    return std::nullopt;
}

}  // namespace vtx
