// SPDX-License-Identifier: MIT
// What the readers of whole trees make of folders in which any file may say anything, at two
// moments.
#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "FolderTree.h"
#include "Fuzz.h"
#include "TreeReaders.h"
#include "linux/FakeRunLoop.h"
#include "platform/linux/AmdLoad.h"
#include "platform/linux/BatteryReader.h"
#include "platform/linux/BlockDevices.h"
#include "platform/linux/IdentityNodes.h"
#include "platform/linux/IntelLoad.h"
#include "platform/linux/LinkKinds.h"
#include "platform/linux/LinuxMemoryPressure.h"
#include "platform/linux/LinuxSysctl.h"
#include "platform/linux/MachineIdentity.h"
#include "platform/linux/PressureTriggers.h"

using namespace vtx;
using namespace vtx::fuzz;
using namespace std::chrono_literals;

namespace {

constexpr std::string_view card = "/sys/devices/pci/card";

/// Refuses, or hands out a descriptor that is never ready.
struct Triggers final : PressureTriggers {
    explicit Triggers(bool areThere) : areThere_(areThere) {}
    FileDescriptor open(const char*) override {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's own way
        return areThere_ ? FileDescriptor(::open("/dev/null", O_RDWR | O_CLOEXEC))
                         : FileDescriptor();
    }

private:
    bool areThere_;
};

class Identity final : public Readers {
public:
    using Readers::Readers;

    void look() override {
        const MachineIdentity identity(machine.root);
        for (const auto& text : {identity.chip, identity.model, identity.family})
            expect(!text || !text->empty());
        for (const auto& entry : identity.compatible)
            expect(!entry.empty() && entry.find('\0') == std::string::npos);
        if (const auto node = makeMemoryNode(machine.root)) {
            auto properties = *node->properties();
            expect(std::get<Data>(properties.at("dram-type").value()).size() < 16);
        }
        auto product = *makeProductNode(machine.root)->properties();
        expect(!std::get<Data>(product.at("product-name").value()).empty());
    }
};

class Devices final : public Readers {
public:
    using Readers::Readers;

    void look() override {
        const auto disks = listBlockDevices(machine.root);
        expect(std::ranges::is_sorted(disks, {}, &BlockDevice::name));
        for (const auto& disk : disks) {
            expect(disk.name == "sda" || disk.name == "nvme0n1");
            expect(!disk.product || !disk.product->empty());
            expect((disk.paths == std::vector<std::string>{"nvme0c1n1"}) ==
                   (disk.name == "nvme0n1"));
        }
        const auto link = readLinkFacts(machine.root, "wlan0");
        expect(link.isWireless && !link.hasDevice);
        expect(link.deviceType.find('\n') == std::string::npos);
        KernelLink ether;
        ether.hardwareType = 1;
        expect(kindOf(ether, link) ==
               (link.deviceType == "wwan" ? LinkKind::cellular : LinkKind::wifi));
    }
};

class Battery final : public Readers {
public:
    using Readers::Readers;

    void read() override {
        const auto state = battery_.read();
        if (!state) return;
        expect(!state->percent || (*state->percent >= 0 && *state->percent <= 100));
        for (const auto& minutes : {state->minutesToEmpty, state->minutesToFull})
            expect(!minutes || (*minutes >= 0 && *minutes <= 6000));
        expect(!(state->powersMachine && isSupplyOnline(machine.root)));
        expect(!state->currentMAh || *state->currentMAh >= 0);
    }

private:
    BatteryReader battery_{machine.root, machine.changes};
};

class Memory final : public Readers {
public:
    explicit Memory(Machine& shared) : Readers(shared) {
        for (const bool areThere : {false, true}) {
            auto& stalls = *stalls_.emplace_back(std::make_unique<Stalls>(*this, areThere));
            stalls.source->setEventHandler([&told = stalls.told](std::uint32_t level) {
                expect(level == memoryPressureNormal || level == memoryPressureWarn ||
                       level == memoryPressureCritical);
                // Each change is told once.
                expect(told != level);
                told = level;
            });
            stalls.source->activate();
        }
    }

    void read() override {
        tryMemory();
        tryStalls();
    }

private:
    struct Stalls {
        Stalls(Memory& memory, bool areThere)
            : triggers(areThere),
              pressure(memory.machine.root, loop, memory.machine.clock, triggers, memory.reader_),
              source(pressure.create(memoryPressureNormal | memoryPressureWarn |
                                     memoryPressureCritical)) {}
        Triggers triggers;
        test::FakeRunLoop loop;
        std::uint32_t told = memoryPressureNormal;
        LinuxMemoryPressure pressure;
        std::unique_ptr<MemoryPressureSource> source;
    };

    void tryMemory() {
        const auto sample = reader_.read();
        expect(!sample || sample->info.total > 0);
        std::array<std::byte, 32> record{};
        std::size_t size = record.size();
        expect((sysctl_.sysctlbyname("vm.swapusage", record, size) == 0) == sample.has_value());
        if (!sample) return;
        std::array<std::uint64_t, 3> swap{};  // total, available, used
        std::memcpy(swap.data(), record.data(), sizeof swap);
        expect(swap[0] == sample->info.swapTotal * 1024);
        expect(swap[2] <= swap[0] && swap[1] == swap[0] - swap[2]);
        const auto pages = pageCountsOf(sample->info, sample->zramBytes, 4096);
        expect(pages.free + pages.active + pages.inactive + pages.wired + pages.compressor ==
               sample->info.total / 4);
    }

