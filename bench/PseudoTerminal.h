// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <thread>

namespace vtx::bench {

/// A terminal of 120 by 40 characters for one program, on which nobody looks: what is written on it
/// is taken off at once, as a terminal emulator does, and counted.
class PseudoTerminal {
public:
    /// Throws `std::system_error` where there is none to be had.
    PseudoTerminal();
    /// The program must have ended.
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// In a new process, before its program: begins a session with this as its terminal, and as
    /// its input, its output and its messages.
    void adopt() const;

    /// Bytes so far.
    [[nodiscard]] std::size_t written() const { return written_; }

private:
    void drain();

    int ours_ = -1;
    int theirs_ = -1;
    int end_ = -1;
    std::atomic<std::size_t> written_ = 0;
    std::thread thread_;
};

}  // namespace vtx::bench
