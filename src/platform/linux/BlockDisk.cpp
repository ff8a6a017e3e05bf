// SPDX-License-Identifier: MIT
#include "platform/linux/BlockDisk.h"

#include <utility>

#include "platform/IORegistry.h"

namespace vtx {
namespace {

/// Seventeen numbers of at most twenty digits.
constexpr std::size_t statBytes = 512;

std::string statFile(const LinuxRoot& root, const std::string& name) {
    return root.path("/sys/block/" + name + "/stat");
}

Property number(std::uint64_t value) { return static_cast<std::int64_t>(value); }

PropertyMap statistics(const BlockStat& stat) {
    return {{"Bytes (Read)", number(stat.bytesRead)},
            {"Bytes (Write)", number(stat.bytesWritten)},
            {"Operations (Read)", number(stat.readOperations)},
            {"Operations (Write)", number(stat.writeOperations)}};
}

constexpr KeptProperty::Shape statisticsShape;

void makeStatistics(KeptProperty& kept, const BlockStat& stat) {
    kept.put(Property(statistics(stat)));
    auto number = kept.numbers.begin();  // in the order of their keys
    for (auto& [key, value] : std::get<PropertyMap>(kept.value->value()))
        *number++ = &std::get<std::int64_t>(value.value());
    kept.shape = &statisticsShape;
}

void renewStatistics(const KeptProperty& kept, const BlockStat& stat) {
    const auto& [bytesRead, bytesWritten, readOperations, writeOperations] = kept.numbers;
    *bytesRead = static_cast<std::int64_t>(stat.bytesRead);
    *bytesWritten = static_cast<std::int64_t>(stat.bytesWritten);
    *readOperations = static_cast<std::int64_t>(stat.readOperations);
    *writeOperations = static_cast<std::int64_t>(stat.writeOperations);
}

}  // namespace

BlockDisk::BlockDisk(const LinuxRoot& root, BlockDevice device)
    : RegistryNode(planes::service, "IOBlockStorageDriver"),
      device_(std::move(device)),
      stat_(statFile(root, device_.name)) {
    for (const auto& path : device_.paths) pathStats_.emplace_back(statFile(root, path));
    children.push_back(std::make_shared<FixedNode>(planes::service, device_.name,
                                                   PropertyMap{{"BSD Name", device_.name}}));
}

std::optional<PropertyMap> BlockDisk::properties() {
    if (isRemoved_) return std::nullopt;
    PropertyMap all;
    if (device_.product)
        all.emplace("Device Characteristics", PropertyMap{{"Product Name", *device_.product}});
    const std::lock_guard lock(mutex_);
    if (const auto stat = read()) all.emplace("Statistics", statistics(*stat));
    return all;
}

bool BlockDisk::property(std::string_view key, KeptProperty& kept) {
    if (key != "Statistics") return RegistryNode::property(key, kept);
    if (isRemoved_) return false;
    const std::lock_guard lock(mutex_);
    const auto stat = read();
    if (!stat) return false;
    if (kept.shape == &statisticsShape)
        renewStatistics(kept, *stat);
    else
        makeStatistics(kept, *stat);
    return true;
}

std::optional<BlockStat> BlockDisk::read() {
    const auto text = stat_.read(statBytes);
    auto stat = text ? parseBlockStat(*text) : std::nullopt;
    isFailing_ = !stat;
    if (stat == BlockStat{} && !pathStats_.empty()) stat = readPaths();
    return stat;
}

BlockStat BlockDisk::readPaths() {
    BlockStat sum;
    for (auto& path : pathStats_) {
        const auto text = path.read(statBytes);
        const auto stat = text ? parseBlockStat(*text) : std::nullopt;
        if (!stat) continue;
        sum.readOperations += stat->readOperations;
        sum.bytesRead += stat->bytesRead;
        sum.writeOperations += stat->writeOperations;
        sum.bytesWritten += stat->bytesWritten;
    }
    return sum;
}

}  // namespace vtx
