// SPDX-License-Identifier: MIT
#include "ui/models/DiskSectionModel.h"

#include "ui/models/Formatters.h"
#include "ui/models/SectionFormatters.h"
#include "ui/models/SectionText.h"

namespace vtx {
namespace {

using Key = L10n::Key;

VolumeRowModel rowOf(const DiskIOSnapshot& volume, const Localization& texts) {
    const std::string mark(emptyMark);
    const std::string name = volume.name.empty() ? mark : volume.name;
    const std::string device = volume.bsdDevice.value_or(mark);
    return {"internaldrive",
            name,
            device == name ? std::string() : device,
            {text(texts, Key::disk_read), formatDiskBytes(volume.bytesRead)},
            {text(texts, Key::disk_write), formatDiskBytes(volume.bytesWritten)}};
}

}  // namespace

DiskSectionModel describeDiskSection(const std::optional<DiskIOReading>& told,
                                     const Localization& texts) {
    static const DiskIOReading nothing;
    const DiskIOReading& reading = told ? *told : nothing;
    DiskSectionModel model;
    // The rates stand at 0 until two readings were taken; the operations say that none were.
    model.summary = {{"arrow.down.circle", text(texts, Key::disk_read),
                      formatThroughput(reading.bytesReadPerSecond.value_or(0.0)), Hue::cyan, "",
                      formatIOPS(reading.readIOPS)},
                     {"arrow.up.circle", text(texts, Key::disk_write),
                      formatThroughput(reading.bytesWrittenPerSecond.value_or(0.0)), Hue::orange,
                      "", formatIOPS(reading.writeIOPS)}};
    model.volumesTitle = text(texts, Key::disk_volumes);
    for (const DiskIOSnapshot& volume : reading.volumes)
        model.volumes.push_back(rowOf(volume, texts));
    return model;
}

std::optional<DiskThroughputChart> describeDiskSectionChart(const HistorySeries& bytesRead,
                                                            const HistorySeries& bytesWritten,
                                                            const DisplayPreferences& preferences) {
    if (!preferences.graphsDisk) return std::nullopt;
    return describeDiskChart(bytesRead, bytesWritten, preferences);
}

}  // namespace vtx
