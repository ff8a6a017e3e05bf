// SPDX-License-Identifier: MIT
#include "telemetry/SysctlReader.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <map>

#include "base/Data.h"
#include "platform/Sysctl.h"

namespace vtx {
namespace {

// Named values of any bytes, with the errors of the real thing.
class FakeSysctl final : public Sysctl {
public:
    std::map<std::string, Data, std::less<>> values;
    bool failsSecondRead = false;

    int sysctlbyname(std::string_view name, std::span<std::byte> into, std::size_t& size) override {
        const auto found = values.find(name);
        if (found == values.end()) return ENOENT;
        if (failsSecondRead && !into.empty()) return EIO;
        const Data& value = found->second;
        if (!into.empty() && into.size() < value.size()) return ENOMEM;
        if (!into.empty()) std::memcpy(into.data(), value.data(), value.size());
        size = value.size();
        return 0;
    }

    template <class Number>
    void set(const std::string& name, Number number) {
        values[name].resize(sizeof number);
        std::memcpy(values[name].data(), &number, sizeof number);
    }
};

TEST(SysctlReader, numbers_are_read_in_their_width) {
    FakeSysctl sysctl;
    sysctl.set<std::int32_t>("a", -5);
    sysctl.set<std::int64_t>("b", 1'000'000'000'000);
    sysctl.set<std::uint64_t>("c", ~std::uint64_t{0});
    const SysctlReader reader(sysctl);
    EXPECT_EQ(reader.int32("a"), -5);
    EXPECT_EQ(reader.int64("b"), 1'000'000'000'000);
    EXPECT_EQ(reader.int64("c"), -1);
    EXPECT_EQ(reader.uint64("c"), ~std::uint64_t{0});
}

TEST(SysctlReader, an_unknown_name_is_absent) {
    FakeSysctl sysctl;
    const SysctlReader reader(sysctl);
    EXPECT_EQ(reader.int32("none"), std::nullopt);
    EXPECT_EQ(reader.int64("none"), std::nullopt);
    EXPECT_EQ(reader.uint64("none"), std::nullopt);
    EXPECT_EQ(reader.string("none"), std::nullopt);
}

TEST(SysctlReader, a_number_too_wide_for_its_buffer_is_absent) {
    FakeSysctl sysctl;
    sysctl.set<std::int64_t>("wide", 1);
    EXPECT_EQ(SysctlReader(sysctl).int32("wide"), std::nullopt);
}

TEST(SysctlReader, a_text_ends_at_its_first_zero_byte) {
    FakeSysctl sysctl;
    sysctl.values["text"] = toData(std::string_view("M2 Pro\0rest\0", 12));
    sysctl.values["unterminated"] = toData("abc");
    EXPECT_EQ(SysctlReader(sysctl).string("text"), "M2 Pro");
    EXPECT_EQ(SysctlReader(sysctl).string("unterminated"), "abc");
}

TEST(SysctlReader, a_text_without_any_byte_is_absent) {
    FakeSysctl sysctl;
    sysctl.values["empty"] = {};
    EXPECT_EQ(SysctlReader(sysctl).string("empty"), std::nullopt);
}

TEST(SysctlReader, a_text_whose_second_read_fails_is_absent) {
    FakeSysctl sysctl;
    sysctl.values["text"] = toData("abc");
    sysctl.failsSecondRead = true;
    EXPECT_EQ(SysctlReader(sysctl).string("text"), std::nullopt);
}

}  // namespace
}  // namespace vtx
