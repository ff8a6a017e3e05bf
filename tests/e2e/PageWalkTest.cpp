// SPDX-License-Identifier: MIT
// Every page of the popover as those meet it who have the keyboard alone, or who have it read out.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>

#include "support/PageTest.h"

namespace vtx::e2e {
namespace {

struct Machine {
    const char* name;
    const char* program;
    const char* application;

    friend void PrintTo(const Machine& machine, std::ostream* out) { *out << machine.name; }
};

class PageWalkE2E : public PageTest, public testing::WithParamInterface<Machine> {
protected:
    void openEverySection() {
        std::ofstream(std::filesystem::path(desktop.folder().sub("config/vantrix")) /
                      "defaults.json")
            << R"({"displayPreferences.v3": )"
               R"("{\"showDiskIO\":true,\"showFan\":true,\"alertDiskEnabled\":true,)"
               R"(\"hogDetectorEnabled\":true,\"colorCPU\":\"#336699\"}"})";
        ASSERT_NO_FATAL_FAILURE(start(GetParam().program, GetParam().application));
        ASSERT_NO_FATAL_FAILURE(open());
    }
};

/// One stop of Tab stands for a group, within which the arrows lead. Every way ends on the bar.
bool isReached(const Accessible& control, const std::vector<Accessible>& way) {
    const auto isOnIt = [&way](const Accessible& one) {
        return std::ranges::find(way, one) != way.end();
    };
    const auto holdsAStop = [&isOnIt](const Accessible& group) {
        return group.role() == "page tab list" || isOnIt(group) ||
               std::ranges::any_of(group.children(), isOnIt);
    };
    const auto group = control.parent();
    return holdsAStop(control) || (group && holdsAStop(*group));
}

/// Those that say something besides their name.
const std::set<std::string> valued{"list item", "progress bar",  "slider",
                                   "combo box", "color chooser", "chart"};
const std::set<std::string> named{"push button", "check box", "radio button",
                                  "page tab",    "text",      "image"};

TEST_P(PageWalkE2E, tab_alone_reaches_every_control_of_every_page_in_view) {
    ASSERT_NO_FATAL_FAILURE(openEverySection());
    const Place window = popover()->place();
    const auto offered = sections();
    ASSERT_GE(offered.size(), 8U);
    for (const std::string& section : offered) {
        SCOPED_TRACE(section);
        ASSERT_NO_FATAL_FAILURE(choose(section));
        const auto way = wayOfTab([&window](const Accessible& stop) {
            EXPECT_FALSE(stop.name().empty()) << wordsOf(stop) << " has no name";
            // A row follows its process to wherever the order puts it.
            const int middle = stop.place().middleY();
            const bool isInView = stop.role() == "list item" ||
                                  (middle > window.y && middle < window.y + window.height);
            EXPECT_TRUE(isInView) << wordsOf(stop) << " is out of view";
        });
        for (const Accessible& one : everything()) {
            if (!one.isFocusable() || !one.isEnabled()) continue;
            EXPECT_TRUE(isReached(one, way)) << wordsOf(one) << " is not reached";
        }
        EXPECT_TRUE(std::ranges::any_of(every("page tab"), [](const Accessible& tab) {
            return tab.isFocused();
        })) << "the way does not lead back to the bar";
    }
}

TEST_P(PageWalkE2E, every_control_and_figure_of_every_page_is_told_by_name_and_value) {
    ASSERT_NO_FATAL_FAILURE(openEverySection());
    for (const std::string& section : sections()) {
        SCOPED_TRACE(section);
        ASSERT_NO_FATAL_FAILURE(choose(section));
        std::size_t told = 0;
        for (const Accessible& one : everything()) {
            const std::string role = one.role();
            const bool isValued = valued.contains(role);
            if (!isValued && !named.contains(role)) continue;
            ++told;
            EXPECT_FALSE(one.name().empty()) << wordsOf(one) << " has no name";
            const bool isSaid = !isValued || one.isFocusable() || !one.description().empty();
            EXPECT_TRUE(isSaid) << wordsOf(one) << " has no value";
        }
        EXPECT_GT(told, sections().size()) << "nothing but the bar";
    }
}

INSTANTIATE_TEST_SUITE_P(Programs, PageWalkE2E,
                         testing::Values(Machine{"real", VANTRIX_PROGRAM, "vantrix"},
                                         Machine{"simulated", VANTRIX_SIMULATED_PROGRAM,
                                                 "vantrix-simulated"}),
                         [](const auto& machine) { return machine.param.name; });

}  // namespace
}  // namespace vtx::e2e
