// SPDX-License-Identifier: MIT
#include "ui/shell/QtMainExecutor.h"

#include <QCoreApplication>
#include <QEvent>

namespace vtx {

namespace {

QEvent::Type drainEvent() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

}  // namespace

QtMainExecutor::~QtMainExecutor() {
    std::deque<Job> dropped;  // goes without the lock: what a job owned may post once more
    {
        const std::lock_guard lock(mutex_);
        dropped.swap(jobs_);
        scheduled_ = true;
    }
}

void QtMainExecutor::post(Job job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
        if (std::exchange(scheduled_, true)) return;
    }
    QCoreApplication::postEvent(this, new QEvent(drainEvent()));
}

bool QtMainExecutor::event(QEvent* event) {
    if (event->type() != drainEvent()) return QObject::event(event);
    drain();
    return true;
}

void QtMainExecutor::drain() {
    for (;;) {
        Job job;
        {
            const std::lock_guard lock(mutex_);
            if (jobs_.empty()) {
                scheduled_ = false;
                return;
            }
            job = std::move(jobs_.front());
            jobs_.pop_front();
        }
        job();
    }
}

}  // namespace vtx
