// SPDX-License-Identifier: MIT
#include "alerts/AlertsService.h"

#include <utility>

#include "alerts/AlertText.h"
#include "base/Clock.h"
#include "base/Completion.h"
#include "base/Log.h"
#include "language/Localization.h"
#include "platform/Ports.h"
#include "platform/UserNotificationCenter.h"
#include "telemetry/SystemInfoService.h"

namespace vtx {
namespace {

constexpr Logger logger{"Alerts"};
constexpr std::string_view identifierPrefix = "vantrix.alert.";
constexpr double percent = 100.0;

}  // namespace

struct AlertsService::Traits {
    std::string_view rawText;
    std::chrono::seconds persistence;
    L10n::Key title;
    L10n::Key body;
};

const AlertsService::Traits& AlertsService::traitsOf(Metric metric) {
    using enum L10n::Key;
    using std::chrono::seconds;
    static constexpr std::array<Traits, 5> all{
        {{"cpu", seconds(10), alert_cpu_title, alert_cpu_body},
         {"gpu", seconds(10), alert_gpu_title, alert_gpu_body},
         {"memory", seconds(30), alert_memory_title, alert_memory_body},
         {"pressure", seconds(30), alert_pressure_title, alert_pressure_body},
         {"temperature", seconds(10), alert_temp_title, alert_temp_body}}};
    return all[static_cast<std::size_t>(metric)];
}

AlertsService::AlertsService(const Ports& ports, Executor& main, UserNotificationCenter* center)
    : clock_(ports.clock), center_(center), tasks_(main) {
    if (center_) return;
    if (!SystemInfoService::isRunningTests(ports.processInfo)) center_ = &ports.userNotifications;
    tasks_.spawn([this](const std::stop_token&) { return requestPermissionIfNeeded(); });
}

Task<> AlertsService::requestPermissionIfNeeded() {
    if (!center_) co_return;
    using Answer = UserNotificationCenter::Authorization;
    Completion<Answer> asked(
        [center = center_](auto told) { center->requestAuthorization(std::move(told)); });
    const Answer answer = co_await asked;
    if (answer.error)
        logger.error("requestAuthorization failed: {}", *answer.error);
    else if (!answer.isGranted)
        logger.standard("User denied notification permission — alerts disabled");
    permissionGranted = answer.isGranted && !answer.error;
}

void AlertsService::evaluate(const AlertRules& rules, const std::optional<CPUStats>& cpu,
                             const std::optional<GPUStats>& gpu,
                             const std::optional<MemoryStats>& memory,
                             const std::optional<ThermalStats>& thermal,
                             const std::optional<TemperatureReading>& temperature) {
    if (!*permissionGranted) return;
    if (!rules.isAnyEnabled()) {
        for (Watch& watch : watches_) watch.isFired = false;
        return;
    }
    const Instant now = clock_.continuous();
    evaluateLoad(Metric::cpu, rules.cpu, cpu ? std::optional(cpu->totalUsage) : std::nullopt, now);
    evaluateLoad(Metric::gpu, rules.gpu, gpu ? std::optional(gpu->deviceUtilization) : std::nullopt,
                 now);
    evaluateLoad(Metric::memory, rules.memory,
                 memory ? std::optional(memory->usedFraction()) : std::nullopt, now);
    const bool isCritical =
        thermal && memory && memory->pressure == MemoryStats::Pressure::critical;
    evaluateOne(Metric::pressure, rules.isPressureEnabled && isCritical, now, {});
    evaluateTemperature(rules.temperature, temperature, now);
}

void AlertsService::evaluateLoad(Metric metric, const AlertRules::Rule& rule,
                                 std::optional<double> value, Instant now) {
    if (!rule.isEnabled || !value) {
        // When it was first seen above stays: it is told at once where it is above on returning.
        watchOf(metric).isFired = false;
        return;
    }
    Numbers numbers{*value * percent, rule.threshold * percent};
    if (metric == Metric::memory) numbers.threshold.reset();  // it is not said
    evaluateOne(metric, *value >= rule.threshold, now, numbers);
}

void AlertsService::evaluateTemperature(const AlertRules::Rule& rule,
                                        const std::optional<TemperatureReading>& reading,
                                        Instant now) {
    if (!rule.isEnabled) {
        watchOf(Metric::temperature) = {};
        return;
    }
    // A sensor that is silent for a while says neither that it is hot nor that it is not.
    if (!reading || !reading->cpuMaxC) return;
    const double value = *reading->cpuMaxC;
    evaluateOne(Metric::temperature, value >= rule.threshold, now, {value, rule.threshold});
}

void AlertsService::evaluateOne(Metric metric, bool isAbove, Instant now, const Numbers& numbers) {
    const Traits& traits = traitsOf(metric);
    const Localization& texts = Localization::shared();
    const std::string_view title = texts.string(traits.title);
    Watch& watch = watchOf(metric);
    if (!isAbove) {
        watch = {};
        return;
    }
    if (!watch.aboveSince) watch.aboveSince = now;
    if (watch.isFired || now - *watch.aboveSince < traits.persistence) return;
    // Before it is delivered: what cannot be delivered is not tried again.
    watch.isFired = true;
    std::string body(texts.string(traits.body));
    if (numbers.value) body = alertText::filled(body, alertText::value, *numbers.value);
    if (numbers.threshold) body = alertText::filled(body, alertText::threshold, *numbers.threshold);
    send(title, std::move(body), metric);
}

void AlertsService::send(std::string_view title, std::string body, Metric metric) {
    if (!center_) return;
    tasks_.spawn([this, title = std::string(title), body = std::move(body),
                  metric](const std::stop_token&) { return deliver(title, body, metric); });
}

Task<> AlertsService::deliver(std::string title, std::string body, Metric metric) {
    const std::string_view name = traitsOf(metric).rawText;
    const NotificationRequest request{std::string(identifierPrefix).append(name), std::move(title),
                                      std::move(body)};
    Completion<std::optional<std::string>> added(
        [center = center_, &request](auto told) { center->add(request, std::move(told)); });
    const auto error = co_await added;
    if (error)
        logger.error("Notification add failed: {}", *error);
    else
        logger.info("Alert fired: {}", name);
}

}  // namespace vtx
