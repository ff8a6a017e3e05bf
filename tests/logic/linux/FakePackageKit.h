// SPDX-License-Identifier: MIT
#pragma once

#include <poll.h>
#include <systemd/sd-bus.h>

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/Subscription.h"
#include "platform/linux/RunLoop.h"

namespace vtx::test {

/// PackageKit on a bus of the test: each transaction tells of the packages that were put there for
/// its method, and ends as it was told to.
class FakePackageKit {
public:
    enum class Manner { succeeds, fails, refuses, isSilent, talksNonsense };

    struct Script {
        std::vector<std::pair<std::uint32_t, std::string>> packages;
        Manner manner = Manner::succeeds;
    };

    FakePackageKit(RunLoop& loop, const std::string& address) {
        check(sd_bus_new(&bus_));
        check(sd_bus_set_address(bus_, address.c_str()));
        check(sd_bus_set_bus_client(bus_, 1));
        check(sd_bus_start(bus_));
        check(sd_bus_add_fallback(
            bus_, nullptr, "/",
            [](sd_bus_message* message, void* self, sd_bus_error*) {
                return static_cast<FakePackageKit*>(self)->answer(message);
            },
            this));
        check(sd_bus_request_name(bus_, "org.freedesktop.PackageKit", 0));
        watch_ = loop.watch(sd_bus_get_fd(bus_), POLLIN, [this] {
            while (sd_bus_process(bus_, nullptr) > 0) continue;
        });
    }
    ~FakePackageKit() {
        watch_.cancel();
        sd_bus_flush_close_unref(bus_);
    }
    FakePackageKit(const FakePackageKit&) = delete;
    FakePackageKit& operator=(const FakePackageKit&) = delete;

    /// By the method.
    std::map<std::string, Script> scripts;
    /// Each method with what it was given, in order.
    std::vector<std::string> calls;
    /// Of the last transaction.
    std::vector<std::string> hints;

private:
    static void check(int result) {
        if (result < 0) throw std::runtime_error("the bus failed: " + std::to_string(-result));
    }

    int answer(sd_bus_message* message) {
        const std::string member = sd_bus_message_get_member(message);
        if (member == "CreateTransaction") {
            const std::string path = "/" + std::to_string(++transactions_) + "_fake";
            return sd_bus_reply_method_return(message, "o", path.c_str());
        }
        if (member == "SetHints") {
            hints = textsOf(message);
            return sd_bus_reply_method_return(message, "");
        }
        calls.push_back(member + argumentsOf(message, member));
        return play(message, scripts[member]);
    }

    static std::vector<std::string> textsOf(sd_bus_message* message) {
        std::vector<std::string> texts;
        const char* text = nullptr;
        sd_bus_message_enter_container(message, 'a', "s");
        while (sd_bus_message_read(message, "s", &text) > 0) texts.emplace_back(text);
        sd_bus_message_exit_container(message);
        return texts;
    }

    static std::string argumentsOf(sd_bus_message* message, const std::string& member) {
        std::uint64_t filter = 0;
        int force = -1;
        if (member == "RefreshCache") {
            sd_bus_message_read(message, "b", &force);
            return " " + std::to_string(force);
        }
        if (sd_bus_message_read(message, "t", &filter) <= 0) return {};
        std::string arguments = " " + std::to_string(filter);
        if (member == "SearchFiles")
            for (const auto& file : textsOf(message)) arguments += " " + file;
        return arguments;
    }

    int play(sd_bus_message* message, const Script& script) {
        if (script.manner == Manner::isSilent) return sd_bus_reply_method_return(message, "");
        if (script.manner == Manner::refuses)
            return sd_bus_reply_method_errorf(message, "org.example.No", "not allowed");
        if (script.manner == Manner::talksNonsense) {
            sd_bus_reply_method_return(message, "");
            emit(message, "Package", "s", "nonsense");
            return emit(message, "Finished", "s", "nonsense");
        }
        sd_bus_reply_method_return(message, "");
        for (const auto& [info, id] : script.packages)
            emit(message, "Package", "uss", info, id.c_str(), "a summary");
        const bool fails = script.manner == Manner::fails;
        if (fails) emit(message, "ErrorCode", "us", 14U, "the disk is full");
        return emit(message, "Finished", "uu", fails ? 2U : 1U, 5U);
    }

    template <class... Values>
    int emit(sd_bus_message* message, const char* member, const char* types, Values... values) {
        return sd_bus_emit_signal(bus_, sd_bus_message_get_path(message),
                                  "org.freedesktop.PackageKit.Transaction", member, types,
                                  values...);
    }

    sd_bus* bus_ = nullptr;
    int transactions_ = 0;
    Subscription watch_;
};

}  // namespace vtx::test
