// SPDX-License-Identifier: MIT
#include "platform/linux/NvidiaLoad.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/linux/NvmlLibrary.h"

namespace vtx::test {
namespace {

constexpr const char* address = "0000:01:00.0";

struct FakeNvml final : Nvml {
    std::optional<std::uint32_t> utilization(const std::string& asked) override {
        EXPECT_EQ(asked, address);
        return ++calls, value;
    }
    void close() override { ++closes; }
    std::optional<std::uint32_t> value = 60;
    int calls = 0;
    int closes = 0;
};

struct NvidiaGraphicsLoad : testing::Test {
    std::shared_ptr<FakeNvml> library = std::make_shared<FakeNvml>();
    NvidiaLoad load{library, address};
};

TEST_F(NvidiaGraphicsLoad, is_what_the_library_says) {
    for (const std::uint32_t value : {0u, 60u, 100u}) {
        library->value = value;
        EXPECT_EQ(load.next(), value);
    }
    EXPECT_EQ(library->closes, 0);
}

TEST_F(NvidiaGraphicsLoad, is_absent_and_not_asked_for_a_while_after_a_refusal) {
    for (const std::optional<std::uint32_t> refusal :
         {std::optional<std::uint32_t>(), std::optional(101u), std::optional(~0u)}) {
        library->calls = library->closes = 0;
        library->value = refusal;
        EXPECT_EQ(load.next(), std::nullopt);
        EXPECT_EQ(library->closes, 1);
        library->value = 60;
        for (int i = 0; i < 60; ++i) EXPECT_EQ(load.next(), std::nullopt);
        EXPECT_EQ(library->calls, 1);
        EXPECT_EQ(load.next(), 60);
    }
}

TEST_F(NvidiaGraphicsLoad, ends_the_session_when_the_device_is_left_alone) {
    EXPECT_EQ(load.next(), 60);
    load.letGo();
    EXPECT_EQ(library->closes, 1);
}

/// The real loading, of a library that the tests bring.
struct NvmlLibraryCalls : testing::Test {
    struct Counts {
        int inits = 0;
        int shutdowns = 0;
        int lookups = 0;
        friend bool operator==(const Counts&, const Counts&) = default;
    };
    template <class Function>
    static Function* fake(const char* name) {
        static void* const library = ::dlopen(VANTRIX_FAKE_NVML, RTLD_NOW);
        void* const found = library ? ::dlsym(library, name) : nullptr;
        if (!found) throw std::runtime_error("the tests' library is not there");
        return reinterpret_cast<Function*>(found);
    }
    static Counts counts() {
        Counts now;
        fake<void(int*, int*, int*)>("fakeCounts")(&now.inits, &now.shutdowns, &now.lookups);
        return now;
    }
    static std::shared_ptr<Nvml> open(int initResult = 0) {
        fake<void(int)>("fakeReset")(initResult);
        return NvmlLibrary::open(VANTRIX_FAKE_NVML);
    }
};

TEST_F(NvmlLibraryCalls, begin_a_session_once_and_only_when_a_device_is_asked) {
    const auto nvml = open();
    ASSERT_TRUE(nvml);
    EXPECT_EQ(counts(), (Counts{0, 0, 0}));
    EXPECT_EQ(nvml->utilization(address), 42u);
    EXPECT_EQ(nvml->utilization(address), 42u);
    EXPECT_EQ(counts(), (Counts{1, 0, 1}));
}

TEST_F(NvmlLibraryCalls, end_the_session_once_and_begin_another) {
    auto nvml = open();
    nvml->close();
    EXPECT_EQ(counts(), (Counts{0, 0, 0}));
    EXPECT_EQ(nvml->utilization(address), 42u);
    nvml->close();
    nvml->close();
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
    EXPECT_EQ(nvml->utilization(address), 42u);
    nvml.reset();
    EXPECT_EQ(counts(), (Counts{2, 2, 2}));
}

TEST_F(NvmlLibraryCalls, that_are_refused_give_nothing) {
    const auto nvml = open();
    EXPECT_EQ(nvml->utilization("0000:02:00.0"), std::nullopt);
    const auto without = open(9);
    EXPECT_EQ(without->utilization(address), std::nullopt);
    without->close();
    EXPECT_EQ(counts(), (Counts{1, 0, 0}));
}

TEST_F(NvmlLibraryCalls, need_the_library_and_all_its_functions) {
    EXPECT_FALSE(NvmlLibrary::open("libvantrix-no-such-library.so.1"));
    EXPECT_FALSE(NvmlLibrary::open("libc.so.6"));
}

}  // namespace
}  // namespace vtx::test
