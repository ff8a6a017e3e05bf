// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "processes/ProcessSnapshot.h"

namespace vtx {

class Locale;

/// The order in which processes are shown: the busiest first, and where two are equally busy by
/// name, as the user's language sorts them without regard to case; what is equal in both keeps its
/// order. Remembers the sort keys of the names of the last list, since names hardly change. Main
/// executor.
class ProcessOrder {
public:
    /// The port must outlive this.
    explicit ProcessOrder(const Locale& locale) : locale_(locale) {}

    [[nodiscard]] std::vector<ProcessSnapshot> sorted(std::vector<ProcessSnapshot> processes);
    /// Forgets the keys: the next list makes its own.
    void rest() { decltype(keys_)().swap(keys_); }
    [[nodiscard]] std::size_t keptKeys() const { return keys_.size(); }

private:
    struct Key {
        std::string text;
        bool isUsed = true;
    };

    [[nodiscard]] const std::string& keyOf(const std::string& name);
    void forgetUnused();

    const Locale& locale_;
    std::unordered_map<std::string, Key> keys_;
};

}  // namespace vtx
