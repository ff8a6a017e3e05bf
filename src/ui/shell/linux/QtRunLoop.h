// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "platform/linux/RunLoop.h"

namespace vtx {

/// Watches the platform's descriptors in Qt's event loop. Handlers run on the main executor, and
/// may drop their own subscription while they run.
class QtRunLoop final : public RunLoop {
public:
    /// `pollEvents` as poll(2) takes them: POLLIN, POLLOUT and POLLPRI are heard.
    [[nodiscard]] Subscription watch(int fd, short pollEvents,
                                     std::function<void()> ready) override;

private:
    QObject watches_;
};  // main executor; owned by the composition root, outlives the platform

}  // namespace vtx
