// SPDX-License-Identifier: MIT
#include "base/Job.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <type_traits>

namespace vtx {
namespace {

static_assert(!std::is_copy_constructible_v<Job>);
static_assert(std::is_nothrow_move_constructible_v<Job>);

/// Counts how often it is destroyed while it stands for something.
struct Witness {
    explicit Witness(int& destroyed) : destroyed_(&destroyed) {}
    Witness(Witness&& other) noexcept : destroyed_(std::exchange(other.destroyed_, nullptr)) {}
    Witness(const Witness&) = delete;
    ~Witness() {
        if (destroyed_) ++*destroyed_;
    }
    int* destroyed_;
};

TEST(Job, an_empty_one_is_false_and_one_with_work_is_true) {
    EXPECT_FALSE(Job());
    EXPECT_TRUE(Job([] {}));
}

TEST(Job, it_runs_work_that_can_only_be_moved) {
    int seen = 0;
    Job job([&seen, owned = std::make_unique<int>(5)] { seen = *owned; });
    job();
    EXPECT_EQ(seen, 5);
}

template <std::size_t Padding>
void expectDestroyedOnce() {
    int destroyed = 0;
    int ran = 0;
    {
        std::array<char, Padding> padding{};
        Job first([&ran, padding, witness = Witness(destroyed)] {
            ran += padding[0] == 0 && witness.destroyed_ ? 1 : 0;
        });
        Job second(std::move(first));
        EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move): a moved job is empty
        Job third;
        third = std::move(second);
        EXPECT_EQ(destroyed, 0);
        third();
        EXPECT_EQ(destroyed, 0);
    }
    EXPECT_EQ(ran, 1);
    EXPECT_EQ(destroyed, 1);
}

TEST(Job, small_work_is_moved_along_and_destroyed_once) { expectDestroyedOnce<1>(); }
TEST(Job, large_work_is_moved_along_and_destroyed_once) { expectDestroyedOnce<400>(); }

TEST(Job, work_of_48_bytes_is_kept_inside) {
    const void* captured = nullptr;
    std::array<char, 40> fill{};
    const Job job([&captured, fill] { captured = fill.data(); });
    Job moved(std::move(const_cast<Job&>(job)));
    moved();
    const auto* low = reinterpret_cast<const char*>(&moved);
    const auto* at = static_cast<const char*>(captured);
    EXPECT_TRUE(at >= low && at < low + sizeof(Job));
}

TEST(Job, assigning_another_one_destroys_the_work_before_it) {
    int destroyed = 0;
    Job job([witness = Witness(destroyed)] { (void)witness; });
    job = Job([] {});
    EXPECT_EQ(destroyed, 1);
}

TEST(Job, resetting_destroys_the_work_at_once_and_once) {
    int destroyed = 0;
    Job job([witness = Witness(destroyed)] { (void)witness; });
    job.reset();
    job.reset();
    EXPECT_EQ(destroyed, 1);
    EXPECT_FALSE(job);
}

TEST(Job, one_that_is_moved_to_itself_keeps_its_work) {
    int destroyed = 0;
    int ran = 0;
    {
        Job job([&ran, witness = Witness(destroyed)] { ran += witness.destroyed_ ? 1 : 0; });
        Job& same = job;
        job = std::move(same);
        EXPECT_EQ(destroyed, 0);
        ASSERT_TRUE(job);
        job();
    }
    EXPECT_EQ(ran, 1);
    EXPECT_EQ(destroyed, 1);
}

}  // namespace
}  // namespace vtx
