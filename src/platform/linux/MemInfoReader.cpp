// SPDX-License-Identifier: MIT
#include "platform/linux/MemInfoReader.h"

#include <chrono>
#include <utility>

namespace vtx {
namespace {

/// Several times what kernels write today.
constexpr std::size_t longestFile = 16'384;
/// As much as kernels write.
constexpr std::size_t usualFile = KeptFile::shortBytes;
constexpr std::size_t longestLine = 512;
constexpr Duration recently = std::chrono::milliseconds(20);

}  // namespace

MemInfoReader::MemInfoReader(const LinuxRoot& root, const Clock& clock, DeviceChanges& changes)
    : root_(root), clock_(clock), changes_(changes), file_(root.path("/proc/meminfo")) {}

std::optional<MemInfoReader::Sample> MemInfoReader::read() {
    std::optional<Sample> sample;
    {
        const std::lock_guard lock(mutex_);
        sample = readLocked();
    }
    const std::lock_guard lock(followers_->mutex);
    for (const auto& handler : followers_->handlers) handler();
    return sample;
}

std::optional<MemInfoReader::Sample> MemInfoReader::recent() {
    const std::lock_guard lock(mutex_);
    if (last_ && clock_.continuous() - lastTime_ <= recently) return last_;
    return readLocked();
}

Subscription MemInfoReader::onRead(std::function<void()> handler) {
    const std::lock_guard lock(followers_->mutex);
    const auto at = followers_->handlers.insert(followers_->handlers.end(), std::move(handler));
    return Subscription([weak = std::weak_ptr(followers_), at] {
        const auto followers = weak.lock();
        if (!followers) return;
        const std::lock_guard guard(followers->mutex);
        followers->handlers.erase(at);
    });
}

std::optional<MemInfoReader::Sample> MemInfoReader::readLocked() {
    auto text = file_.read(usualFile);
    if (text && text->size() == usualFile) text = file_.read(longestFile);
    const auto info = text ? text_.parse(*text) : std::nullopt;
    last_.reset();
    if (info) {
        last_ = Sample{*info, zramBytes()};
        lastTime_ = clock_.continuous();
    }
    return last_;
}

std::uint64_t MemInfoReader::zramBytes() {
    if (const auto now = changes_.generation(); now != generation_) {
        generation_ = now;
        findZramDevices();
    }
    std::uint64_t bytes = 0;
    for (auto& device : zram_) {
        const auto text = device.file.read(longestLine);
        bytes += (text ? parseZramPool(*text) : std::nullopt).value_or(0);
    }
    return bytes;
}

void MemInfoReader::findZramDevices() {
    zram_.clear();
    for (const auto& name : root_.list("/sys/block")) {
        if (!name.starts_with("zram")) continue;
        zram_.push_back({name, KeptFile(root_.path("/sys/block/" + name + "/mm_stat"))});
    }
}

}  // namespace vtx
