// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/Eventually.h"

namespace vtx::e2e {

using Environment = std::map<std::string, std::string>;

/// A process of the test, in a process group of its own with all that it starts. The whole group is
/// ended with the object, and by the kernel should the test itself be killed.
class ChildProcess {
public:
    struct Launch {
        std::vector<std::string> command;
        Environment environment;
        /// Where its standard error goes, and its standard output to the same name with ".out".
        std::filesystem::path log;
    };

    explicit ChildProcess(const Launch& launch);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] pid_t pid() const { return pid_; }
    /// The first line that it writes to its descriptor 3, for programs that tell how they can be
    /// reached; throws when none comes.
    [[nodiscard]] std::string announcement();
    [[nodiscard]] std::string output() const;
    [[nodiscard]] std::string errors() const;

    void send(int signal) const;
    [[nodiscard]] bool hasEnded() const;
    /// The exit status, or 128 and the signal that ended it; absent while it runs after that time.
    [[nodiscard]] std::optional<int> exitStatus(Span within = patience) const;

private:
    std::string name_;
    std::filesystem::path log_;
    pid_t pid_ = -1;
    int announcing_ = -1;
};

}  // namespace vtx::e2e
