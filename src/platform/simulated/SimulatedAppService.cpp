// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedAppService.h"

#include <fmt/format.h>

#include "platform/simulated/Operations.h"

namespace vtx {

std::int64_t SimulatedAppService::status() const {
    instruments_.counter.count(operations::appServiceStatus);
    return status_;
}

std::optional<std::string> SimulatedAppService::registerService() {
    return change(operations::appServiceRegister, enabledStatus);
}

std::optional<std::string> SimulatedAppService::unregisterService() {
    return change(operations::appServiceUnregister, 0);
}

std::optional<std::string> SimulatedAppService::change(std::string_view operation,
                                                       std::int64_t status) {
    instruments_.counter.count(operation);
    if (const auto result = instruments_.failures.take(operation))
        return fmt::format("The operation couldn’t be completed. (error {})", *result);
    status_ = status;
    return std::nullopt;
}

}  // namespace vtx
