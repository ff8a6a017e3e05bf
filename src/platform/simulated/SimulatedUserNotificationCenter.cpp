// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedUserNotificationCenter.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

std::optional<std::string> errorOf(std::optional<int> failure) {
    if (!failure) return std::nullopt;
    return "notification error " + std::to_string(*failure);
}

}  // namespace

void SimulatedUserNotificationCenter::requestAuthorization(Authorized completion) {
    auto error = errorOf(instruments_.enter(operations::requestAuthorization));
    const bool grants =
        isGranted &&
        (!error || instruments_.failures.take(operations::requestAuthorizationGranted).has_value());
    tell([completion = std::move(completion), answer = Authorization{grants, std::move(error)}] {
        completion(answer);
    });
}

void SimulatedUserNotificationCenter::add(const NotificationRequest& request, Added completion) {
    auto error = errorOf(instruments_.enter(operations::addNotificationRequest));
    if (!error) posted_.push_back(request);
    tell([completion = std::move(completion), error = std::move(error)] { completion(error); });
}

void SimulatedUserNotificationCenter::tell(std::function<void()> completion) {
    if (isHolding_)
        held_.push_back(std::move(completion));
    else
        completion();
}

void SimulatedUserNotificationCenter::answer() {
    isHolding_ = false;
    for (const auto& completion : std::exchange(held_, {})) completion();
}

std::vector<NotificationRequest> SimulatedUserNotificationCenter::shown() const {
    std::vector<NotificationRequest> list;
    for (const auto& request : posted_) {
        const auto older =
            std::ranges::find(list, request.identifier, &NotificationRequest::identifier);
        if (older == list.end())
            list.push_back(request);
        else
            *older = request;
    }
    return list;
}

}  // namespace vtx
