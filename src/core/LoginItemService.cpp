// SPDX-License-Identifier: MIT
#include "core/LoginItemService.h"

#include "base/Log.h"

namespace vtx {
namespace {

constexpr Logger logger{"LoginItemService"};

}  // namespace

LoginItemService::LoginItemService(AppService& service) : service_(service) {
    isEnabled = isRegistered();
}

void LoginItemService::setEnabled(bool enabled) {
    const std::optional<std::string> error =
        enabled ? service_.registerService() : service_.unregisterService();
    lastError = error;
    if (error) logger.error("SMAppService toggle failed: {}", *error);
    isEnabled = isRegistered();
}

void LoginItemService::refresh() {
    // The same again would be told to everybody.
    if (const bool now = isRegistered(); now != *isEnabled) isEnabled = now;
}

bool LoginItemService::isRegistered() const {
    return service_.status() == AppService::enabledStatus;
}

}  // namespace vtx
