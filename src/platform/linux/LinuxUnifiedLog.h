// SPDX-License-Identifier: MIT
#pragma once

#include <sys/uio.h>

#include <array>
#include <string>
#include <string_view>

#include "platform/UnifiedLog.h"
#include "platform/linux/Environment.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The journal, where its socket is there: each line carries the fields SUBSYSTEM, CATEGORY,
/// PRIORITY and MESSAGE. Otherwise, or when the journal refuses a line, standard error, as
/// "category: message". The least level written is that of the variable VANTRIX_LOG (debug, info,
/// default or error); without it info for the journal and default for standard error. Any thread;
/// owned by the platform.
class LinuxUnifiedLog final : public UnifiedLog {
public:
    /// Where lines go; tests give their own.
    struct Outputs {
        /// Takes the fields of one line; negative when it could not.
        int (*journal)(const struct iovec* fields, int count);
        int standardError;
    };
    static Outputs systemOutputs();

    LinuxUnifiedLog(const LinuxRoot& root, const Environment& environment,
                    Outputs outputs = systemOutputs());

    void write(LogLevel level, std::string_view subsystem, std::string_view category,
               std::string_view message) noexcept override;
    [[nodiscard]] bool isEnabled(LogLevel level) const noexcept override {
        return level >= leastLevel_;
    }

private:
    [[nodiscard]] bool writeToJournal(LogLevel level, std::string_view subsystem,
                                      std::string_view category, std::string_view message) const;
    void writeToStandardError(std::string_view category, std::string_view message) const noexcept;

    Outputs outputs_;
    bool hasJournal_;
    LogLevel leastLevel_;
};

}  // namespace vtx
