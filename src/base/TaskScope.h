// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

#include "base/Task.h"

namespace vtx {

/// The handle of a spawned task: can ask it to stop. Asking does not end the task: the task looks
/// at its token where it chooses to, which for a sleep is at once.
class TaskHandle {
public:
    explicit TaskHandle(std::stop_source source) : source_(std::move(source)) {}
    void cancel() { source_.request_stop(); }

private:
    std::stop_source source_;
};

/// Owns the tasks that an object spawns. The scope's end drops every task of it wherever it is
/// suspended, so a task may use the object that owns the scope without asking whether it still is
/// there. Confined to its executor; must not go from within a task of its own that is running.
class TaskScope {
public:
    using Body = std::function<Task<void>(std::stop_token)>;

    explicit TaskScope(Executor& home);
    ~TaskScope();
    TaskScope(const TaskScope&) = delete;
    TaskScope& operator=(const TaskScope&) = delete;

    /// Starts the task in a job of the scope's executor.
    TaskHandle spawn(Body body);

    /// Tasks that have not ended.
    [[nodiscard]] std::size_t size() const;

private:
    struct Core;
    Executor& home_;
    std::shared_ptr<Core> core_;
};

}  // namespace vtx
