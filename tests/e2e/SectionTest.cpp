// SPDX-License-Identifier: MIT
// The popover's sections, chosen by the keyboard and read through the accessibility bus: the
// machine's own figures held against the test's look at the kernel's files, and a simulated Mac on
// which nothing is missing.
#include <algorithm>
#include <cmath>
#include <fstream>
#include <regex>

#include "support/DesktopTest.h"
#include "support/KernelFigures.h"
#include "support/ProcStat.h"

namespace vtx::e2e {
namespace {

using namespace std::chrono_literals;

constexpr double mib = 1048576.0;
constexpr Span steady{150};

/// "21.4 GB" in bytes, with the part that the text cannot tell; absent where there is none.
struct SpokenBytes {
    double bytes = 0;
    double step = 0;
};
std::optional<SpokenBytes> bytesIn(const std::string& text, const std::string& after = "") {
    static const std::map<std::string, double> units{
        {"B", 1}, {"KB", 1024}, {"MB", mib}, {"GB", 1024 * mib}, {"TB", mib * mib}};
    std::smatch found;
    const std::regex pattern(after + R"(\b(\d+)(\.\d+)? (B|KB|MB|GB|TB)\b)");
    if (!std::regex_search(text, found, pattern)) return std::nullopt;
    const double unit = units.at(found[3]);
    const auto decimals = found[2].matched ? found[2].length() - 1 : 0;
    return SpokenBytes{std::stod(found[1].str() + found[2].str()) * unit,
                       unit * std::pow(10.0, -static_cast<double>(decimals))};
}

/// Whether the text tells a value of a counter between two looks at it.
testing::AssertionResult isBetween(const std::optional<SpokenBytes>& spoken, std::uint64_t before,
                                   std::uint64_t after) {
    if (!spoken) return testing::AssertionFailure() << "no figure is said";
    const bool agrees = spoken->bytes >= static_cast<double>(before) - spoken->step &&
                        spoken->bytes <= static_cast<double>(after) + spoken->step;
    return agrees ? testing::AssertionSuccess()
                  : testing::AssertionFailure() << std::fixed << spoken->bytes << " is not within "
                                                << before << " and " << after;
}

class SectionE2E : public DesktopTest {
protected:
    void openEverySection() {
        // As the user has them who shows the tile of the drives.
        std::ofstream(std::filesystem::path(desktop.folder().sub("config/vantrix")) /
                      "defaults.json")
            << R"({"displayPreferences.v3": "{\"showDiskIO\":true,\"showFan\":true}"})";
        ASSERT_NO_FATAL_FAILURE(startVantrix());
        ASSERT_NO_FATAL_FAILURE(open());
    }
    void open() {
        // It grows once when the first readings are there.
        ASSERT_TRUE(eventually([this] {
            const Place before = stripPlace();
            watchFor(steady, [] {});
            return before.width > 0 && before == stripPlace();
        })) << "the strip does not come to rest";
        user().click(stripPlace());
        ASSERT_TRUE(eventually([this] { return isPopoverOpen(); })) << "it did not open";
        ASSERT_TRUE(eventually([this] {
            const xcb_window_t window = display().clientOfType("UTILITY");
            return window != 0 && display().activeWindow() == window;
        })) << "it has no keyboard";
    }
    /// What the bar offers, in its order.
    [[nodiscard]] std::vector<std::string> sections() {
        std::vector<std::string> names;
        (void)popover()->find([&names](const Accessible& one) {
            if (one.role() == "page tab") names.push_back(one.name());
            return false;
        });
        return names;
    }
    /// By the digit of its place on the bar.
    void choose(const std::string& section) {
        const auto names = sections();
        const auto at = std::ranges::find(names, section);
        ASSERT_NE(at, names.end()) << section << " is not offered";
        user().press(key::digit(static_cast<unsigned>(at - names.begin()) + 1));
        ASSERT_TRUE(eventually([this, &section] {
            const auto tab = popover()->findNamed(section);
            return tab && tab->isSelected();
        })) << section
            << " was not chosen";
    }
    /// What is said of the element of that name; empty while there is none.
    [[nodiscard]] std::string said(const std::string& name, const std::string& role) {
        const auto found = popover()->find(
            [&](const Accessible& one) { return one.role() == role && one.name() == name; });
        return found ? found->description() : "";
    }
    [[nodiscard]] std::vector<Accessible> every(const std::string& role) {
        std::vector<Accessible> found;
        (void)popover()->find([&](const Accessible& one) {
            if (one.role() == role) found.push_back(one);
            return false;
        });
        return found;
    }
};

TEST_F(SectionE2E, the_processors_load_is_what_the_kernel_counted) {
    ASSERT_NO_FATAL_FAILURE(openEverySection());
    ASSERT_NO_FATAL_FAILURE(choose("CPU"));
    LoadRecord load;
    std::vector<std::pair<SteadyTime, int>> texts;
    constexpr auto watched = 6s, interval = 1s;
    const SteadyTime start = std::chrono::steady_clock::now();
    const auto total = popover()->find([](const Accessible& one) {
        return one.name() == "Total" && one.description().find(" %") != std::string::npos;
    });
    ASSERT_TRUE(total);
    watchFor(watched, [&] {
        load.look();
        const int percent = std::stoi(total->description());
        texts.emplace_back(std::chrono::steady_clock::now(), percent);
    });
    const SteadyTime end = std::chrono::steady_clock::now();
    double sum = 0, count = 0;
    for (const auto& [when, percent] : texts) {
        if (when < start + 2 * interval) continue;
        sum += percent;
        ++count;
    }
    // Each text stands for a second and tells of the one before; which part of it, nobody says.
    constexpr double tolerance = 12.0;
    EXPECT_NEAR(sum / count, load.percentBetween(start + interval, end - interval / 2), tolerance);
}

TEST_F(SectionE2E, memory_is_what_the_kernel_says_of_it) {
    ASSERT_NO_FATAL_FAILURE(openEverySection());
    ASSERT_NO_FATAL_FAILURE(choose("RAM"));
    const auto used = [] {
        return kernel::memoryBytes("MemTotal") - kernel::memoryBytes("MemAvailable");
    };
    std::uint64_t least = used(), most = least;
    std::vector<std::optional<SpokenBytes>> spoken;
    watchFor(3s, [&] {
        least = std::min(least, used());
        most = std::max(most, used());
        spoken.push_back(bytesIn(said("used", "label")));
    });
    ASSERT_FALSE(spoken.empty());
    EXPECT_TRUE(isBetween(spoken.back(), least, most));
    const auto total = bytesIn(said("used", "label"), "of ");
    EXPECT_TRUE(isBetween(total, kernel::memoryBytes("MemTotal"), kernel::memoryBytes("MemTotal")));
}

TEST_F(SectionE2E, each_drive_has_moved_what_its_counters_say) {
    ASSERT_NO_FATAL_FAILURE(openEverySection());
    ASSERT_NO_FATAL_FAILURE(choose("Disk"));
    const auto volumes = [this] {
        auto rows = every("list item");
        std::erase_if(rows, [](const Accessible& row) {
            return !bytesIn(row.description(), "Read ").has_value();
        });
        return rows;
    };
    if (!kernel::hasDrive()) GTEST_SKIP() << "no drive is here";
    ASSERT_TRUE(eventually([&] { return !volumes().empty(); })) << "the drive is not listed";
    for (const Accessible& row : volumes()) {
        // A drive without a model is named by its device, which is not said twice.
        const std::string said = row.description();
        const std::string device =
            said.starts_with("Read ") ? row.name() : said.substr(0, said.find_first_of(", "));
        const Moved before = kernel::movedByDisk(device);
        std::string text = row.description();
        constexpr auto twoReadings = 2500ms;
        watchFor(twoReadings, [&] { text = row.description(); });
        const Moved after = kernel::movedByDisk(device);
        EXPECT_TRUE(isBetween(bytesIn(text, "Read "), before.in, after.in)) << text;
        EXPECT_TRUE(isBetween(bytesIn(text, "Write "), before.out, after.out)) << text;
    }
}

TEST_F(SectionE2E, the_active_interfaces_have_moved_what_their_counters_say) {
    ASSERT_NO_FATAL_FAILURE(openEverySection());
    ASSERT_NO_FATAL_FAILURE(choose("Network"));
    ASSERT_TRUE(eventually(
        [this] { return bytesIn(said("Download", "list item"), "Received ").has_value(); }));
    const auto counted = [this] {
        Moved sum;
        for (const auto& [name, moved] : kernel::movedByInterface()) {
            const auto words = said(name, "list item");
            EXPECT_FALSE(words.empty()) << name << " is not listed";
            if (words.find("Active") == std::string::npos) continue;
            sum.in += moved.in;
            sum.out += moved.out;
        }
        return sum;
    };
    const Moved before = counted();
    constexpr auto twoReadings = 2500ms;
    watchFor(twoReadings, [] {});
    const auto received = bytesIn(said("Download", "list item"), "Received ");
    const auto sent = bytesIn(said("Upload", "list item"), "Sent ");
    const Moved after = counted();
    EXPECT_TRUE(isBetween(received, before.in, after.in));
    EXPECT_TRUE(isBetween(sent, before.out, after.out));
}

TEST_F(SectionE2E, on_a_mac_every_section_says_figures) {
    start(VANTRIX_SIMULATED_PROGRAM, "vantrix-simulated");
    ASSERT_NO_FATAL_FAILURE(open());
    for (const std::string& section : sections()) {
        // Not all that these say is a reading.
        if (section == "Processes" || section == "Settings") continue;
        ASSERT_NO_FATAL_FAILURE(choose(section));
        std::string page;
        EXPECT_TRUE(eventually([&] {
            page = popover()->drawing();
            return std::regex_search(page, std::regex(R"(\(.*\d)")) &&
                   page.find("—") == std::string::npos;
        })) << section
            << " says:\n"
            << page;
    }
}

}  // namespace
}  // namespace vtx::e2e
