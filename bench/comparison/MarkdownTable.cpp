// SPDX-License-Identifier: MIT
#include "comparison/MarkdownTable.h"

#include <algorithm>
#include <cstddef>

namespace vtx::bench {
namespace {

constexpr std::size_t leastWidth = 3;  // a dash and the colon of an alignment

/// Characters, of which UTF-8 begins each with a byte that continues no other.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

std::string padding(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, widthOf(text)), ' ');
}

}  // namespace

std::string MarkdownTable::text() const {
    std::vector<std::size_t> widths(rows_.front().size(), leastWidth);
    for (const Row& row : rows_)
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], widthOf(row.at(i)));
    std::string text;
    for (const Row& row : rows_) {
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const auto pad = padding(row[i], widths[i]);
            text += "| " + (i == 0 ? row[i] + pad : pad + row[i]) + ' ';
        }
        text += "|\n";
        if (&row != &rows_.front()) continue;
        for (std::size_t i = 0; i < widths.size(); ++i)
            text += '|' + std::string(widths[i] + 1, '-') + (i == 0 ? '-' : ':');
        text += "|\n";
    }
    return text;
}

}  // namespace vtx::bench
