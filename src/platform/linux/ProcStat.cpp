// SPDX-License-Identifier: MIT
#include "platform/linux/ProcStat.h"

#include <string.h>

#include <algorithm>
#include <limits>

#include "platform/linux/TextScan.h"

namespace vtx {
namespace {

/// Goes over the columns behind the name, each of which ends with a blank or the line.
class Columns {
public:
    explicit Columns(std::string_view text) : scan_(text) {}

    void skip(int count) {
        for (; count > 0 && isGood_; --count) isGood_ = scan_.takeWord() && takeEnd();
    }
    std::uint64_t take() {
        std::uint64_t value = 0;
        isGood_ = isGood_ && scan_.takeNumber(value) && takeEnd();
        return value;
    }
    std::int64_t takeSigned() {
        constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        const bool isNegative = isGood_ && scan_.take('-');
        const std::uint64_t value = take();
        isGood_ = isGood_ && value <= most;
        if (!isGood_) return 0;
        return isNegative ? -static_cast<std::int64_t>(value) : static_cast<std::int64_t>(value);
    }
    [[nodiscard]] bool isGood() const { return isGood_; }

private:
    [[nodiscard]] bool takeEnd() { return scan_.take(' ') || scan_.take('\n'); }

    TextScan scan_;
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
    stat.userTicks = columns.take();
    stat.systemTicks = columns.take();
    columns.skip(3);
    stat.nice = narrow(columns.takeSigned());
    stat.threads = narrow(std::max<std::int64_t>(columns.takeSigned(), 0));
    columns.skip(1);
    stat.startTime = columns.take();
    columns.skip(1);
    stat.residentPages =
        static_cast<std::uint64_t>(std::max<std::int64_t>(columns.takeSigned(), 0));
    columns.skip(1);
    stat.startCode = columns.take();
    columns.skip(1);
    stat.startStack = columns.take();
    return columns.isGood() ? std::optional(stat) : std::nullopt;
}

}  // namespace vtx