    /// A stall is told, and its end when nothing stalled meanwhile.
    void tryStalls() {
        auto& byTriggers = *stalls_.back();
        expect(byTriggers.loop.watched() == 2);
        byTriggers.loop.fire(0);
        expect(byTriggers.told != memoryPressureNormal);
        machine.clock.advanceBy(2s);
        expect(byTriggers.told == memoryPressureNormal);
    }

    LinuxProcessors processors_{machine.root};
    MemInfoReader reader_{machine.root, machine.clock, *machine.changes};
    LinuxSysctl sysctl_{machine.root, processors_, reader_};
    std::vector<std::unique_ptr<Stalls>> stalls_;
};

class Graphics final : public Readers {
public:
    using Readers::Readers;

    void read() override {
        for (const auto& percent : {amd_.next(), intel_.next()})
            expect(!percent || *percent <= 100);
    }

private:
    std::vector<std::string> counterPaths() const {
        std::vector<std::string> paths;
        for (const auto& counter :
             IntelLoad::countersOf(machine.root, std::string(card), "/sys/none"))
            paths.push_back(machine.root.path(counter));
        return paths;
    }

    AmdLoad amd_{machine.root.path(std::string(card) + "/gpu_busy_percent")};
    IntelLoad intel_{machine.clock, [](Duration) {}, counterPaths()};
};

using MakeReaders = std::unique_ptr<Readers> (*)(Machine&);
template <class Made>
std::unique_ptr<Readers> make(Machine& machine) {
    return std::make_unique<Made>(machine);
}

/// Who reads the files whose paths have this in them.
struct Reading {
    std::string_view part;
    MakeReaders make;
};
constexpr std::array readings{Reading{"/proc/stat", make<Processors>},
                              Reading{"/proc/cpuinfo", make<Processors>},
                              Reading{"/cpu", make<Processors>},
                              Reading{"/coretemp", make<Sensors>},
                              Reading{"/coretemp.0/power/", make<Power>},
                              Reading{"/thermal_zone0/mode", make<Zones>},
                              Reading{"/thermal_zone0/t", make<Zones>},
                              Reading{"/thermal_zone1/", make<Zones>},
                              Reading{"/cdev0", make<Zones>},
                              Reading{"/hwmon1/", make<Sensors>},
                              Reading{"/thermal_zone0/type", make<Sensors>},
                              Reading{"/thermal_zone0/temp", make<Sensors>},
                              Reading{"/thermal_zone1/", make<Sensors>},
                              Reading{"/trip_point_0_type", make<Sensors>},
                              Reading{"/trip_point_1_type", make<Sensors>},
                              Reading{"/cdev0", make<Sensors>},
                              Reading{"/BAT0/type", make<Sensors>},
                              Reading{"/BAT0/scope", make<Sensors>},
                              Reading{"/BAT0/temp", make<Sensors>},
                              Reading{"/AC/type", make<Sensors>},
                              Reading{"/AC/scope", make<Sensors>},
                              Reading{"/proc/cpuinfo", make<Identity>},
                              Reading{"/device-tree/", make<Identity>},
                              Reading{"dmi", make<Identity>},
                              Reading{"dimm_mem_type", make<Identity>},
                              Reading{"/block/", make<Devices>},
                              Reading{"/net/", make<Devices>},
                              Reading{"/power_supply/", make<Battery>},
                              Reading{"/proc/meminfo", make<Memory>},
                              Reading{"/pressure/", make<Memory>},
                              Reading{"osrelease", make<Memory>},
                              Reading{"/zram", make<Memory>},
                              Reading{"/card/", make<Graphics>}};

using Kinds = std::set<MakeReaders>;

std::array<Kinds, files.size()> kindsByFile() {
    std::array<Kinds, files.size()> kinds;
    for (std::size_t i = 0; i < files.size(); ++i)
        for (const auto& [part, make] : readings)
            if (std::string_view(files.at(i).path).find(part) != std::string_view::npos)
                kinds.at(i).insert(make);
    for (const auto& readers : kinds) expect(!readers.empty());
    return kinds;
}

/// Those whose files say something else than usual; the others say nothing new, and take their
/// time.
Kinds kindsOf(const Moments& moments) {
    static const auto byFile = kindsByFile();
    Kinds kinds;
    for (std::size_t i = 0; i < files.size(); ++i)
        if (moments.told[i]) kinds.insert(byFile.at(i).begin(), byFile.at(i).end());
    return kinds;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FolderTree tree;
    const auto moments = momentsOf(asInputText(data, size));
    Machine machine{.root = LinuxRoot(tree.path()), .told = moments.told, .clock = {}};
    tree.say(moments.first);
    const auto kinds = kindsOf(moments);
    // Each processor is looked for in files of its own: thousands say nothing new, and take their
    // time.
    if (kinds.contains(make<Processors>) && LinuxProcessors(machine.root).count() > 64) return 0;
    std::vector<std::unique_ptr<Readers>> readers;
    for (const auto& make : kinds) readers.push_back(make(machine));
    for (const auto& each : readers) {
        each->look();
        each->read();
    }
    machine.clock.advanceBy(1s);
    tree.say(moments.second);
    for (const auto& each : readers) each->read();
    return 0;
}
