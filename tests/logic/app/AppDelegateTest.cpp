// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/CoordinatorBench.h"
#include "support/FakeSurfaces.h"

namespace vtx {
namespace {

using testing::ElementsAre;

struct Launched {
    AppBench bench;
    FakeSurfaces surfaces;
    AppDelegate delegate{bench.ports(), bench.executors(), surfaces};
};

TEST(AppDelegate, launch_makes_an_accessory_logs_takes_an_activity_and_then_the_controller) {
    Launched l;
    l.delegate.applicationDidFinishLaunching();
    EXPECT_EQ(l.surfaces.did.front(), "accessory");
    EXPECT_EQ(l.bench.log.lines().front(),
              (SimulatedUnifiedLog::Line{
                  LogLevel::info, "com.vantrix.app", "app",
                  "Vantrix launching (Apple Silicon, macOS Version 15.2 (Build 24C101))"}));
    EXPECT_THAT(l.bench.platform.processInfo.activities(),
                ElementsAre(SimulatedProcessInfo::Activity{0x00EFFFFF, "Live Menu Bar Updates"}));
    ASSERT_NE(l.delegate.menuBarController(), nullptr);
}

TEST(AppDelegate, the_controller_comes_after_the_activity_and_before_the_updater) {
    Launched l;
    std::size_t activities = 0;
    int updaterStarts = -1;
    l.surfaces.atFirst = [&] {
        activities = l.bench.platform.processInfo.activities().size();
        updaterStarts = l.bench.platform.softwareUpdater.starts;
    };
    l.delegate.applicationDidFinishLaunching();
    EXPECT_EQ(activities, 1U);
    EXPECT_EQ(updaterStarts, 0);
}

TEST(AppDelegate, launch_sets_the_updater_going) {
    Launched l;
    EXPECT_EQ(l.bench.platform.softwareUpdater.starts, 0);
    l.delegate.applicationDidFinishLaunching();
    EXPECT_EQ(l.bench.platform.softwareUpdater.starts, 1);
}

TEST(AppDelegate, launch_opens_no_window) {
    Launched l;
    l.delegate.applicationDidFinishLaunching();
    l.bench.advance(seconds(3));
    EXPECT_FALSE(l.surfaces.popover->shown);
    EXPECT_TRUE(l.surfaces.dashboard->shown.empty());
    EXPECT_THAT(l.surfaces.did, ElementsAre("accessory"));
}

TEST(AppDelegate, the_activity_is_ended_exactly_once_at_termination) {
    Launched l;
    l.delegate.applicationDidFinishLaunching();
    l.delegate.applicationWillTerminate();
    EXPECT_TRUE(l.bench.platform.processInfo.activities().empty());
    l.delegate.applicationWillTerminate();
    EXPECT_EQ(l.bench.platform.calls(operations::endActivity), 1U);
    EXPECT_EQ(l.bench.log.lines().back().message, "Vantrix terminating");
}

TEST(AppDelegate, terminating_before_the_launch_was_done_only_logs) {
    Launched l;
    l.delegate.applicationWillTerminate();
    EXPECT_EQ(l.bench.platform.calls(operations::endActivity), 0U);
    EXPECT_THAT(l.bench.log.lines(),
                ElementsAre(SimulatedUnifiedLog::Line{LogLevel::info, "com.vantrix.app", "app",
                                                      "Vantrix terminating"}));
}

}  // namespace
}  // namespace vtx
