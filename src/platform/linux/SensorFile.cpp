// SPDX-License-Identifier: MIT
#include "platform/linux/SensorFile.h"

#include <utility>

#include "platform/linux/SensorText.h"

namespace vtx {
namespace {

constexpr std::size_t shortFile = 64;
constexpr auto beyondDelay = std::chrono::seconds(1);
/// A device that waits longer to suspend itself is asked all the same: a figure would get too old.
constexpr auto longestDelay = std::chrono::seconds(10);

std::string fileOf(const FoundSensor& sensor, std::string_view part) {
    const std::string folder = sensor.folder + "/";
    if (sensor.kind == SensorKind::batteryTemperature || sensor.stem.empty())
        return folder + "temp";
    return (folder + sensor.stem + "_").append(part);
}

std::optional<KeptFile> flagOf(const LinuxRoot& root, const std::string& file) {
    if (!root.exists(file)) return std::nullopt;
    return KeptFile(root.path(file));
}

/// Most devices have the file and say "unsupported" for good.
std::optional<RuntimePower> powerOf(const LinuxRoot& root, const std::string& device) {
    const auto status = root.readText(device + "/power/runtime_status");
    if (!status || *status == "unsupported") return std::nullopt;
    return RuntimePower(root, device);
}

}  // namespace

SensorFile::SensorFile(const LinuxRoot& root, TimeSource now, const FoundSensor& sensor,
                       std::string_view part)
    : now_(std::move(now)),
      kind_(sensor.kind),
      value_(root.path(fileOf(sensor, part))),
      power_(powerOf(root, sensor.folder + "/device")) {
    if (sensor.stem.empty() || part != "input") return;
    fault_ = flagOf(root, sensor.folder + "/" + sensor.stem + "_fault");
    if (kind_ == SensorKind::fan)
        alarm_ = flagOf(root, sensor.folder + "/" + sensor.stem + "_alarm");
}

std::optional<double> SensorFile::read() {
    const std::lock_guard lock(mutex_);
    return readAwake();
}

bool SensorFile::tryRead(std::optional<double>& value) {
    const std::unique_lock lock(mutex_, std::try_to_lock);
    if (!lock) return false;
    value = readAwake();
    return true;
}

std::optional<double> SensorFile::readAwake() {
    if (!power_) return ask();
    if (power_->state() != RuntimePower::State::on) {
        aloneUntil_.reset();
        return std::nullopt;
    }
    if (aloneUntil_ && now_() < *aloneUntil_) return last_;
    aloneUntil_.reset();
    last_ = ask();
    const auto delay = power_->autosuspendDelay();
    if (delay && *delay <= longestDelay) aloneUntil_ = now_() + *delay + beyondDelay;
    return last_;
}

std::optional<double> SensorFile::ask() {
    if (isSaid(fault_)) return std::nullopt;
    const auto text = value_.read(shortFile);
    if (!text || text->size() >= shortFile) return std::nullopt;
    const auto value = valueOf(*text);
    // A fan at rest is no failure, unless the chip says that it should turn.
    if (value == 0.0 && isSaid(alarm_)) return std::nullopt;
    return value;
}

std::optional<double> SensorFile::valueOf(std::string_view text) const {
    switch (kind_) {
        case SensorKind::temperature:
            return parseTemperature(text);
        case SensorKind::batteryTemperature:
            return parseTemperature(text, TemperatureUnit::tenths);
        case SensorKind::fan:
            break;
    }
    return parseFanSpeed(text);
}

bool SensorFile::isSaid(std::optional<KeptFile>& flag) {
    if (!flag) return false;
    const auto text = flag->read(shortFile);
    return text && isRaised(*text);
}

}  // namespace vtx
