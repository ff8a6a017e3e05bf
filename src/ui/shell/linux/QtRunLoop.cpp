// SPDX-License-Identifier: MIT
#include "ui/shell/linux/QtRunLoop.h"

#include <poll.h>

#include <QPointer>
#include <QSocketNotifier>
#include <memory>

namespace vtx {

namespace {

using Handler = std::shared_ptr<std::function<void()>>;

void listen(QObject* watch, int fd, QSocketNotifier::Type type, const Handler& handler) {
    auto* notifier = new QSocketNotifier(fd, type, watch);
    QObject::connect(notifier, &QSocketNotifier::activated, watch, [handler] {
        const Handler kept = handler;  // the call may drop the connection that holds it
        (*kept)();
    });
}

/// The descriptor may be closed right after, so that nothing listens once this returns.
void end(QObject* watch) {
    for (auto* notifier : watch->findChildren<QSocketNotifier*>()) {
        notifier->setEnabled(false);
        notifier->disconnect(watch);
    }
    watch->deleteLater();
}

}  // namespace

Subscription QtRunLoop::watch(int fd, short pollEvents, std::function<void()> ready) {
    const auto handler = std::make_shared<std::function<void()>>(std::move(ready));
    auto* watch = new QObject(&watches_);
    if (pollEvents & POLLIN) listen(watch, fd, QSocketNotifier::Read, handler);
    if (pollEvents & POLLOUT) listen(watch, fd, QSocketNotifier::Write, handler);
    if (pollEvents & POLLPRI) listen(watch, fd, QSocketNotifier::Exception, handler);
    return Subscription([alive = QPointer<QObject>(watch)] {
        if (alive) end(alive);
    });
}

}  // namespace vtx
