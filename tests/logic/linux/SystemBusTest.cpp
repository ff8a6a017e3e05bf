// SPDX-License-Identifier: MIT
#include "platform/linux/SystemBus.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <systemd/sd-bus.h>

#include <map>
#include <memory>

#include "linux/PrivateBus.h"
#include "platform/linux/Environment.h"
#include "platform/linux/PollRunLoop.h"

namespace vtx::test {
namespace {

constexpr Duration longEnough = std::chrono::seconds(60);
const BusObject object{"org.example.Service", "/org/example", "org.example.Service"};

/// A socket on which something other than a bus listens.
struct Listener {
    Listener() : socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(socket.get(), 4), 0);
    }
    TemporaryTree folder;
    std::string path = folder.path() + "/socket";
    FileDescriptor socket;
};

TEST(SessionBus, is_where_the_environment_says_and_never_where_the_systems_is) {
    const auto addressWith = [](std::map<std::string, std::string, std::less<>> variables) {
        return sessionBusAddress([&](std::string_view name) -> std::optional<std::string> {
            const auto found = variables.find(name);
            return found == variables.end() ? std::nullopt : std::optional(found->second);
        });
    };
    const std::string address = "DBUS_SESSION_BUS_ADDRESS";
    const std::string folder = "XDG_RUNTIME_DIR";
    EXPECT_EQ(addressWith({{address, "unix:abstract=x"}, {folder, "/run/user/1"}}),
              "unix:abstract=x");
    EXPECT_EQ(addressWith({{folder, "/run/user/1"}}), "unix:path=/run/user/1/bus");
    EXPECT_EQ(addressWith({{address, ""}, {folder, "/run/user/1"}}), "unix:path=/run/user/1/bus");
    EXPECT_EQ(addressWith({}), "unix:path=/nonexistent/bus");
    EXPECT_EQ(addressWith({{address, ""}, {folder, ""}}), "unix:path=/nonexistent/bus");
}

TEST(SystemBus, where_there_is_no_bus_nothing_is_told) {
    const TemporaryTree folder;
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "unix:path=" + folder.path() + "/none");
    bool told = false;
    const auto tell = [&](BusMessage&) { told = true; };
    const auto call = bus.call(object, "Method", {}, tell);
    const auto signal = bus.onSignal(object, "Signal", tell);
    loop.runReady();
    EXPECT_FALSE(told);
    EXPECT_FALSE(bus.isOpen());
}

TEST(SystemBus, an_address_that_is_none_counts_as_no_bus) {
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "nonsense");
    const auto call = bus.call(object, "Method", {}, [](BusMessage&) { FAIL(); });
    EXPECT_FALSE(bus.isOpen());
}

TEST(SystemBus, a_bus_that_hangs_holds_nobody) {
    const Listener hanging;
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "unix:path=" + hanging.path);
    Subscriptions tokens;
    for (int i = 0; i < 100; ++i) {
        tokens.push_back(bus.call(object, "Method", {"text"}, [](BusMessage&) { FAIL(); }));
        tokens.push_back(bus.onSignal(object, "Signal", [](BusMessage&) { FAIL(); }));
    }
    loop.runReady();
    EXPECT_TRUE(bus.isOpen());
    tokens.clear();
    loop.runReady();
}

