// SPDX-License-Identifier: MIT
#include "base/Shared.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

struct Thing {
    explicit Thing(int number, int* gone = nullptr) : value(number), gone_(gone) {}
    Thing(const Thing&) = delete;
    Thing& operator=(const Thing&) = delete;
    ~Thing() {
        if (gone_) ++*gone_;
    }

    int value;

private:
    int* gone_;
};

class SharedTest : public ::testing::Test {
protected:
    ~SharedTest() override { Shared<Thing>::reset(); }
};

using SharedDeathTest = SharedTest;

TEST_F(SharedTest, makes_the_object_at_first_use_and_no_sooner) {
    int made = 0;

    Shared<Thing>::setFactory([&] { return std::make_unique<Thing>(++made); });
    EXPECT_EQ(made, 0);

    EXPECT_EQ(Shared<Thing>::get().value, 1);
    EXPECT_EQ(made, 1);
}

TEST_F(SharedTest, gives_everyone_the_same_object) {
    Shared<Thing>::setFactory([] { return std::make_unique<Thing>(1); });

    EXPECT_EQ(&Shared<Thing>::get(), &Shared<Thing>::get());
}

TEST_F(SharedTest, another_factory_drops_the_object_and_makes_its_own) {
    int gone = 0;
    Shared<Thing>::setFactory([&] { return std::make_unique<Thing>(1, &gone); });
    (void)Shared<Thing>::get();

    Shared<Thing>::setFactory([] { return std::make_unique<Thing>(2); });

    EXPECT_EQ(gone, 1);
    EXPECT_EQ(Shared<Thing>::get().value, 2);
}

TEST_F(SharedTest, a_reset_drops_the_object) {
    int gone = 0;
    Shared<Thing>::setFactory([&] { return std::make_unique<Thing>(1, &gone); });
    (void)Shared<Thing>::get();

    Shared<Thing>::reset();

    EXPECT_EQ(gone, 1);
}

TEST_F(SharedDeathTest, asking_without_a_factory_stops_the_program_and_names_the_type) {
    EXPECT_DEATH((void)Shared<Thing>::get(), "no factory made .*Thing");
}

TEST_F(SharedDeathTest, a_factory_that_a_reset_dropped_makes_nothing) {
    Shared<Thing>::setFactory([] { return std::make_unique<Thing>(1); });
    Shared<Thing>::reset();

    EXPECT_DEATH((void)Shared<Thing>::get(), "no factory made");
}

TEST_F(SharedDeathTest, a_factory_that_gives_nothing_stops_the_program) {
    Shared<Thing>::setFactory([] { return std::unique_ptr<Thing>(); });

    EXPECT_DEATH((void)Shared<Thing>::get(), "no factory made");
}

}  // namespace
}  // namespace vtx
