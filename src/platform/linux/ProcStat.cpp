// SPDX-License-Identifier: MIT
#include "platform/linux/ProcStat.h"

#include <string.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace vtx {
namespace {

/// Goes over the columns behind the name, each of which ends with a blank or the line.
class Columns {
public:
    explicit Columns(std::string_view text) : text_(text) {}

    void skip(int count) {
        for (; count > 0 && isGood_; --count) {
            // By hand: this goes over most of the line, for every process.
            std::size_t end = 0;
            while (end < text_.size() && !isEnd(text_[end])) ++end;
            isGood_ = end < text_.size() && end > 0;
            if (isGood_) text_.remove_prefix(end + 1);
        }
    }
    template <class Number>
    Number take() {
        Number value{};
        const char* const end = text_.data() + text_.size();
        const auto [stop, error] = std::from_chars(text_.data(), end, value);
        isGood_ = isGood_ && error == std::errc{} && stop != end && isEnd(*stop);
        if (isGood_) text_.remove_prefix(static_cast<std::size_t>(stop - text_.data()) + 1);
        return value;
    }
    [[nodiscard]] bool isGood() const { return isGood_; }

private:
    static bool isEnd(char c) { return c == ' ' || c == '\n'; }

    std::string_view text_;
    bool isGood_ = true;
};

std::int32_t narrow(std::int64_t value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

/// As `rfind`, in steps of many bytes: it goes over most of the line.
std::size_t lastClose(std::string_view text) {
    const void* const found = text.empty() ? nullptr : ::memrchr(text.data(), ')', text.size());
    return found ? static_cast<std::size_t>(static_cast<const char*>(found) - text.data())
                 : std::string_view::npos;
}

}  // namespace

std::optional<ProcStat> parseProcStat(std::string_view text) {
    // The name may hold brackets; nothing behind it does.
    const auto open = text.find('(');
    const auto close = lastClose(text);
    if (open == std::string_view::npos || close == std::string_view::npos || close < open ||
        close + 2 > text.size())
        return std::nullopt;
    ProcStat stat;
    stat.comm = text.substr(open + 1, close - open - 1);
    Columns columns(text.substr(close + 2));
    columns.skip(11);  // from the state to the page faults
    stat.userTicks = columns.take<std::uint64_t>();
    stat.systemTicks = columns.take<std::uint64_t>();
    columns.skip(3);
    stat.nice = narrow(columns.take<std::int64_t>());
    stat.threads = narrow(std::max<std::int64_t>(columns.take<std::int64_t>(), 0));
    columns.skip(1);
    stat.startTime = columns.take<std::uint64_t>();
    columns.skip(1);
    stat.residentPages =
        static_cast<std::uint64_t>(std::max<std::int64_t>(columns.take<std::int64_t>(), 0));
    columns.skip(1);
    stat.startCode = columns.take<std::uint64_t>();
    columns.skip(1);
    stat.startStack = columns.take<std::uint64_t>();
    return columns.isGood() ? std::optional(stat) : std::nullopt;
}

}  // namespace vtx
