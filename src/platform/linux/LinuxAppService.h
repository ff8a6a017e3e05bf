// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "platform/AppService.h"
#include "platform/linux/Environment.h"

namespace vtx {

/// The login item as the user's autostart file, `autostart/vantrix.desktop` in the folder of the
/// settings, as every desktop reads it. The file is the state: it is read whenever the state is
/// asked for, and what others wrote in it is kept. Main executor; owned by the platform.
class LinuxAppService final : public AppService {
public:
    /// Where the file is, and what is started by a new one.
    LinuxAppService(std::filesystem::path folder, std::string executable);

    [[nodiscard]] std::int64_t status() const override;
    [[nodiscard]] std::optional<std::string> registerService() override;
    [[nodiscard]] std::optional<std::string> unregisterService() override;

    /// By XDG_CONFIG_HOME and the user database; empty where neither tells.
    [[nodiscard]] static std::filesystem::path standardFolder(
        const Environment& environment = processEnvironment());
    /// The program that is running, by the file that the user started.
    [[nodiscard]] static std::string runningExecutable(const Environment& environment);

private:
    struct Entry {
        std::string text;
        /// Absent where there is a file that could be read, or none.
        std::optional<std::string> error;
        bool exists = false;
    };
    [[nodiscard]] Entry read() const;
    [[nodiscard]] std::optional<std::string> write(const std::string& text);
    [[nodiscard]] std::string wordsFor(const std::error_code& error) const;
    [[nodiscard]] bool startsSomething(const std::string& text) const;
    [[nodiscard]] std::string repaired(const std::string& text) const;

    std::filesystem::path file_;
    std::string executable_;
};

}  // namespace vtx
