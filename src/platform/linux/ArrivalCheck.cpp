// SPDX-License-Identifier: MIT
#include "platform/linux/ArrivalCheck.h"

#include <sys/epoll.h>

#include <utility>

namespace vtx {

ArrivalCheck::ArrivalCheck(const FileDescriptor& socket) {
    FileDescriptor events(::epoll_create1(EPOLL_CLOEXEC));
    epoll_event wanted{};
    wanted.events = EPOLLIN;
    if (events && ::epoll_ctl(events.get(), EPOLL_CTL_ADD, socket.get(), &wanted) == 0)
        events_ = std::move(events);
}

bool ArrivalCheck::mayReceive() const {
    epoll_event event{};
    return !events_ || ::epoll_wait(events_.get(), &event, 1, 0) != 0;
}

}  // namespace vtx
