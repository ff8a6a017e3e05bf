// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <QCoreApplication>
#include <array>

#include "ui/shell/linux/QtRunLoop.h"

namespace vtx {
namespace {

/// A pipe whose two ends close with it.
class Pipe {
public:
    Pipe() { EXPECT_EQ(pipe(ends_.data()), 0); }
    ~Pipe() {
        close(ends_[0]);
        close(ends_[1]);
    }
    [[nodiscard]] int reading() const { return ends_[0]; }
    [[nodiscard]] int writing() const { return ends_[1]; }
    void fill() const { EXPECT_EQ(write(writing(), "x", 1), 1); }
    void empty() const {
        char byte = 0;
        EXPECT_EQ(read(reading(), &byte, 1), 1);
    }

private:
    std::array<int, 2> ends_{};
};

TEST(QtRunLoop, tells_of_a_readable_descriptor_from_the_loop) {
    QtRunLoop loop;
    const Pipe pipe;
    int calls = 0;
    const auto watch = loop.watch(pipe.reading(), POLLIN, [&] {
        ++calls;
        pipe.empty();
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 0);
    pipe.fill();
    EXPECT_EQ(calls, 0);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
}

TEST(QtRunLoop, tells_of_a_writable_descriptor) {
    QtRunLoop loop;
    const Pipe pipe;
    int calls = 0;
    const auto watch = loop.watch(pipe.writing(), POLLOUT, [&] { ++calls; });
    QCoreApplication::processEvents();
    EXPECT_GE(calls, 1);
}

TEST(QtRunLoop, a_dropped_token_ends_the_watch_at_once) {
    QtRunLoop loop;
    const Pipe pipe;
    int calls = 0;
    auto watch = loop.watch(pipe.reading(), POLLIN, [&] { ++calls; });
    pipe.fill();
    watch.cancel();
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 0);
}

TEST(QtRunLoop, a_handler_may_drop_its_own_token_and_watch_anew) {
    QtRunLoop loop;
    const Pipe pipe;
    int first = 0, second = 0;
    Subscription watch;
    const std::string text(64, 'x');  // owned by the handler, and still whole after the drop
    std::string seen;
    watch = loop.watch(pipe.reading(), POLLIN, [&, text] {
        ++first;
        watch = loop.watch(pipe.reading(), POLLIN, [&] {
            ++second;
            pipe.empty();
        });
        seen = text;
    });
    pipe.fill();
    for (int round = 0; round < 4; ++round) QCoreApplication::processEvents();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
    EXPECT_EQ(seen, text);
}

TEST(QtRunLoop, a_closed_other_end_is_told_as_readable) {
    QtRunLoop loop;
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    int calls = 0;
    auto watch = loop.watch(ends[0], POLLIN, [&] { ++calls; });
    close(ends[1]);
    QCoreApplication::processEvents();
    EXPECT_GE(calls, 1);
    watch.cancel();
    close(ends[0]);
}

}  // namespace
}  // namespace vtx
