// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Data.h"
#include "platform/shapes/SMCBlock.h"

namespace vtx {

/// One key of the simulated SMC, and how it misbehaves.
struct SimulatedSMCKey {
    /// Makes a value whenever somebody asks, on the thread that asks.
    using Source = std::function<Data()>;

    std::string type = "flt ";
    Data value{};
    Source source{};  ///< where there is one, in the place of `value`
    std::uint8_t attributes = 0x80;
    /// What the SMC says of the size, if not the truth.
    std::optional<std::uint32_t> claimedSize{};
    /// Each n-th read fails; 1 for all of them, 0 for none.
    std::size_t failsEvery = 0;
    /// The SMC has nothing to say of the key.
    bool hidesInformation = false;

    /// Reads of the value so far, those that failed included, and questions for its information.
    std::size_t reads = 0;
    std::size_t questions = 0;
};

/// The key store of the simulated machine. Keys stand in the order of their codes. They can be
/// added, changed and removed at any time, also while somebody walks them. Any thread.
class SimulatedSMC {
public:
    /// The SMC's services by their names; empty on a machine without one.
    std::vector<std::string> services{"AppleSMC", "AppleSMCKeysEndpoint"};
    /// Whether the process has the right to write values.
    bool mayWrite = false;

    /// Adds a key or replaces it.
    void add(std::string_view name, SimulatedSMCKey key);
    void addFloat(std::string_view name, SimulatedSMCKey::Source source);
    void remove(std::string_view name);
    void clear();
    /// A key that is not there is a programming fault, here and below.
    void change(std::string_view name, const std::function<void(SimulatedSMCKey&)>& edit);
    void setFloat(std::string_view name, float value);
    [[nodiscard]] SimulatedSMCKey key(std::string_view name) const;
    [[nodiscard]] bool has(std::string_view name) const;
    [[nodiscard]] std::size_t keyCount() const;

    /// Called with each index that is asked for, before the answer.
    void onIndex(std::function<void(std::uint32_t)> happens);
    /// From now on every answer is random: success, with any bytes as any type of any size.
    void talkNonsense(std::uint64_t seed);

    [[nodiscard]] SMCAnswer answer(const SMCRequest& request);

private:
    // With the lock held.
    SimulatedSMCKey& at(std::string_view name);
    void renumber();
    [[nodiscard]] SMCAnswer atIndex(std::uint32_t index);
    [[nodiscard]] SMCAnswer nonsense();

    [[nodiscard]] SMCAnswer information(std::uint32_t code);
    [[nodiscard]] SMCAnswer read(std::uint32_t code);
    [[nodiscard]] SMCAnswer write(const SMCRequest& request);

    mutable std::mutex mutex_;
    std::map<std::uint32_t, SimulatedSMCKey> keys_;
    std::vector<std::uint32_t> order_;  // empty: to be made
    std::function<void(std::uint32_t)> onIndex_;
    std::optional<std::uint64_t> nonsense_;  // state of the generator
};

}  // namespace vtx
