// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace vtx {

/// Why a priority was not changed, with words for the user.
class ProcessManagerError {
public:
    /// `nice` is the value that was refused.
    static ProcessManagerError invalidNice(std::int32_t nice) { return {Kind::invalidNice, nice}; }
    static ProcessManagerError systemCallFailed(int error) {
        return {Kind::systemCallFailed, error};
    }
    static ProcessManagerError notModifiable() { return {Kind::notModifiable, 0}; }

    /// English in every language.
    [[nodiscard]] std::string description() const;

    bool operator==(const ProcessManagerError&) const = default;

private:
    enum class Kind { invalidNice, systemCallFailed, notModifiable };

    ProcessManagerError(Kind kind, std::int32_t value) : kind_(kind), value_(value) {}

    Kind kind_;
    std::int32_t value_;  ///< the refused niceness or the errno value; 0 for `notModifiable`
};

}  // namespace vtx
