// SPDX-License-Identifier: MIT
// The program on machines with other sensors than this one: each machine's /sys lies over ours in
// a mount namespace of the program's own.
#include <unistd.h>

#include <cstdlib>

#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

struct Machine {
    const char* name;
    const char* fixture;
    const char* spoken;
};

/// Runs what follows with another /sys; an ordinary user is root in a namespace of his own for it.
std::vector<std::string> withSys(const std::string& fixture, std::vector<std::string> command) {
    const std::string sys = std::string(VANTRIX_FIXTURES) + "/" + fixture + "/sys";
    std::vector<std::string> all{"unshare",
                                 ::geteuid() == 0 ? "-m" : "-rm",
                                 "sh",
                                 "-c",
                                 "mount --bind \"$1\" /sys && shift && exec \"$@\"",
                                 "sh",
                                 sys};
    all.insert(all.end(), command.begin(), command.end());
    return all;
}

bool maySetSys() {
    const auto probe = withSys("virtual-server-6.18", {"true"});
    std::string line;
    for (const auto& word : probe) line += "'" + word + "' ";
    return std::system((line + ">/dev/null 2>&1").c_str()) == 0;  // NOLINT(cert-env33-c)
}

class SensorE2E : public DesktopTest, public testing::WithParamInterface<Machine> {};

TEST_P(SensorE2E, the_strip_says_the_temperature_of_the_machine) {
    if (!maySetSys()) GTEST_SKIP() << "no mount namespace may be made here";
    start(withSys(GetParam().fixture, {VANTRIX_PROGRAM}), "vantrix");
    const auto says = [this] {
        const auto found = strip();
        return found && found->name().find(GetParam().spoken) != std::string::npos;
    };
    EXPECT_TRUE(eventually(says)) << (strip() ? strip()->name() : "no strip");
}

INSTANTIATE_TEST_SUITE_P(
    Machines, SensorE2E,
    testing::Values(
        Machine{"hybrid_laptop", "intel-hybrid-laptop-6.12", "CPU temperature 52 Celsius"},
        Machine{"desktop", "amd-desktop-6.8", "CPU temperature 59 Celsius"},
        Machine{"two_socket_server", "two-socket-server-5.15", "CPU temperature 63 Celsius"},
        Machine{"board", "arm-big-little-board-6.6", "CPU temperature 48 Celsius"},
        Machine{"dell_laptop", "dell-laptop-6.1", "CPU temperature 61 Celsius"},
        Machine{"asus_laptop", "amd-two-gpus-laptop-6.15", "CPU temperature 67 Celsius"},
        Machine{"server_without_sensors", "virtual-server-6.18", "Thermal Nominal"}),
    [](const auto& machine) { return machine.param.name; });

}  // namespace
}  // namespace vtx::e2e