TEST(SystemBus, a_listener_that_talks_nonsense_is_let_go) {
    const Listener nonsense;
    PollRunLoop loop;
    SystemBus bus(loop, loop.executor(), "unix:path=" + nonsense.path);
    const auto call = bus.call(object, "Method", {}, [](BusMessage&) {});
    const FileDescriptor peer(::accept(nonsense.socket.get(), nullptr, nullptr));
    const std::string text(300'000, 'x');
    EXPECT_GT(::send(peer.get(), text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT), 0);
    EXPECT_TRUE(loop.runUntil([&] { return !bus.isOpen(); }, longEnough));
}

struct SystemBusTest : testing::Test {
    void SetUp() override {
        if (!daemon.isRunning()) GTEST_SKIP() << "this machine has no dbus-daemon";
    }
    /// Runs until what was sent so far has been answered, one way or the other.
    void settle() {
        bool answered = false;
        const auto fence = bus.call({"org.freedesktop.DBus", "/", "org.freedesktop.DBus"}, "GetId",
                                    {}, [&](BusMessage&) { answered = true; });
        ASSERT_TRUE(loop.runUntil([&] { return answered; }, longEnough));
    }

    PrivateBus daemon;
    PollRunLoop loop;
    SystemBus bus{loop, loop.executor(), daemon.address()};
};

TEST_F(SystemBusTest, an_answer_comes_from_the_loop_with_its_values_in_order) {
    FakeService service(loop, daemon.address(), object.service, object.path, [](auto* message) {
        const char *first = nullptr, *second = nullptr;
        sd_bus_message_read(message, "ss", &first, &second);
        return sd_bus_reply_method_return(message, "sbv", (std::string(first) + second).c_str(), 1,
                                          "s", "inside");
    });
    std::optional<std::string> text, inside, behind;
    std::optional<bool> flag;
    const auto call = bus.call(object, "Join", {"a", "b"}, [&](BusMessage& answer) {
        text = answer.text();
        flag = answer.boolean();
        inside = answer.variantText();
        behind = answer.text();
    });
    EXPECT_FALSE(text);
    EXPECT_TRUE(loop.runUntil([&] { return inside.has_value(); }, longEnough));
    EXPECT_EQ(text, "ab");
    EXPECT_EQ(flag, true);
    EXPECT_EQ(inside, "inside");
    EXPECT_EQ(behind, std::nullopt);
}

TEST_F(SystemBusTest, values_of_another_type_are_absent) {
    FakeService service(loop, daemon.address(), object.service, object.path, [](auto* message) {
        return sd_bus_reply_method_return(message, "v", "i", 42);
    });
    int answers = 0;
    const auto call = bus.call(object, "Odd", {}, [&](BusMessage& answer) {
        EXPECT_FALSE(answer.isFailure());
        EXPECT_FALSE(answer.text());
        EXPECT_FALSE(answer.boolean());
        EXPECT_FALSE(answer.descriptor());
        EXPECT_FALSE(answer.variantText());
        ++answers;
    });
    EXPECT_TRUE(loop.runUntil([&] { return answers == 1; }, longEnough));
}

TEST_F(SystemBusTest, lists_and_numbers_are_read_and_whoever_sent_them) {
    FakeService service(loop, daemon.address(), object.service, object.path, [](auto* message) {
        return sd_bus_reply_method_return(message, "asuas", 2, "a", "b", 4'000'000'000U, 0);
    });
    std::optional<std::vector<std::string>> texts, none, behind;
    std::optional<std::uint32_t> number;
    std::string sender;
    const auto call = bus.call(object, "Tell", {}, [&](BusMessage& answer) {
        texts = answer.texts();
        EXPECT_FALSE(answer.texts()) << "a number comes next";
        number = answer.unsignedNumber();
        none = answer.texts();
        behind = answer.texts();
        sender = answer.sender();
    });
    ASSERT_TRUE(loop.runUntil([&] { return !sender.empty(); }, longEnough));
    EXPECT_EQ(texts, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(number, 4'000'000'000U);
    EXPECT_EQ(none, std::vector<std::string>());
    EXPECT_EQ(behind, std::nullopt);
    EXPECT_EQ(sender.front(), ':');
}

TEST_F(SystemBusTest, a_call_takes_arguments_of_any_type) {
    FakeService service(loop, daemon.address(), object.service, object.path, [](auto* message) {
        std::uint32_t number = 0;
        int flag = 0;
        sd_bus_message_read(message, "ub", &number, &flag);
        return sd_bus_reply_method_return(message, "u", flag ? number + 1 : 0);
    });
    std::optional<std::uint32_t> next;
    const auto append = [](auto* message) { return sd_bus_message_append(message, "ub", 41, 1); };
    const auto call = bus.call({object, "Next", append},
                               [&](BusMessage& answer) { next = answer.unsignedNumber(); });
    EXPECT_TRUE(loop.runUntil([&] { return next == 42U; }, longEnough));
}

TEST_F(SystemBusTest, arguments_that_cannot_be_sent_are_not_sent) {
    const auto append = [](sd_bus_message*) { return -1; };
    const auto call = bus.call({object, "Next", append}, [](BusMessage&) { FAIL(); });
    EXPECT_FALSE(call);
    EXPECT_TRUE(bus.isOpen());
}

TEST_F(SystemBusTest, a_refusal_is_told_in_the_words_of_the_service) {
    const char* words = "";
    FakeService service(loop, daemon.address(), object.service, object.path, [&](auto* message) {
        return sd_bus_reply_method_errorf(message, "org.example.No", "%s", words);
    });
    std::vector<std::string> errors;
    const auto note = [&](BusMessage& answer) { errors.push_back(answer.error()); };
    const auto first = bus.call(object, "Ask", {}, note);
    ASSERT_TRUE(loop.runUntil([&] { return errors.size() == 1; }, longEnough));
    words = "not today";
    const auto second = bus.call(object, "Ask", {}, note);
    ASSERT_TRUE(loop.runUntil([&] { return errors.size() == 2; }, longEnough));
    EXPECT_EQ(errors, (std::vector<std::string>{"org.example.No", "not today"}));
}

TEST_F(SystemBusTest, a_call_to_an_absent_service_fails) {
    bool failed = false;
    const auto call = bus.call(object, "Method", {}, [&](BusMessage& answer) {
        failed = answer.isFailure() && !answer.text();
    });
    EXPECT_TRUE(loop.runUntil([&] { return failed; }, longEnough));
}

TEST_F(SystemBusTest, a_dropped_token_forgets_the_answer) {
    auto call = bus.call(object, "Method", {}, [](BusMessage&) { FAIL(); });
    auto watch = bus.onOwnerChanged(object.service, [](BusMessage&) { FAIL(); });
    call.cancel();
    settle();
    watch.cancel();
    const FakeService service(loop, daemon.address(), object.service, object.path);
    settle();
}

TEST_F(SystemBusTest, a_handler_may_drop_its_own_token) {
    Subscription call;
    bool answered = false;
    call = bus.call(object, "Method", {}, [&, canary = std::make_shared<int>(1)](BusMessage&) {
        call = {};
        answered = *canary == 1;
    });
    EXPECT_TRUE(loop.runUntil([&] { return answered; }, longEnough));
}

TEST_F(SystemBusTest, a_service_that_comes_is_announced) {
    int changes = 0;
    const auto watch = bus.onOwnerChanged(object.service, [&](BusMessage&) { ++changes; });
    settle();
    {
        const FakeService service(loop, daemon.address(), object.service, object.path);
        const FakeService other(loop, daemon.address(), "org.example.Other", object.path);
        EXPECT_TRUE(loop.runUntil([&] { return changes == 1; }, longEnough));
    }
    EXPECT_TRUE(loop.runUntil([&] { return changes == 2; }, longEnough));
}

TEST_F(SystemBusTest, a_flood_of_signals_arrives_whole) {
    int told = 0;
    const auto watch = bus.onSignal(object, "Signal", [&](BusMessage&) { ++told; });
    settle();
    FakeService service(loop, daemon.address(), object.service, object.path);
    for (int i = 0; i < 500; ++i) service.emit(object.interface, "Signal", true);
    EXPECT_TRUE(loop.runUntil([&] { return told == 500; }, longEnough));
}

TEST_F(SystemBusTest, a_bus_that_goes_is_let_go_with_what_was_asked_of_it) {
    auto other = std::make_unique<PrivateBus>();
    SystemBus connection(loop, loop.executor(), other->address());
    bool answered = false;
    const auto call = connection.call(object, "Method", {}, [&](auto&) { answered = true; });
    const auto watch = connection.onSignal(object, "Signal", [](auto&) { FAIL(); });
    EXPECT_TRUE(loop.runUntil([&] { return answered; }, longEnough));
    other.reset();
    EXPECT_TRUE(loop.runUntil([&] { return !connection.isOpen(); }, longEnough));
    const auto late = connection.call(object, "Method", {}, [](auto&) { FAIL(); });
    loop.runReady();
}

}  // namespace
}  // namespace vtx::test
