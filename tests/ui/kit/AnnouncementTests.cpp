// SPDX-License-Identifier: MIT
// What a screen reader is told of lists and choices that change while it listens.
#include <gtest/gtest.h>

#include "ui/kit/Figures.h"
#include "ui/kit/KeyValueRows.h"
#include "ui/kit/PerCoreBars.h"
#include "ui/kit/SegmentedControl.h"
#include "ui/support/Heard.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

using test::Heard;

PerCoreContent cores(std::initializer_list<double> loads) {
    PerCoreContent content;
    content.title = "Performance";
    for (const double load : loads)
        content.cores.push_back(
            {QString::number(content.cores.size()), load, QString::number(load)});
    return content;
}

TEST(Announcement, a_list_of_another_length_is_told_once_and_as_a_whole) {
    Figures figures;
    KeyValueRows rows(nullptr);
    PerCoreBars bars;
    figures.setFigures({{.label = "Load", .text = "1 %"}});
    rows.setRows({{"Model", "one"}});
    bars.setContent(cores({0.1}));
    const Heard heard;
    figures.setFigures({{.label = "Load", .text = "2 %"}, {.label = "Clock", .text = "3 GHz"}});
    EXPECT_EQ(Heard::of(QAccessible::ObjectReorder).size(), 1U);
    rows.setRows({});
    EXPECT_EQ(Heard::of(QAccessible::ObjectReorder).size(), 1U);
    bars.setContent(cores({0.1, 0.2}));
    EXPECT_EQ(Heard::of(QAccessible::ObjectReorder).size(), 1U);
}

TEST(Announcement, of_a_list_of_the_same_length_only_what_differs_is_told) {
    Figures figures;
    KeyValueRows rows(nullptr);
    PerCoreBars bars;
    figures.setFigures({{.label = "Load", .text = "1 %"}, {.label = "Clock", .text = "3 GHz"}});
    rows.setRows({{"Model", "one"}, {"Cores", "8"}});
    bars.setContent(cores({0.1, 0.2}));
    const Heard heard;
    const auto namesTold = [] {
        std::vector<QString> names;
        for (const auto& event : Heard::of(QAccessible::DescriptionChanged))
            names.push_back(event.name);
        return names;
    };
    figures.setFigures({{.label = "Load", .text = "2 %"}, {.label = "Clock", .text = "3 GHz"}});
    EXPECT_EQ(namesTold(), std::vector<QString>{"Load"});
    rows.setRows({{"Model", "one"}, {"Cores", "9"}});
    EXPECT_EQ(namesTold(), std::vector<QString>{"Cores"});
    bars.setContent(cores({0.1, 0.3}));
    EXPECT_EQ(namesTold(), std::vector<QString>{"1"});
    bars.setContent(cores({0.1, 0.3}));
    EXPECT_TRUE(namesTold().empty());
}

TEST(Announcement, nobody_is_told_while_nobody_listens) {
    Figures figures;
    figures.setFigures({{.label = "Load", .text = "1 %"}});
    const Heard heard;
    QAccessible::setActive(false);
    figures.setFigures({{.label = "Load", .text = "2 %"}});
    figures.setFigures({});
    EXPECT_TRUE(Heard::of(QAccessible::DescriptionChanged).empty());
}

TEST(Announcement, a_choice_is_told_with_the_one_that_it_replaces) {
    SegmentedControl control;
    control.setSegments({"60s", "5m", "15m"});
    control.setCurrent(0);
    control.setMotion(Motion::reduced);
    const Heard heard;
    control.pressPart(2);
    const auto told = Heard::of(QAccessible::StateChanged);
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0].name, "60s");
    EXPECT_FALSE(told[0].isChecked);
    EXPECT_EQ(told[1].name, "15m");
    EXPECT_TRUE(told[1].isChecked);
}

}  // namespace
}  // namespace vtx
