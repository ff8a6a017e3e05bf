// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Clock.h"
#include "platform/linux/PatientCall.h"

namespace vtx {

/// A package as PackageKit writes it: "name;version;architecture;where from".
struct PackageID {
    std::string name;
    std::string version;
    std::string architecture;

    friend bool operator==(const PackageID&, const PackageID&) = default;

    /// Absent for what has no name or no version.
    [[nodiscard]] static std::optional<PackageID> parse(std::string_view text);
};

/// A package that a transaction told of.
struct ToldPackage {
    /// PackageKit's number for what is with it.
    std::uint32_t info = 0;
    PackageID id;
};

namespace packageKit {

inline constexpr auto serviceName = "org.freedesktop.PackageKit";
/// Numbers of `ToldPackage::info`.
inline constexpr std::uint32_t infoInstalled = 1;
inline constexpr std::uint32_t infoBlocked = 9;
/// Bits of a filter.
inline constexpr std::uint64_t filterNone = 1U << 1U;
inline constexpr std::uint64_t filterInstalled = 1U << 2U;

}  // namespace packageKit

/// One transaction of PackageKit after another: each is made, told in whose interest it is, and
/// begun; its packages are gathered until it says that it has finished. A service that goes away or
/// says nothing for long has failed. Dropping the object forgets the transaction. Main executor; it
/// must not outlive the bus and the clock.
class PackageTransaction {
public:
    /// Whether a user waits for it. Only then the system may ask for a password.
    enum class Interest { user, background };

    struct Request {
        std::string method;
        /// Appends the arguments, as in a `BusCall`.
        std::function<int(sd_bus_message*)> append;
        Interest interest = Interest::background;
    };
    struct Result {
        std::vector<ToldPackage> packages;
        /// What went wrong, in words, which may be none; absent after success.
        std::optional<std::string> error;
    };
    using Finished = std::function<void(const Result&)>;

    /// How long a transaction may take: fetching lists over a slow line does.
    static constexpr Duration patience = std::chrono::minutes(10);

    PackageTransaction(SystemBus& bus, Clock& clock);

    /// Begins, in the place of what was begun before. `finished` is told once, at once where there
    /// is no bus; it may drop the object or begin again.
    void start(Request request, Finished finished);

private:
    void begin(const std::string& path);
    void listen(const BusObject& transaction);
    void take(BusMessage& package);
    void fail(std::string error);
    void finish();

    SystemBus& bus_;
    Clock& clock_;
    PatientCall creation_;
    Request request_;
    Result result_;
    Finished finished_;
    BusObject transaction_;
    Subscriptions running_;
};

}  // namespace vtx
