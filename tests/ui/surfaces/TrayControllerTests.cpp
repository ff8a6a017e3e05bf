// SPDX-License-Identifier: MIT
#include "ui/surfaces/TrayController.h"

#include <gtest/gtest.h>

#include "ShellFakes.h"
#include "SurfaceBench.h"
#include "platform/simulated/ManualClock.h"
#include "ui/kit/Theme.h"
#include "ui/shell/StripStatusItem.h"
#include "ui/support/FixedTheme.h"
#include "ui/surfaces/StatusItemController.h"
#include "ui/surfaces/TrayPicture.h"

namespace vtx {
namespace {

class FakeTray final : public TrayHost {
public:
    [[nodiscard]] bool isHosted() const override { return hosted; }
    void setPictures(const std::vector<QImage>& pictures) override {
        sent.push_back(pictures.front());
    }
    void setToolTip(const QString& text) override { words.push_back(text); }
    void setHosted(bool now) {
        hosted = now;
        if (onHostedChange) onHostedChange();
    }

    bool hosted = true;
    std::vector<QImage> sent;
    std::vector<QString> words;
};

struct TrayControllerTest : testing::Test {
    TrayControllerTest() { bench.readCPU(0.34); }

    test::SurfaceBench bench;
    FakeTray tray;
    ManualClock clock;
};

TEST_F(TrayControllerTest, shows_the_critical_metric_at_once) {
    const TrayController controller(tray, bench.coordinator, clock);
    ASSERT_EQ(tray.sent.size(), 1U);
    EXPECT_EQ(tray.sent[0], trayPicture({"cpu", "34", {}}, Theme::current().appearance(), 1.0));
    ASSERT_EQ(tray.words.size(), 1U);
    EXPECT_TRUE(tray.words[0].startsWith("CPU 34 percent"));
}

TEST_F(TrayControllerTest, a_new_figure_waits_for_five_seconds_since_the_last) {
    const TrayController controller(tray, bench.coordinator, clock);
    clock.advanceBy(std::chrono::milliseconds(4900));
    bench.readCPU(0.5);
    EXPECT_EQ(tray.sent.size(), 1U);
    clock.advanceBy(std::chrono::milliseconds(200));
    bench.readCPU(0.51);
    EXPECT_EQ(tray.sent.size(), 2U);
}

TEST_F(TrayControllerTest, the_same_picture_is_not_sent_again) {
    const TrayController controller(tray, bench.coordinator, clock);
    for (int second = 0; second < 25; ++second) {
        clock.advanceBy(std::chrono::seconds(1));
        bench.readCPU(0.341);
    }
    EXPECT_EQ(tray.sent.size(), 1U);
    EXPECT_EQ(tray.words.size(), 1U);
}

TEST_F(TrayControllerTest, without_a_tray_nothing_is_followed) {
    tray.hosted = false;
    const TrayController controller(tray, bench.coordinator, clock);
    EXPECT_FALSE(bench.isCPUFollowed());
    EXPECT_TRUE(tray.sent.empty());
    tray.setHosted(true);
    EXPECT_EQ(tray.sent.size(), 1U);
    tray.setHosted(false);
    EXPECT_FALSE(bench.isCPUFollowed());
}

TEST_F(TrayControllerTest, another_appearance_is_another_picture_at_once) {
    test::FixedTheme theme(Appearance::dark);
    const TrayController controller(tray, bench.coordinator, clock);
    theme.set(Appearance::light);
    ASSERT_EQ(tray.sent.size(), 2U);
    EXPECT_NE(tray.sent[0], tray.sent[1]);
}

TEST_F(TrayControllerTest, the_picture_comes_in_the_sizes_that_trays_ask_for) {
    std::vector<int> sizes;
    for (const QImage& picture : trayPictures({"cpu", "100", {}}, Appearance::dark))
        sizes.push_back(picture.width());
    EXPECT_EQ(sizes, (std::vector<int>{22, 33, 44, 66}));
}

TEST_F(TrayControllerTest, the_words_follow_within_half_a_minute_though_the_picture_stays) {
    const TrayController controller(tray, bench.coordinator, clock);
    clock.advanceBy(std::chrono::seconds(29));
    bench.readCPU(0.339);
    EXPECT_EQ(tray.words.size(), 1U);
    clock.advanceBy(std::chrono::seconds(2));
    bench.readCPU(0.3391);
    EXPECT_TRUE(tray.words.back().startsWith("CPU 33 percent"));
    EXPECT_EQ(tray.sent.size(), 1U);
}

/// The item with its tray, as the menu-bar controller meets it.
struct StatusItemWithTrayTest : TrayControllerTest {
    StatusItemWithTrayTest() {
        item.joinTray(tray, clock);
        item.onClick = [this](ButtonEvent event) { clicks.push_back(event); };
    }

    FakeWindowSystem system;
    FakeUserDefaults defaults;
    StatusItemController item{system, std::make_unique<StripStatusItem>(system, defaults),
                              "Vantrix", bench.coordinator};
    std::vector<ButtonEvent> clicks;
};

TEST_F(StatusItemWithTrayTest, a_click_in_the_tray_is_a_click_on_the_item) {
    tray.onClick(StatusItemClick::left, {});
    tray.onClick(StatusItemClick::right, QPoint(50, 5));
    EXPECT_EQ(clicks, (std::vector{ButtonEvent::leftMouseUp, ButtonEvent::rightMouseUp}));
}

TEST_F(StatusItemWithTrayTest, the_click_whose_press_closed_the_popover_does_not_open_it_again) {
    item.popoverClosed();
    clock.advanceBy(std::chrono::milliseconds(150));
    tray.onClick(StatusItemClick::left, {});
    EXPECT_TRUE(clicks.empty());
    tray.onClick(StatusItemClick::left, {});
    EXPECT_EQ(clicks.size(), 1U);
}

TEST_F(StatusItemWithTrayTest, a_click_long_after_the_popover_closed_opens_it) {
    item.popoverClosed();
    clock.advanceBy(std::chrono::seconds(1));
    tray.onClick(StatusItemClick::left, {});
    EXPECT_EQ(clicks.size(), 1U);
}

TEST_F(TrayControllerTest, clicks_are_passed_on) {
    TrayController controller(tray, bench.coordinator, clock);
    QPoint clicked;
    controller.onClick = [&clicked](StatusItemClick, QPoint at) { clicked = at; };
    tray.onClick(StatusItemClick::left, QPoint(7, 8));
    EXPECT_EQ(clicked, QPoint(7, 8));
}

}  // namespace
}  // namespace vtx
