// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/UserDefaults.h"

namespace vtx {

/// Settings in memory. It shows what was asked of it and can play a store whose medium fails: what
/// is in force goes on changing then, what is stored does not, until a change succeeds again. Main
/// executor; made by the simulated platform or by a test.
class SimulatedUserDefaults final : public UserDefaults {
public:
    using Values = std::map<std::string, Data, std::less<>>;

    /// `initial`: what an earlier run of the program left.
    explicit SimulatedUserDefaults(const Values& initial = {})
        : stored(initial), values_(initial) {}

    /// What the next run of the program would find. May be read and changed freely; a change made
    /// here is not in force for `data`.
    Values stored;
    /// Calls of `setData`, failed ones included.
    int writes = 0;
    /// Calls of `remove` for a key that was there, failed ones included.
    int removals = 0;
    /// Of both, those that did not reach `stored`.
    int failures = 0;
    /// While set, no change reaches `stored`. The first one after it brings all of them.
    bool failsToStore = false;

    [[nodiscard]] std::optional<Data> data(std::string_view key) const override {
        const auto found = values_.find(key);
        if (found == values_.end()) return std::nullopt;
        return found->second;
    }

    void setData(std::string_view key, Data value) override {
        ++writes;
        values_.insert_or_assign(std::string(key), std::move(value));
        store();
    }

    void remove(std::string_view key) override {
        const auto found = values_.find(key);
        if (found == values_.end()) return;
        ++removals;
        values_.erase(found);
        store();
    }

private:
    void store() {
        if (failsToStore) {
            ++failures;
        } else {
            stored = values_;
        }
    }

    Values values_;  // in force
};

}  // namespace vtx
