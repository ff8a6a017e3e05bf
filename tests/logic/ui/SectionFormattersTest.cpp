// SPDX-License-Identifier: MIT
#include "ui/models/SectionFormatters.h"

#include <gtest/gtest.h>

#include <limits>

namespace vtx {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double mib = 1048576.0;
constexpr double gib = 1073741824.0;
constexpr std::uint64_t mebibyte = std::uint64_t{1} << 20;
constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30;
constexpr std::uint64_t tebibyte = std::uint64_t{1} << 40;

template <class T>
using Table = std::vector<std::pair<T, const char*>>;

TEST(SectionFormatters, clocks_are_whole_megahertz_below_1000_and_gigahertz_from_there_on) {
    const Table<std::optional<double>> cases{
        {std::nullopt, "—"}, {0.0, "—"},           {-5.0, "—"},         {nan, "—"},
        {infinity, "—"},     {0.4, "0 MHz"},       {600.0, "600 MHz"},  {998.5, "999 MHz"},
        {999.6, "1000 MHz"}, {1000.0, "1.00 GHz"}, {3228.0, "3.23 GHz"}};
    for (const auto& [mhz, text] : cases) EXPECT_EQ(formatFreq(mhz), text) << mhz.value_or(0);
}

TEST(SectionFormatters, what_disks_move_is_nothing_or_kilobytes_or_megabytes) {
    const Table<double> cases{{0.0, "0 B/s"},
                              {-1.0, "0 B/s"},
                              {nan, "—"},
                              {infinity, "—"},
                              {1.0, "0 KB/s"},
                              {1024.0, "1 KB/s"},
                              {421888.0, "412 KB/s"},
                              {mib - 1, "1024 KB/s"},
                              {mib, "1.0 MB/s"},
                              {38.4 * mib, "38.4 MB/s"},
                              {5 * gib, "5120.0 MB/s"}};
    for (const auto& [rate, text] : cases) EXPECT_EQ(formatThroughput(rate), text) << rate;
}

TEST(SectionFormatters, what_drives_moved_is_megabytes_or_gigabytes) {
    const Table<std::uint64_t> cases{{0, "0 MB"},
                                     {846 * mebibyte, "846 MB"},
                                     {gibibyte - 1, "1024 MB"},
                                     {gibibyte, "1.0 GB"},
                                     {2 * tebibyte, "2048.0 GB"}};
    for (const auto& [bytes, text] : cases) EXPECT_EQ(formatDiskBytes(bytes), text) << bytes;
}

TEST(SectionFormatters, operations_are_whole_and_unknown_ones_a_dash) {
    const Table<std::optional<double>> cases{{std::nullopt, "— IOPS"},
                                             {nan, "— IOPS"},
                                             {0.0, "0 IOPS"},
                                             {0.5, "1 IOPS"},
                                             {611.6, "612 IOPS"}};
    for (const auto& [rate, text] : cases) EXPECT_EQ(formatIOPS(rate), text) << rate.value_or(-1);
}

TEST(SectionFormatters, what_the_network_moves_has_four_units) {
    const Table<std::optional<double>> cases{{std::nullopt, "—"},
                                             {nan, "—"},
                                             {infinity, "—"},
                                             {0.0, "0 B/s"},
                                             {0.5, "1 B/s"},
                                             {1023.0, "1023 B/s"},
                                             {1024.0, "1 KB/s"},
                                             {412 * 1024.0, "412 KB/s"},
                                             {mib, "1.0 MB/s"},
                                             {8.4 * mib, "8.4 MB/s"},
                                             {gib, "1.00 GB/s"},
                                             {1.25 * gib, "1.25 GB/s"},
                                             {4096 * gib, "4096.00 GB/s"}};
    for (const auto& [rate, text] : cases) EXPECT_EQ(formatRate(rate), text) << rate.value_or(-1);
}

TEST(SectionFormatters, what_the_network_moved_has_four_units) {
    const Table<std::uint64_t> cases{{0, "0 KB"},
                                     {511, "0 KB"},
                                     {1024, "1 KB"},
                                     {mebibyte, "1.0 MB"},
                                     {gibibyte - 1, "1024.0 MB"},
                                     {gibibyte, "1.00 GB"},
                                     {tebibyte, "1.00 TB"},
                                     {std::numeric_limits<std::uint64_t>::max(), "16777216.00 TB"}};
    for (const auto& [bytes, text] : cases) EXPECT_EQ(formatNetworkBytes(bytes), text) << bytes;
}

TEST(SectionFormatters, memory_is_megabytes_below_a_gigabyte) {
    const Table<std::optional<std::uint64_t>> cases{
        {std::nullopt, "—"},         {0, "0 MB"},
        {mebibyte / 2, "1 MB"},      {640 * mebibyte, "640 MB"},
        {gibibyte - 1, "1024 MB"},   {gibibyte, "1.0 GB"},
        {3 * gibibyte / 2, "1.5 GB"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(formatGBCompact(bytes), text);
        if (!bytes) continue;
        EXPECT_EQ(formatMB(*bytes), text);
    }
    EXPECT_EQ(formatGB(640 * mebibyte), "0.6 GB");
}

TEST(SectionFormatters, a_difference_of_memory_keeps_its_sign) {
    const auto gigabyte = static_cast<std::int64_t>(gibibyte);
    const Table<std::int64_t> cases{{0, "0 MB"},
                                    {gigabyte, "1.0 GB"},
                                    {-gigabyte, "-1.0 GB"},
                                    {-gigabyte / 4, "-256 MB"},
                                    {std::numeric_limits<std::int64_t>::min(), "-8589934592.0 GB"}};
    for (const auto& [bytes, text] : cases) EXPECT_EQ(formatMBSigned(bytes), text) << bytes;
}

TEST(SectionFormatters, installed_memory_is_whole_gigabytes_and_terabytes_from_1024_on) {
    const Table<std::uint64_t> cases{{32 * gibibyte, "32 GB"},
                                     {33'285'996'544, "31 GB"},
                                     {1023 * gibibyte, "1023 GB"},
                                     {1024 * gibibyte, "1.0 TB"},
                                     {1536 * gibibyte, "1.5 TB"}};
    for (const auto& [bytes, text] : cases) EXPECT_EQ(formatInstalledBytes(bytes), text) << bytes;
}

TEST(SectionFormatters, spans_name_hours_only_where_there_are_some) {
    const Table<std::int64_t> cases{{0, "0 min"},       {59, "59 min"},      {60, "1 h"},
                                    {61, "1 h 1 min"},  {119, "1 h 59 min"}, {120, "2 h"},
                                    {252, "4 h 12 min"}};
    for (const auto& [minutes, text] : cases) EXPECT_EQ(formatMinutes(minutes), text);
}

TEST(SectionFormatters, whole_numbers_carry_their_unit_and_unknown_ones_are_a_dash) {
    EXPECT_EQ(formatWhole(7913, "mAh"), "7913 mAh");
    EXPECT_EQ(formatWhole(-1284, "mA"), "-1284 mA");
    EXPECT_EQ(formatWhole(184, ""), "184");
    EXPECT_EQ(formatWhole(std::nullopt, "mAh"), "—");
    EXPECT_EQ(formatCores(8, 4), "8 P · 4 E");
}

}  // namespace
}  // namespace vtx
