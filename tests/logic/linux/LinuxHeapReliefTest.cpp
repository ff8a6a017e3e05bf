// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxHeapRelief.h"

#include <dlfcn.h>
#include <gnu/libc-version.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <barrier>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "linux/TemporaryTree.h"
#include "platform/linux/LinuxProcessTable.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {
namespace {

constexpr std::int64_t mebibyte = 1 << 20;

// As Linux 6.18 writes it, the lines that do not matter left out.
constexpr auto rollup = R"(55d0c0a00000-7ffd0bfff000 ---p 00000000 00:00 0                  [rollup]
Rss:               41232 kB
Pss_Anon:          10112 kB
Anonymous:         12000 kB
AnonHugePages:         0 kB
Swap:                288 kB
SwapPss:             288 kB
)";

/// Whether a sanitizer's heap or a preloaded one stands in the place of the C library's.
bool isAnothersHeap() {
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
    return true;
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return true;
#endif
    Dl_info allocating{};
    Dl_info library{};
    const auto* const version = reinterpret_cast<const void*>(&::gnu_get_libc_version);
    if (::dladdr(::dlsym(RTLD_DEFAULT, "malloc"), &allocating) == 0) return true;
    if (::dladdr(version, &library) == 0) return true;
    return allocating.dli_fbase != library.dli_fbase;
}

/// Blocks of 8 KiB, of which one in 64 is still in use: it lies between those that are not, so that
/// the library keeps all of it until it is told to give back.
std::vector<std::unique_ptr<char[]>> blocksWithGaps(std::size_t count) {
    constexpr std::size_t blockBytes = 8192;
    std::vector<std::unique_ptr<char[]>> blocks;
    for (std::size_t i = 0; i < count; ++i) {
        blocks.push_back(std::make_unique<char[]>(blockBytes));
        std::memset(blocks.back().get(), 1, blockBytes);
    }
    for (std::size_t i = 0; i < count; ++i)
        if (i % 64 != 63) blocks[i].reset();
    return blocks;
}

TEST(LinuxHeapRelief, what_a_program_holds_for_itself_is_resident_or_swapped_out) {
    EXPECT_EQ(LinuxHeapRelief::heldBytes(rollup), (12000 + 288) * 1024);
}

TEST(LinuxHeapRelief, a_text_that_does_not_tell_both_tells_nothing) {
    for (const auto* text :
         {"", "Anonymous: 5 kB\n", "Swap: 5 kB\n", "Anonymous: x kB\nSwap: 1 kB\n",
          "Anonymous: 5\nSwap: 1\n", "Anonymous: -5 kB\nSwap: 1 kB\n",
          "Anonymous: 99999999999999999999 kB\nSwap: 1 kB\n"})
        EXPECT_EQ(LinuxHeapRelief::heldBytes(text), std::nullopt) << text;
}

TEST(LinuxHeapRelief, a_machine_that_does_not_tell_gets_no_invented_number) {
    const TemporaryTree tree;
    const LinuxRoot root(tree.path());
    LinuxHeapRelief relief(root);
    EXPECT_EQ(relief.heldBytes(), std::nullopt);
    EXPECT_EQ(relief.mallocZonePressureRelief(), 0);
}

TEST(LinuxHeapRelief, gives_the_unused_heap_back_and_tells_how_much) {
    const LinuxRoot root;
    LinuxHeapRelief relief(root);
    const auto held = relief.heldBytes();
    if (!held) GTEST_SKIP() << "this machine does not tell what a program holds";
    if (isAnothersHeap()) GTEST_SKIP() << "another heap than the C library's is in use";
    (void)relief.mallocZonePressureRelief();
    const auto blocks = blocksWithGaps(8192);  // 64 MiB together
    const std::int64_t before = *relief.heldBytes();
    const std::int64_t told = relief.mallocZonePressureRelief();
    const std::int64_t after = *relief.heldBytes();
    EXPECT_GT(told, 56 * mebibyte);
    EXPECT_LT(told, 66 * mebibyte);
    EXPECT_NEAR(static_cast<double>(before - after), static_cast<double>(told), 2.0 * mebibyte);
    EXPECT_LT(relief.mallocZonePressureRelief(), mebibyte);
}

TEST(LinuxHeapRelief, a_process_table_that_rests_gives_the_unused_heap_back) {
    const LinuxRoot root;
    const LinuxHeapRelief relief(root);
    if (!relief.heldBytes()) GTEST_SKIP() << "this machine does not tell what a program holds";
    if (isAnothersHeap()) GTEST_SKIP() << "another heap than the C library's is in use";
    const ManualClock clock;
    LinuxProcessTable table(root, clock);
    LinuxHeapRelief::trim();
    const auto blocks = blocksWithGaps(2048);
    const std::int64_t before = *relief.heldBytes();
    table.letGo();
    EXPECT_GT(before - *relief.heldBytes(), 14 * mebibyte);
}

/// How many heaps the C library keeps.
std::size_t heaps() {
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* const file = ::open_memstream(&text, &size);
    ::malloc_info(0, file);
    std::fclose(file);
    const std::string told(text, size);
    std::free(text);
    std::size_t found = 0;
    for (auto at = told.find("<heap "); at != std::string::npos; at = told.find("<heap ", at + 1))
        ++found;
    return found;
}

TEST(LinuxHeapRelief, all_threads_share_two_heaps) {
    if (isAnothersHeap()) GTEST_SKIP() << "another heap than the C library's is in use";
    LinuxHeapRelief::shareHeaps();
    const std::size_t before = heaps();
    constexpr int count = 6;
    std::barrier<> together(count);
    std::vector<std::jthread> threads;
    threads.reserve(count);
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&together] {
            const std::vector<char> block(5000, 'x');
            together.arrive_and_wait();
        });
    }
    threads.clear();
    EXPECT_LE(heaps(), std::max<std::size_t>(before, 2));
}

}  // namespace
}  // namespace vtx::test
