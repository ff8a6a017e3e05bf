// SPDX-License-Identifier: MIT
#include "platform/linux/SensorRole.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace vtx {
namespace {

struct Case {
    const char* chip;
    const char* label;
    SensorRole role;
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.chip << " \"" << c.label << "\""; }

class SensorRoleOf : public testing::TestWithParam<Case> {};

TEST_P(SensorRoleOf, is_what_the_machine_itself_says) {
    EXPECT_EQ(roleOf({GetParam().chip, ZoneCooling::none}, GetParam().label), GetParam().role);
}

using enum SensorRole;
INSTANTIATE_TEST_SUITE_P(
    ProcessorChips, SensorRoleOf,
    testing::Values(Case{"coretemp", "Package id 0", processor},
                    Case{"coretemp", "Physical id 1", processor},
                    Case{"coretemp", "Core 16", processorPart}, Case{"k10temp", "", processor},
                    Case{"k10temp", "Tdie", processor}, Case{"k10temp", "Tctl", processorControl},
                    Case{"k10temp", "Tccd1", processorPart}, Case{"zenpower", "Tdie", processor},
                    Case{"zenpower", "SVI2_P_Core", other}, Case{"k8temp", "", processor},
                    Case{"via_cputemp", "Core 0", processorPart},
                    Case{"k10temp", "CPU Die", processor}));
INSTANTIATE_TEST_SUITE_P(
    Zones, SensorRoleOf,
    testing::Values(Case{"cpu_thermal", "", processor}, Case{"cpu0_thermal", "", processor},
                    Case{"soc_thermal", "", processor}, Case{"cpu-thermal", "", processor},
                    Case{"x86_pkg_temp", "", processor}, Case{"package_thermal", "", processor},
                    Case{"gpu_thermal", "", other}, Case{"acpitz", "", other},
                    Case{"iwlwifi_1", "", other}, Case{"pch_cannonlake", "", other}));
INSTANTIATE_TEST_SUITE_P(
    Boards, SensorRoleOf,
    testing::Values(Case{"thinkpad", "CPU", board}, Case{"thinkpad", "GPU", other},
                    Case{"dell_smm", "CPU", board}, Case{"dell_smm", "SODIMM", other},
                    Case{"nct6798", "PECI Agent 0 Calibration", board},
                    Case{"nct6798", "TSI0_TEMP", board}, Case{"nct6798", "CPUTIN", other},
                    Case{"nct6798", "SYSTIN", other}, Case{"asusec", "CPU", board},
                    Case{"asusec", "CPU VRM", other}, Case{"asusec", "Chipset", other},
                    Case{"scpi_sensors", "CPU", board}, Case{"scpi_sensors", "PMIC", other},
                    Case{"it8728", "", other}, Case{"applesmc", "TC0P", other}));
INSTANTIATE_TEST_SUITE_P(Others, SensorRoleOf,
                         testing::Values(Case{"nvme", "Composite", other},
                                         Case{"drivetemp", "", other},
                                         Case{"amdgpu", "edge", other}, Case{"", "", other},
                                         Case{"\xff\xfe", "CPU\nCPU", board},
                                         Case{"nvme", "\xff", other}));

TEST(SensorRole, a_zone_that_slows_processors_by_their_clocks_is_the_processors) {
    EXPECT_EQ(roleOf({"bigcore0_thermal", ZoneCooling::byClock}, ""), processor);
    EXPECT_EQ(roleOf({"", ZoneCooling::byClock}, ""), processor);
}

TEST(SensorRole, a_zone_that_slows_them_by_firmware_is_the_firmwares) {
    EXPECT_EQ(roleOf({"acpitz", ZoneCooling::byFirmware}, ""), firmware);
    EXPECT_EQ(roleOf({"cpu_thermal", ZoneCooling::byFirmware}, "CPU"), firmware);
}

}  // namespace
}  // namespace vtx
