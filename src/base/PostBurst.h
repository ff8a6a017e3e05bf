// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <vector>

namespace vtx {

/// While it lives, jobs that its thread posts wake no thread: that comes at its end, once for each
/// executor, however many jobs it got. A thread that runs anyway takes them at once. On the stack,
/// around what posts several jobs in a row and waits for none of them; bursts may be nested. The
/// executors outlive it.
class PostBurst {
public:
    PostBurst();
    ~PostBurst();
    PostBurst(const PostBurst&) = delete;
    PostBurst& operator=(const PostBurst&) = delete;

    /// How many it wakes when it ends.
    [[nodiscard]] std::size_t size() const { return waited_.size(); }

    /// Wakes one that waits there: at the end of the calling thread's burst, or at once.
    static void wake(std::condition_variable& waited);

private:
    PostBurst* const outer_;
    std::vector<std::condition_variable*> waited_;
};

}  // namespace vtx
