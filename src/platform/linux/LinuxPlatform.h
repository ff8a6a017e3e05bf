// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Executor.h"
#include "base/Job.h"
#include "platform/Ports.h"
#include "platform/linux/Environment.h"
#include "platform/linux/LinuxAppService.h"
#include "platform/linux/LinuxUserDefaults.h"
#include "platform/linux/RunLoop.h"

namespace vtx {

class SystemBus;

/// Every port on the running Linux machine. Made first and destroyed last by the composition root,
/// on the main executor; the run loop and the executor outlive it.
class LinuxPlatform {
public:
    struct Options {
        /// The folder that stands for "/"; a recorded tree in tests.
        std::string root = "/";
        /// Where the user's settings are kept; empty keeps them in memory.
        std::filesystem::path configFolder = LinuxUserDefaults::standardFolder();
        /// Where the desktop looks for what is started at login; empty for nowhere.
        std::filesystem::path autostartFolder = LinuxAppService::standardFolder();
        /// The message bus; empty for the system's own.
        std::string busAddress;
        Environment environment = processEnvironment();
        /// Asks the display which process is in front; empty where it does not tell.
        std::function<std::optional<std::int32_t>()> frontmostProcess = {};
        /// The bus of the user's session, which outlives the platform; null for none.
        SystemBus* session = nullptr;
        /// Where what may block is read; null for a thread of the platform's own.
        Executor* slowReads = nullptr;
    };

    /// Throws `std::system_error` when the system has no descriptor left for the timers.
    LinuxPlatform(RunLoop& loop, Executor& main, const Options& options);
    ~LinuxPlatform();
    LinuxPlatform(const LinuxPlatform&) = delete;
    LinuxPlatform& operator=(const LinuxPlatform&) = delete;

    [[nodiscard]] Ports ports();

    /// A job that names the thread on which it runs, as the kernel shows it: the first 15 bytes.
    /// The first job of a `SerialExecutor`.
    [[nodiscard]] static Job nameThread(std::string_view name);

private:
    struct Members;
    std::unique_ptr<Members> members_;
};

}  // namespace vtx
