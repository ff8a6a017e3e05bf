// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace vtx {

/// Goes over a text of the kernel's from front to end, character by character: what is read with
/// each tick is short, and calls into the library's searches take longer than it does. Never leaves
/// the text, whatever that holds. A value; the text outlives it.
class TextScan {
public:
    explicit TextScan(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

    [[nodiscard]] bool isAtEnd() const { return at_ == end_; }
    [[nodiscard]] std::string_view rest() const {
        return {at_, static_cast<std::size_t>(end_ - at_)};
    }

    /// Takes that character, or nothing and says false.
    [[nodiscard]] bool take(char wanted) {
        if (at_ == end_ || *at_ != wanted) return false;
        ++at_;
        return true;
    }
    void skipBlanks() {
        while (at_ != end_ && isBlank(*at_)) ++at_;
    }
    /// Takes what is neither blank nor another control character; false where there is none of it.
    bool takeWord() {
        const char* const from = at_;
        while (at_ != end_ && static_cast<unsigned char>(*at_) > ' ') ++at_;
        return at_ != from;
    }
    /// Takes digits, at least one, of a number that 64 bits hold; else nothing and says false.
    [[nodiscard]] bool takeNumber(std::uint64_t& into) {
        constexpr auto most = std::numeric_limits<std::uint64_t>::max();
        const char* at = at_;
        std::uint64_t number = 0;
        for (; at != end_ && isDigit(*at); ++at) {
            const auto digit = static_cast<std::uint64_t>(*at - '0');
            if (number >= most / 10 && (number > most / 10 || digit > most % 10)) return false;
            number = number * 10 + digit;
        }
        if (at == at_) return false;
        at_ = at;
        into = number;
        return true;
    }
    /// The same of a number with an end of its own, a blank or a line's, which stays: one without
    /// may be the first half of another.
    [[nodiscard]] bool takeWholeNumber(std::uint64_t& into) {
        const char* const from = at_;
        if (takeNumber(into) && at_ != end_ && isBlank(*at_)) return true;
        at_ = from;
        return false;
    }

    [[nodiscard]] static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    [[nodiscard]] static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n'; }

private:
    const char* at_;
    const char* end_;
};

}  // namespace vtx
