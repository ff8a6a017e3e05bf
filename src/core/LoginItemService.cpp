// SPDX-License-Identifier: MIT
#include "core/LoginItemService.h"

#include "base/Log.h"

namespace vtx {
namespace {

constexpr Logger logger{"LoginItemService"};

}  // namespace

LoginItemService::LoginItemService(AppService& service) : service_(service) { readStatus(); }

void LoginItemService::setEnabled(bool enabled) {
    const std::optional<std::string> error =
        enabled ? service_.registerService() : service_.unregisterService();
    lastError = error;
    if (error) logger.error("SMAppService toggle failed: {}", *error);
    readStatus();
}

void LoginItemService::readStatus() { isEnabled = service_.status() == AppService::enabledStatus; }

}  // namespace vtx
