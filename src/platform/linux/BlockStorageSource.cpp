// SPDX-License-Identifier: MIT
#include "platform/linux/BlockStorageSource.h"

#include <algorithm>
#include <utility>

namespace vtx {

RegistryNodes BlockStorageSource::services() {
    renew();
    return *nodes_;
}

SharedNodes BlockStorageSource::sharedServices() {
    renew();
    return nodes_;
}

void BlockStorageSource::renew() {
    const auto now = changes_.generation();
    const auto failing =
        std::ranges::count_if(disks_, [](const auto& disk) { return disk->isFailing(); });
    // One that goes on failing is looked for once.
    const bool isMoreFailing = failing > std::exchange(failing_, failing);
    if (std::exchange(generation_, now) != now || isMoreFailing) look();
}

void BlockStorageSource::look() {
    std::vector<std::shared_ptr<BlockDisk>> found;
    for (const auto& device : listBlockDevices(root_)) {
        auto disk = diskOf(device);
        found.push_back(disk ? std::move(disk) : std::make_shared<BlockDisk>(root_, device));
        if (const auto& child = found.back()->children.front(); child->parent.expired())
            child->parent = found.back();
    }
    for (const auto& disk : disks_)
        if (std::ranges::find(found, disk) == found.end()) disk->remove();
    disks_ = std::move(found);
    nodes_ = std::make_shared<const RegistryNodes>(disks_.begin(), disks_.end());
}

std::shared_ptr<BlockDisk> BlockStorageSource::diskOf(const BlockDevice& device) const {
    const auto known = std::ranges::find_if(
        disks_, [&device](const auto& disk) { return disk->device() == device; });
    return known == disks_.end() ? nullptr : *known;
}

}  // namespace vtx
