// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vtx {

/// The program as something that the system starts when the user logs in. The state is the system's
/// own: the user may change it elsewhere at any time. Main executor.
class AppService {
public:
    /// Of the platform's numbers for states the one that means that it will be started.
    static constexpr std::int64_t enabledStatus = 1;

    AppService() = default;
    AppService(const AppService&) = delete;
    AppService& operator=(const AppService&) = delete;
    virtual ~AppService() = default;

    /// Not registered 0, enabled 1, waiting for the user's approval 2, not found 3.
    [[nodiscard]] virtual std::int64_t status() const = 0;

    /// Absent after success, otherwise what went wrong, in words.
    [[nodiscard]] virtual std::optional<std::string> registerService() = 0;
    [[nodiscard]] virtual std::optional<std::string> unregisterService() = 0;
};

}  // namespace vtx
