// SPDX-License-Identifier: MIT
// Short texts of the system that are read once or now and then.
#include <algorithm>
#include <string>

#include "Fuzz.h"
#include "base/ValidUtf8.h"
#include "platform/linux/BlockDevices.h"
#include "platform/linux/IntelLoad.h"
#include "platform/linux/LinuxHeapRelief.h"
#include "platform/linux/LinuxProcessInfo.h"
#include "platform/linux/PackageKit.h"
#include "platform/linux/Parse.h"
#include "platform/linux/ProcessListing.h"
#include "platform/linux/TimeOfDay.h"

using namespace vtx;

namespace {

void tryPackage(std::string_view text) {
    const auto id = PackageID::parse(text);
    const auto fields = std::ranges::count(text, ';');
    fuzz::expect(!id || (fields > 0 && !id->name.empty() && !id->version.empty()));
    if (!id) return;
    for (const auto& field : {id->name, id->version, id->architecture})
        fuzz::expect(field.find(';') == field.npos);
    const auto written = id->name + ";" + id->version + ";" + id->architecture + ";elsewhere";
    fuzz::expect(text.starts_with(id->name + ";" + id->version));
    fuzz::expect(PackageID::parse(written) == id);
}

void tryDisk(std::string_view name) {
    const auto disk = multipathDisk(name);
    // What a way leads to is a disk, and the way is none.
    if (disk) fuzz::expect(isWholeDisk(*disk) && !isWholeDisk(name) && !multipathDisk(*disk));
    if (disk) fuzz::expect(disk->starts_with("nvme") && disk->size() + 2 <= name.size());
    for (const auto* none : {"loop", "zram", "dm-"})
        fuzz::expect(!isWholeDisk(none + std::string(name)));
}

void tryLastProcess(std::string_view text) {
    const auto pid = ProcessListing::lastPid(text);
    fuzz::expect(!pid || *pid > 0);
    if (pid)
        fuzz::expect(ProcessListing::lastPid("0.1 0.2 0.3 1/200 " + std::to_string(*pid) + "\n") ==
                     pid);
}

/// In whatever locale, there is a time to show.
void tryLocale(std::string_view name) {
    constexpr std::size_t longest = 24;  // looking for one takes its time
    if (name.size() > longest) return;
    const TimeOfDay time([name](std::string_view variable) -> std::optional<std::string> {
        if (variable == "LC_TIME") return std::string(name);
        return std::nullopt;
    });
    const auto text = time.text(Date(std::chrono::seconds(1'736'942'400)));
    fuzz::expect(!text.empty() && isValidUtf8(text));
    fuzz::expect(text.find("00") != text.npos);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto text = fuzz::asInputText(data, size);
    tryPackage(text);
    tryDisk(text);
    tryLastProcess(text);
    tryLocale(text);
    const auto name = LinuxProcessInfo::prettyName(text);
    fuzz::expect(!name || (!name->empty() && name->size() <= size));
    const auto held = LinuxHeapRelief::heldBytes(text);
    fuzz::expect(!held || *held >= 0);
    // Two counters and the time between them.
    const auto before = parseUnsigned(takeLine(text));
    const auto now = parseUnsigned(takeLine(text));
    const auto span = parseUnsigned(takeLine(text));
    constexpr std::uint64_t longest = 1'000'000'000'000;
    if (!before || !now || !span || *span > longest) return 0;
    const auto busy = busyBetween(*before, *now, std::chrono::nanoseconds(*span));
    fuzz::expect(!busy || *busy <= 100);
    return 0;
}
