// SPDX-License-Identifier: MIT
#include "telemetry/SystemInfoService.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "platform/shapes/SMCValue.h"
#include "platform/simulated/Operations.h"
#include "support/TestBench.h"
#include "telemetry/FanCountReader.h"

namespace vtx {
namespace {

constexpr std::string_view category = "SystemInfoService";

/// A Mac and what is known of it. Its devices can be changed before they are asked.
struct InfoBench : TestBench {
    explicit InfoBench(MacShape shape = MacShape::standard()) : TestBench(std::move(shape)) {}

    [[nodiscard]] SystemInfo info() { return *SystemInfoService(ports()).info; }
    void setMemory(std::string_view key, Property value) {
        mac.registry.set(mac.registry.at("IODeviceTree:/memory"), key, std::move(value));
    }
    void setProduct(std::string_view name) {
        mac.registry.set(mac.registry.at("IODeviceTree:/product"), "product-name", toData(name));
    }
    [[nodiscard]] SimulatedRegistry::Node graphics() const { return mac.accelerators().front(); }
};

TEST(SystemInfo, of_a_mac_is_what_its_parts_tell) {
    InfoBench b;
    b.platform.sysctl.set("hw.optional.arm64", std::int32_t{1});
    b.platform.sysctl.set("hw.memsize", std::int64_t{32} << 30);
    const auto battery = b.mac.registry.add(b.mac.registry.root(planes::service),
                                            "AppleSmartBattery", "AppleSmartBattery");
    b.mac.registry.set(battery, "DesignCapacity", 8579);
    b.mac.registry.set(battery, "CycleCount", 41);
    SystemInfo expected;
    expected.chipName = "Apple M2 Max";
    expected.architecture = SystemInfo::Architecture::appleSilicon;
    expected.pCoreCount = 8;
    expected.eCoreCount = 4;
    expected.totalCores = 12;
    expected.pClusterMaxMHz = 3204;
    expected.eClusterMaxMHz = 2064;
    expected.totalRAMBytes = std::uint64_t{32} << 30;
    expected.ramType = "LPDDR5";
    expected.ramSpeedMTps = 3200;
    expected.hasGPU = true;
    expected.gpuName = "Apple M2 Max";
    expected.gpuCoreCount = 38;
    expected.hasBattery = true;
    expected.batteryDesignCapacityMAh = 8579;
    expected.batteryCycleCount = 41;
    expected.fanCount = 2;
    expected.modelIdentifier = "Mac14,6";
    expected.modelFamily = "MacBook Pro (16-inch, 2023)";
    EXPECT_EQ(b.info(), expected);
    EXPECT_TRUE(b.log.contains(LogLevel::info, category,
                               "SystemInfo: chip=Apple M2 Max arch=appleSilicon cores=8P+4E "
                               "ram=32GB gpu=Apple M2 Max battery=true fans=2 model=Mac14,6"));
}

TEST(SystemInfo, of_a_machine_that_tells_nothing_is_complete_all_the_same) {
    InfoBench b(MacShape::withoutLevels());
    for (const auto* name : {"machdep.cpu.brand_string", "hw.model", "hw.logicalcpu", "hw.memsize",
                             "hw.optional.arm64", "hw.cputype"})
        b.platform.sysctl.remove(name);
    b.failures.failAlways(operations::registryEntryFromPath);
    b.failures.failAlways(operations::serviceMatching);
    SystemInfo expected;
    expected.chipName = "Unknown CPU";
    expected.modelIdentifier = "Unknown";
    expected.modelFamily = "Mac";
    EXPECT_EQ(b.info(), expected);
    EXPECT_TRUE(
        b.log.contains("chip=Unknown CPU arch=unknown cores=0P+0E ram=0GB gpu=— "
                       "battery=false fans=0 model=Unknown"));
}

TEST(SystemInfo, is_asked_once_and_everything_given_out_comes_back) {
    InfoBench b;
    const std::size_t before = b.platform.outstanding();
    const SystemInfoService service(b.ports());
    EXPECT_EQ(b.platform.outstanding(), before);
    EXPECT_EQ(*service.info, SystemInfoService::detect(b.ports()));
    for (const auto failing :
         {operations::createCFProperties, operations::iteratorNext, operations::getMatchingServices,
          operations::serviceOpen, operations::connectCallStructMethod}) {
        b.failures.failAlways(failing);
        (void)b.info();
        b.failures.healAll();
        EXPECT_EQ(b.platform.outstanding(), before) << failing;
    }
}

TEST(SystemInfo, under_a_test_harness_is_a_placeholder_and_no_device_is_asked) {
    InfoBench b;
    b.mac.environment["XCTestConfigurationFilePath"] = "/x";
    b.platform.resetCalls();
    const auto info = b.info();
    EXPECT_EQ(info, SystemInfoService::placeholder());
    EXPECT_EQ(b.platform.totalCalls(), b.platform.calls(operations::environment));
    EXPECT_TRUE(b.log.contains(LogLevel::standard, category,
                               "SystemInfoService: test environment, using placeholder"));
    EXPECT_EQ(b.log.lines(category).size(), 1u);
}

TEST(SystemInfo, the_placeholder_is_that_of_a_mac_without_anything) {
    const auto info = SystemInfoService::placeholder();
    EXPECT_EQ(info.chipName, "Apple Silicon");
    EXPECT_EQ(info.architecture, SystemInfo::Architecture::appleSilicon);
    EXPECT_EQ(info.modelIdentifier, "Unknown");
    EXPECT_EQ(info.modelFamily, "Mac");
    EXPECT_EQ(info.totalCores + info.fanCount, 0);
    EXPECT_EQ(info.totalRAMBytes, 0u);
    EXPECT_FALSE(info.hasGPU || info.hasBattery || info.pClusterMaxMHz || info.eClusterMaxMHz ||
                 info.ramType || info.ramSpeedMTps || info.gpuName || info.gpuCoreCount ||
                 info.batteryCycleCount || info.batteryDesignCapacityMAh);
}

TEST(SystemInfo, a_bundle_of_tests_among_what_is_loaded_is_a_harness_too) {
    InfoBench b;
    b.mac.loadedBundlePaths = {"/x/Vantrix.app", "/x/xctest"};
    EXPECT_NE(b.info(), SystemInfoService::placeholder());
    b.mac.loadedBundlePaths.emplace_back("/x/VantrixTests.xctest");
    EXPECT_EQ(b.info(), SystemInfoService::placeholder());
}

TEST(SystemInfo, the_architecture_is_told_by_a_value_of_exactly_one) {
    InfoBench b;
    b.platform.sysctl.remove("hw.cputype");
    b.platform.sysctl.set("hw.optional.arm64", std::int32_t{2});
    EXPECT_EQ(b.info().architecture, SystemInfo::Architecture::unknown);
    b.platform.sysctl.set("hw.cputype", std::int32_t{0});
    EXPECT_EQ(b.info().architecture, SystemInfo::Architecture::intel);
    b.platform.sysctl.set("hw.optional.arm64", std::int32_t{1});
    EXPECT_EQ(b.info().architecture, SystemInfo::Architecture::appleSilicon);
}

TEST(SystemInfo, architectures_are_written_as_their_cases) {
    EXPECT_EQ(name(SystemInfo::Architecture::appleSilicon), "appleSilicon");
    EXPECT_EQ(name(SystemInfo::Architecture::intel), "intel");
    EXPECT_EQ(name(SystemInfo::Architecture::unknown), "unknown");
}

TEST(SystemInfo, without_levels_all_processors_are_performance_ones) {
    InfoBench b(MacShape::withoutLevels(8));
    b.platform.sysctl.set("hw.cpufrequency_max", std::int64_t{2'400'000'000});
    const auto info = b.info();
    EXPECT_EQ(info.pCoreCount, 8);
    EXPECT_EQ(info.eCoreCount, 0);
    EXPECT_EQ(info.totalCores, 8);
    EXPECT_EQ(info.pClusterMaxMHz, 2400);
    EXPECT_EQ(info.eClusterMaxMHz, std::nullopt);
}

TEST(SystemInfo, without_efficiency_cores_their_table_does_not_count) {
    MacShape shape = MacShape::singleLevel(8);
    shape.efficiencyStepsMHz = {600, 2064};
    const auto info = InfoBench(shape).info();
    EXPECT_EQ(info.pClusterMaxMHz, 3204);
    EXPECT_EQ(info.eClusterMaxMHz, std::nullopt);
}

TEST(SystemInfo, without_tables_the_kernel_tells_the_top_clocks) {
    MacShape shape = MacShape::standard();
    shape.performanceStepsMHz.clear();
    shape.efficiencyStepsMHz.clear();
    shape.performanceMaxHz = 3'500'000'000;
    shape.efficiencyMaxHz = 2'000'000'000;
    const auto info = InfoBench(shape).info();
    EXPECT_EQ(info.pClusterMaxMHz, 3500);
    EXPECT_EQ(info.eClusterMaxMHz, 2000);
}

TEST(SystemInfo, a_cluster_without_a_table_has_the_kernels_top_clock_beside_the_others_table) {
    MacShape shape = MacShape::standard();
    shape.performanceStepsMHz.clear();
    shape.performanceMaxHz = 3'500'000'000;
    const auto info = InfoBench(shape).info();
    EXPECT_EQ(info.pClusterMaxMHz, 3500);
    EXPECT_EQ(info.eClusterMaxMHz, 2064);
}

TEST(SystemInfo, the_memorys_speed_is_its_transfers_in_millions) {
    InfoBench b;
    for (const auto& [raw, expected] : {std::pair{3'200'000'000U, 3200}, std::pair{999'999U, 0},
                                        std::pair{4'294'967'295U, 4294}}) {
        b.setMemory("dram-speed", encodeDeviceTreeNumber(raw));
        EXPECT_EQ(b.info().ramSpeedMTps, expected);
    }
}

TEST(SystemInfo, a_speed_that_is_too_short_is_absent_and_the_type_is_not) {
    InfoBench b;
    b.setMemory("dram-speed", Data(3, std::byte{1}));
    EXPECT_EQ(b.info().ramSpeedMTps, std::nullopt);
    EXPECT_EQ(b.info().ramType, "LPDDR5");
    b.setMemory("dram-speed", 3'200'000'000.0);
    EXPECT_EQ(b.info().ramSpeedMTps, std::nullopt);
    b.setMemory("dram-speed", Data(8, std::byte{0}));
    EXPECT_EQ(b.info().ramSpeedMTps, 0);
}

TEST(SystemInfo, the_memorys_type_is_text_without_zero_bytes_around_it) {
    InfoBench b;
    const auto typeOf = [&b](std::string_view bytes) {
        b.setMemory("dram-type", toData(bytes));
        return b.info().ramType;
    };
    EXPECT_EQ(typeOf({"DDR4\0\0", 6}), "DDR4");
    EXPECT_EQ(typeOf({"\0DDR4", 5}), "DDR4");
    EXPECT_EQ(typeOf({"\0\0", 2}), std::nullopt);
    EXPECT_EQ(typeOf(""), std::nullopt);
    EXPECT_EQ(typeOf("DDR\xff"), std::nullopt);
    b.setMemory("dram-type", "DDR4");
    EXPECT_EQ(b.info().ramType, std::nullopt);
}

TEST(SystemInfo, the_graphics_are_the_first_that_keep_statistics) {
    InfoBench b;
    const auto second = b.mac.addAccelerator();
    b.mac.registry.set(second, "model", toData("Second"));
    b.mac.registry.setWhole(b.graphics(), Property(PropertyMap{{"model", toData("First")}}));
    EXPECT_EQ(b.info().gpuName, "Second");
    b.mac.registry.remove(second);
    const auto info = b.info();
    EXPECT_FALSE(info.hasGPU);
    EXPECT_EQ(info.gpuName, std::nullopt);
    EXPECT_EQ(info.gpuCoreCount, std::nullopt);
}

TEST(SystemInfo, the_graphics_are_called_by_model_or_else_by_class) {
    InfoBench b;
    const auto nameBy = [&b](Property model) {
        b.mac.registry.set(b.graphics(), "model", std::move(model));
        return b.info().gpuName;
    };
    EXPECT_EQ(nameBy(toData(std::string_view("M2\0", 3))), "M2");
    EXPECT_EQ(nameBy("a text"), "AGXAccelerator");
    EXPECT_EQ(nameBy(toData("M\xff")), "AGXAccelerator");
    EXPECT_EQ(nameBy(Data()), std::nullopt);
    b.mac.registry.unset(b.graphics(), "model");
    b.mac.registry.unset(b.graphics(), "IOClass");
    b.mac.registry.unset(b.graphics(), "gpu-core-count");
    const auto info = b.info();
    EXPECT_TRUE(info.hasGPU);
    EXPECT_EQ(info.gpuName, std::nullopt);
    EXPECT_EQ(info.gpuCoreCount, std::nullopt);
    EXPECT_TRUE(b.log.contains("gpu=— "));
}

TEST(SystemInfo, a_battery_is_there_by_its_service_whatever_it_tells) {
    InfoBench b;
    for (const auto node : b.mac.registry.ofClass("AppleSmartBattery")) b.mac.registry.remove(node);
    EXPECT_FALSE(b.info().hasBattery);
    const auto battery = b.mac.registry.add(b.mac.registry.root(planes::service),
                                            "AppleSmartBattery", "AppleSmartBattery");
    EXPECT_TRUE(b.info().hasBattery);
    EXPECT_EQ(b.info().batteryCycleCount, std::nullopt);
    b.mac.registry.set(battery, "DesignCapacity", "many");
    b.mac.registry.set(battery, "CycleCount", 0);
    EXPECT_EQ(b.info().batteryDesignCapacityMAh, std::nullopt);
    EXPECT_EQ(b.info().batteryCycleCount, 0);
}

TEST(SystemInfo, devices_whose_properties_cannot_be_read_are_there_or_not_by_what_tells_it) {
    for (const auto operation :
         {operations::createCFProperties, operations::createCFPropertiesNull}) {
        InfoBench b(MacShape::laptop());
        ASSERT_TRUE(b.info().hasGPU && b.info().batteryCycleCount) << operation;
        b.failures.failAlways(operation);
        const auto info = b.info();
        EXPECT_FALSE(info.hasGPU) << operation;
        EXPECT_TRUE(info.hasBattery) << operation;
        EXPECT_EQ(info.batteryDesignCapacityMAh, std::nullopt) << operation;
        EXPECT_EQ(info.batteryCycleCount, std::nullopt) << operation;
        EXPECT_EQ(b.platform.outstanding(), 0U) << operation;
    }
}

TEST(SystemInfo, the_family_is_what_the_machine_is_sold_as) {
    InfoBench b;
    const auto familyBy = [&b](std::string_view product) {
        b.setProduct(product);
        return b.info().modelFamily;
    };
    EXPECT_EQ(familyBy({" MacBook Air \n\0\0", 16}), "MacBook Air");
    EXPECT_EQ(familyBy("Mac mini\xc3\xa9"), "Mac mini\xc3\xa9");
    for (const std::string_view none :
         {std::string_view(""), std::string_view("\0", 1), std::string_view(" \n\0", 3),
          std::string_view("\xff"), std::string_view("\xed\xa0\x80"), std::string_view("\xc3")})
        EXPECT_EQ(familyBy(none), "Mac") << none;
    b.mac.registry.set(b.mac.registry.at("IODeviceTree:/product"), "product-name", "Mac mini");
    EXPECT_EQ(b.info().modelFamily, "Mac") << "text instead of bytes";
}

TEST(SystemInfo, a_family_is_told_by_the_first_beginning_that_fits) {
    for (const auto& [identifier, family] :
         {std::pair{"MacBookAir10,1", "MacBook Air"}, std::pair{"MacBookPro18,1", "MacBook Pro"},
          std::pair{"MacBook10,1", "MacBook"}, std::pair{"Macmini9,1", "Mac mini"},
          std::pair{"MacStudio1,1", "Mac Studio"}, std::pair{"iMac21,1", "iMac"},
          std::pair{"MacPro7,1", "Mac Pro"}, std::pair{"Mac14,2", "Mac"},
          std::pair{"Unknown", "Mac"}, std::pair{"", "Mac"}, std::pair{"macmini", "Mac"}})
        EXPECT_EQ(SystemInfo::modelFamilyFor(identifier), family) << identifier;
}

/// An SMC with the keys that a test adds and no others.
struct FanCountBench : TestBench {
    FanCountBench() { mac.smc.clear(); }
    void addCount(std::uint8_t fans) {
        mac.smc.add("FNum", {.type = "ui8 ", .value = encodeSMCUnsigned8(fans)});
    }
    void addFans(int count) {
        for (int i = 0; i < count; ++i)
            mac.smc.add("F" + std::to_string(i) + "Ac", {.value = encodeSMCFloat(1200)});
    }
    [[nodiscard]] std::int64_t count() { return FanCountReader(platform.smc).count(); }
};

TEST(FanCount, is_what_the_smc_says) {
    FanCountBench b;
    b.addCount(3);
    EXPECT_EQ(b.count(), 3);
}

TEST(FanCount, of_zero_is_not_doubted) {
    FanCountBench b;
    b.addCount(0);
    b.addFans(2);
    EXPECT_EQ(b.count(), 0);
    EXPECT_EQ(b.platform.calls(operations::connectCallStructMethod), 1u);
}

TEST(FanCount, that_is_not_said_is_that_of_the_fans_that_answer) {
    FanCountBench b;
    b.addFans(2);
    EXPECT_EQ(b.count(), 2);
    b.addCount(9);
    b.mac.smc.change("FNum", [](auto& key) { key.failsEvery = 1; });
    EXPECT_EQ(b.count(), 2);
}

TEST(FanCount, ends_at_the_first_fan_that_does_not_answer_and_at_ten) {
    FanCountBench b;
    b.addFans(10);
    b.mac.smc.add("F10A", {.value = encodeSMCFloat(1200)});
    EXPECT_EQ(b.count(), 10);
    b.mac.smc.change("F4Ac", [](auto& key) { key.failsEvery = 1; });
    EXPECT_EQ(b.count(), 4);
    b.mac.smc.clear();
    EXPECT_EQ(b.count(), 0);
}

TEST(FanCount, opens_and_closes_a_connection_for_each_read) {
    FanCountBench b;
    b.addFans(2);
    const auto opened = b.platform.calls(operations::serviceOpen);
    EXPECT_EQ(b.count(), 2);
    EXPECT_EQ(b.platform.calls(operations::serviceOpen), opened + 4);
    EXPECT_EQ(b.platform.instruments.handles.outstanding(handles::smcConnection), 0u);
}

TEST(FanCount, is_zero_without_an_smc_or_one_that_opens) {
    FanCountBench b;
    b.addCount(2);
    for (const auto operation : {operations::serviceOpen, operations::serviceOpenNull}) {
        b.failures.failAlways(operation);
        EXPECT_EQ(b.count(), 0) << operation;
        b.failures.healAll();
    }
    b.failures.failAlways(operations::serviceMatching);
    EXPECT_EQ(b.count(), 0);
    b.failures.healAll();
    b.mac.smc.services.clear();
    EXPECT_EQ(b.count(), 0);
}

TEST(FanCount, needs_a_reply_that_holds_a_value) {
    for (const int filled : {0, 47, 48}) {
        FanCountBench b;
        b.addCount(2);
        b.failures.failAlways(operations::connectCallStructMethodOutputSize, filled);
        EXPECT_EQ(b.count(), 0) << filled;
    }
    FanCountBench b;
    b.addCount(2);
    for (const int filled : {49, 80, 5000}) {
        b.failures.failNext(operations::connectCallStructMethodOutputSize, 1, filled);
        EXPECT_EQ(b.count(), 2) << filled;
    }
}

}  // namespace
}  // namespace vtx
