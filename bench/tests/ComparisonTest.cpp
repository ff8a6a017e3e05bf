// SPDX-License-Identifier: MIT
#include "comparison/Comparison.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <stdexcept>

#include "comparison/OtherMonitors.h"

namespace vtx::bench {
namespace {

using testing::HasSubstr;
using testing::Not;

Sample sample(double cpu, double wakeUps, double pss, double overBare) {
    return {cpu, wakeUps, pss, pss / 2, overBare};
}

const Budget& budget(const std::vector<Budget>& budgets, std::string_view what) {
    const auto found = std::ranges::find(budgets, what, &Budget::what);
    if (found == budgets.end()) throw std::runtime_error(std::string(what));
    return *found;
}

std::string lineWith(const std::string& text, const std::string& words) {
    const auto at = text.find(words);
    if (at == std::string::npos) return {};
    const auto begin = text.rfind('\n', at) + 1;
    return text.substr(begin, text.find('\n', at) - begin);
}

TEST(Median, is_the_middle_one_whatever_their_order) {
    EXPECT_EQ(median({3, 1, 2}), 2);
    EXPECT_EQ(median({7}), 7);
}

TEST(Median, of_an_even_number_is_between_the_middle_two) {
    EXPECT_EQ(median({4, 1, 3, 100}), 3.5);
}

TEST(Median, of_nothing_is_absent) { EXPECT_EQ(median({}), std::nullopt); }

TEST(Comparison, budgets_take_the_medians_at_the_present_processes) {
    Comparison comparison;
    auto& closed = comparison.row(rowNames::closed).samples;
    closed.present = {sample(0.05, 200, 20, 5), sample(0.09, 300, 30, 9), sample(0.06, 240, 21, 7)};
    closed.more = {sample(9, 9000, 900, 900)};
    comparison.firstStripMs.present = {390, 900, 380};
    const auto budgets = budgetsOf(comparison);
    EXPECT_EQ(budget(budgets, "closed: CPU s/min").measured, 0.06);
    EXPECT_TRUE(budget(budgets, "closed: CPU s/min").isHeld());
    EXPECT_EQ(budget(budgets, "closed: wake-ups/min").measured, 240);
    EXPECT_EQ(budget(budgets, "closed: PSS over the bare window, MiB").measured, 7);
    EXPECT_FALSE(budget(budgets, "closed: PSS over the bare window, MiB").isHeld());
    EXPECT_EQ(budget(budgets, "start to first strip, s").measured, 0.39);
}

TEST(Comparison, a_budget_without_a_measurement_is_neither_held_nor_zero) {
    const Comparison comparison;
    for (const Budget& one : budgetsOf(comparison)) {
        EXPECT_EQ(one.measured, std::nullopt) << one.what;
        EXPECT_FALSE(one.isHeld()) << one.what;
    }
    EXPECT_THAT(markdown(comparison), Not(HasSubstr("| yes")));
}

TEST(Comparison, what_other_benchmarks_found_stands_among_the_budgets) {
    Comparison comparison;
    comparison.figures = {{figureNames::systemPart, 1.31}, {figureNames::hourChart, 1.5}};
    const auto budgets = budgetsOf(comparison);
    EXPECT_FALSE(budget(budgets, "system part of a pass, × kept-open reads").isHeld());
    EXPECT_TRUE(budget(budgets, "a chart of an hour, ms").isHeld());
}

TEST(Comparison, a_program_that_was_measured_at_one_crowd_alone_has_no_figures_at_the_other) {
    Comparison comparison;
    comparison.row("htop").samples.present = {sample(0.5, 62, 4.5, 0)};
    const auto line = lineWith(markdown(comparison), "| htop");
    EXPECT_THAT(line, HasSubstr("0.500"));
    EXPECT_THAT(line, HasSubstr("4.5"));
    EXPECT_EQ(std::ranges::count(line, '0'), 3) << line;  // none stands for what is absent
    EXPECT_THAT(line, HasSubstr("—"));
}

TEST(OtherMonitors, are_called_by_the_version_that_their_authors_gave) {
    EXPECT_EQ(upstreamVersion("2:4.0.2-3"), "4.0.2");
    EXPECT_EQ(upstreamVersion("1.0-rc1-2+deb12u1"), "1.0-rc1");
    EXPECT_EQ(upstreamVersion("3.2"), "3.2");
}

TEST(Comparison, the_first_strip_is_told_of_the_closed_program_alone) {
    Comparison comparison;
    (void)comparison.row(rowNames::closed);
    (void)comparison.row(rowNames::overview);
    comparison.firstStripMs = {{211}, {222}};
    const auto text = markdown(comparison);
    EXPECT_THAT(lineWith(text, rowNames::closed), testing::ContainsRegex("211 .* 222 "));
    EXPECT_THAT(lineWith(text, rowNames::overview), Not(HasSubstr("211")));
}

TEST(Comparison, what_a_program_holds_alone_stands_beside_its_part_of_what_it_shares) {
    Comparison comparison;
    comparison.row(rowNames::closed).samples = {{sample(0, 0, 16.4, 3)}, {sample(0, 0, 17.2, 3)}};
    EXPECT_THAT(lineWith(markdown(comparison), rowNames::closed),
                testing::ContainsRegex("16.4 .* 17.2 .* 8.2 .* 8.6 "));
}

TEST(Comparison, a_row_is_found_again_by_its_name) {
    Comparison comparison;
    comparison.row("top").samples.more.push_back({});
    comparison.row("top").samples.more.push_back({});
    EXPECT_EQ(comparison.rows.size(), 1U);
    ASSERT_TRUE(comparison.find("top"));
    EXPECT_EQ(comparison.find("top")->samples.more.size(), 2U);
    EXPECT_EQ(comparison.find("htop"), nullptr);
}

TEST(Comparison, names_what_was_left_out) {
    Comparison comparison;
    comparison.leftOut = {"conky, which is not installed"};
    EXPECT_THAT(markdown(comparison), HasSubstr("Left out: conky, which is not installed"));
}

}  // namespace
}  // namespace vtx::bench
