// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-bus.h>

#include <cstdint>
#include <string>
#include <vector>

#include "linux/PrivateBus.h"

namespace vtx::test {

/// A notification server of a desktop, well behaved or not.
class FakeNotificationServer {
public:
    /// How it answers a method.
    enum class Manner { sane, silent, refuses, talksNonsense, saysNothing };

    /// What it was asked to show.
    struct Note {
        std::string application;
        std::uint32_t replaces = 0;
        std::string icon;
        std::string title;
        std::string body;
        std::size_t actions = 0;
        std::vector<std::string> hints;  ///< as "name=value"
        std::int32_t expiry = 0;
    };

    FakeNotificationServer(RunLoop& loop, const std::string& address)
        : service_(loop, address, "org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                   [this](sd_bus_message* message) { return answer(message); }) {}

    Manner aboutCapabilities = Manner::sane;
    Manner aboutNotes = Manner::sane;
    std::vector<std::string> capabilities{"body"};
    std::uint32_t nextId = 7;  ///< what the next note gets, whatever it replaces

    int questions = 0;  ///< for its capabilities
    std::vector<Note> notes;

private:
    int answer(sd_bus_message* message) {
        if (sd_bus_message_is_method_call(message, nullptr, "GetCapabilities") > 0) {
            ++questions;
            if (aboutCapabilities != Manner::sane) return misbehave(message, aboutCapabilities);
            return tellCapabilities(message);
        }
        if (sd_bus_message_is_method_call(message, nullptr, "Notify") <= 0) return 0;
        notes.push_back(read(message));
        if (aboutNotes != Manner::sane) return misbehave(message, aboutNotes);
        return sd_bus_reply_method_return(message, "u", nextId);
    }

    int tellCapabilities(sd_bus_message* message) {
        std::vector<char*> words;
        for (auto& one : capabilities) words.push_back(one.data());
        words.push_back(nullptr);
        sd_bus_message* reply = nullptr;
        sd_bus_message_new_method_return(message, &reply);
        sd_bus_message_append_strv(reply, words.data());
        const int sent = sd_bus_send(nullptr, reply, nullptr);
        sd_bus_message_unref(reply);
        return sent;
    }

    static int misbehave(sd_bus_message* message, Manner manner) {
        if (manner == Manner::refuses)
            return sd_bus_reply_method_errorf(message, "org.example.Full", "no room for it");
        if (manner == Manner::talksNonsense)
            return sd_bus_reply_method_return(message, "a(is)", 1, 5, "five");
        if (manner == Manner::saysNothing) return sd_bus_reply_method_return(message, "");
        return 1;
    }

    static Note read(sd_bus_message* message) {
        Note note;
        const char *application = "", *icon = "", *title = "", *body = "";
        sd_bus_message_read(message, "susss", &application, &note.replaces, &icon, &title, &body);
        note.application = application;
        note.icon = icon;
        note.title = title;
        note.body = body;
        const char* word = nullptr;
        sd_bus_message_enter_container(message, 'a', "s");
        while (sd_bus_message_read(message, "s", &word) > 0) ++note.actions;
        sd_bus_message_exit_container(message);
        readHints(message, note);
        sd_bus_message_read(message, "i", &note.expiry);
        return note;
    }

    static void readHints(sd_bus_message* message, Note& note) {
        sd_bus_message_enter_container(message, 'a', "{sv}");
        while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
            const char *name = "", *text = "";
            std::uint8_t byte = 0;
            sd_bus_message_read(message, "s", &name);
            if (sd_bus_message_read(message, "v", "y", &byte) > 0)
                note.hints.push_back(std::string(name) + "=" + std::to_string(byte));
            else if (sd_bus_message_read(message, "v", "s", &text) > 0)
                note.hints.push_back(std::string(name) + "=" + text);
            sd_bus_message_exit_container(message);
        }
        sd_bus_message_exit_container(message);
    }

    FakeService service_;
};

}  // namespace vtx::test
