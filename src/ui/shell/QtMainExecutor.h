// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <deque>
#include <mutex>
#include <thread>

#include "base/Executor.h"

namespace vtx {

/// The main executor of a program with windows: its jobs run in Qt's event loop. However many jobs
/// wait, one event is posted, and jobs posted while it is handled run with it, so that a burst of
/// completions wakes the loop once. A job does not run an event loop of its own.
class QtMainExecutor final : public QObject, public Executor {
public:
    QtMainExecutor() = default;
    ~QtMainExecutor() override;

    void post(Job job) override;
    [[nodiscard]] bool isCurrent() const override { return std::this_thread::get_id() == owner_; }

    bool event(QEvent* event) override;

private:
    void drain();

    std::mutex mutex_;
    std::deque<Job> jobs_;
    /// An event is on its way or being handled; guarded as the jobs are.
    bool scheduled_ = false;
    std::thread::id owner_ = std::this_thread::get_id();
};  // any thread posts; owned by the composition root, on the thread of the application

}  // namespace vtx
