// SPDX-License-Identifier: MIT
// What the platform lends is given back once, whoever holds it last.
#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/KernelArray.h"
#include "platform/NetworkInterfaces.h"
#include "platform/RegistryObject.h"
#include "platform/SMCConnection.h"

namespace vtx {
namespace {

// A lender of each kind. What comes back to it, it notes by number.
struct Lender final : InterfaceMemory, KernelMemory, RegistryObjects, SMCConnections {
    std::string returned;
    std::array<InterfaceRecord, 3> records{};
    std::array<std::uint32_t, 3> words{};

    void note(std::size_t number) { returned += std::to_string(number) + " "; }
    void freeifaddrs(const InterfaceRecord* first) noexcept override {
        note(static_cast<std::size_t>(first - records.data()));
    }
    void vmDeallocate(const std::uint32_t* address, std::size_t bytes) noexcept override {
        EXPECT_EQ(bytes, sizeof *address);
        note(static_cast<std::size_t>(address - words.data()));
    }
    void objectRelease(IOObject object) noexcept override { note(object); }
    void serviceClose(IOConnect connection) noexcept override { note(connection); }
};

template <class Loan>
Loan lend(Lender& lender, std::uint32_t number) {
    if constexpr (std::is_same_v<Loan, InterfaceList>)
        return {lender, std::span(lender.records).subspan(number, 1)};
    else if constexpr (std::is_same_v<Loan, KernelArray>)
        return {lender, lender.words.data() + number, 1};
    else
        return {lender, number};
}

template <class Loan>
class Owners : public testing::Test {};

using Loans = testing::Types<InterfaceList, KernelArray, RegistryEntry, SMCConnection>;
TYPED_TEST_SUITE(Owners, Loans, );

TYPED_TEST(Owners, give_back_once_when_they_go) {
    Lender lender;
    {
        auto first = lend<TypeParam>(lender, 1);
        const TypeParam second(std::move(first));
        EXPECT_EQ(lender.returned, "");
    }
    EXPECT_EQ(lender.returned, "1 ");
}

TYPED_TEST(Owners, give_back_what_they_held_when_they_take_another) {
    Lender lender;
    {
        auto held = lend<TypeParam>(lender, 1);
        held = lend<TypeParam>(lender, 2);
        EXPECT_EQ(lender.returned, "1 ");
    }
    EXPECT_EQ(lender.returned, "1 2 ");
}

TYPED_TEST(Owners, take_over_where_they_held_nothing) {
    Lender lender;
    {
        TypeParam held;
        held = lend<TypeParam>(lender, 2);
        EXPECT_EQ(lender.returned, "");
    }
    EXPECT_EQ(lender.returned, "2 ");
}

TYPED_TEST(Owners, keep_what_they_hold_when_they_take_it_from_themselves) {
    Lender lender;
    {
        auto held = lend<TypeParam>(lender, 1);
        auto& same = held;
        held = std::move(same);
        EXPECT_EQ(lender.returned, "");
    }
    EXPECT_EQ(lender.returned, "1 ");
}

TYPED_TEST(Owners, hold_nothing_at_first_and_give_nothing_back) {
    Lender lender;
    {
        const TypeParam nothing;
        TypeParam held;
        held = TypeParam();
    }
    EXPECT_EQ(lender.returned, "");
}

}  // namespace
}  // namespace vtx
