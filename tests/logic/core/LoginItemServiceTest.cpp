// SPDX-License-Identifier: MIT
#include "core/LoginItemService.h"

#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

struct LoginBench : TestBench {
    LoginItemService service{platform.appService};
};

TEST(LoginItemService, is_enabled_only_where_the_system_says_so) {
    TestBench bench;
    for (const std::int64_t status : {0, 1, 2, 3, -1, 99}) {
        bench.platform.appService.setStatus(status);
        EXPECT_EQ(*LoginItemService(bench.platform.appService).isEnabled, status == 1) << status;
    }
}

TEST(LoginItemService, registers_and_unregisters) {
    LoginBench bench;
    bench.service.setEnabled(true);
    EXPECT_TRUE(*bench.service.isEnabled);
    bench.service.setEnabled(false);
    EXPECT_FALSE(*bench.service.isEnabled);
    EXPECT_EQ(bench.platform.calls(operations::appServiceRegister), 1U);
    EXPECT_EQ(bench.platform.calls(operations::appServiceUnregister), 1U);
}

TEST(LoginItemService, a_failure_is_kept_in_words_and_the_next_success_clears_it) {
    LoginBench bench;
    bench.failures.failNext(operations::appServiceRegister);
    bench.service.setEnabled(true);
    EXPECT_FALSE(*bench.service.isEnabled);
    ASSERT_TRUE(*bench.service.lastError);
    EXPECT_EQ(bench.log.lines().back().message,
              "SMAppService toggle failed: " + **bench.service.lastError);
    bench.service.setEnabled(true);
    EXPECT_TRUE(*bench.service.isEnabled);
    EXPECT_FALSE(*bench.service.lastError);
}

TEST(LoginItemService, after_a_failure_it_says_what_is_so_though_that_was_changed_elsewhere) {
    LoginBench bench;
    bench.platform.appService.setStatus(AppService::enabledStatus);
    bench.failures.failNext(operations::appServiceUnregister);
    bench.service.setEnabled(false);
    EXPECT_TRUE(*bench.service.isEnabled);
}

TEST(LoginItemService, a_change_made_elsewhere_is_told_when_it_is_asked_for_again) {
    LoginBench bench;
    int told = 0;
    const auto watch = bench.service.isEnabled.subscribe([&](bool) { ++told; });
    bench.service.refresh();
    EXPECT_EQ(told, 1) << "nothing has changed";
    bench.platform.appService.setStatus(AppService::enabledStatus);
    bench.service.refresh();
    EXPECT_TRUE(*bench.service.isEnabled);
    EXPECT_EQ(told, 2);
}

TEST(UpdaterService, the_updater_begins_with_the_first_use_and_only_then) {
    AppBench bench;
    EXPECT_EQ(bench.platform.softwareUpdater.starts, 0);
    UpdaterService::shared();
    UpdaterService::shared();
    EXPECT_EQ(bench.platform.softwareUpdater.starts, 1);
}

TEST(UpdaterService, while_it_looks_it_is_not_asked_again) {
    AppBench bench;
    auto& updater = bench.platform.softwareUpdater;
    auto& service = UpdaterService::shared();
    updater.isHolding = true;
    int answers = 0;
    for (int i = 0; i < 2; ++i) service.checkForUpdates([&](const UpdateAnswer&) { ++answers; });
    EXPECT_TRUE(*service.isChecking);
    updater.release();
    EXPECT_FALSE(*service.isChecking);
    EXPECT_EQ(answers, 1);
    EXPECT_EQ(updater.checks, 1);
}

TEST(UpdaterService, an_answer_after_its_end_harms_nobody) {
    AppBench bench;
    auto& updater = bench.platform.softwareUpdater;
    updater.isHolding = true;
    int answers = 0;
    {
        UpdaterService service(updater);
        service.checkForUpdates([&](const UpdateAnswer&) { ++answers; });
    }
    updater.release();
    EXPECT_EQ(answers, 1);
}

}  // namespace
}  // namespace vtx
