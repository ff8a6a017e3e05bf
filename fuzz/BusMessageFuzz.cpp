// SPDX-License-Identifier: MIT
// What services answer, as of notifications and of the desktop's settings: any values in any order,
// read in any order. Each is read as it was sent, or not at all.
#include <sys/socket.h>
#include <systemd/sd-bus.h>

#include <array>
#include <string>
#include <variant>
#include <vector>

#include "Fuzz.h"
#include "platform/linux/SystemBus.h"

using namespace vtx;

namespace {

using Texts = std::vector<std::string>;

/// What a message holds, behind the number of its kind.
struct Sent {
    enum class Kind { boolean, text, texts, number, variantText, variantBoolean, variantNumber };
    Kind kind = Kind::boolean;
    std::uint32_t number = 0;
    int depth = 0;  ///< of variants around a number
    std::string text;
    Texts texts;
};
constexpr unsigned kinds = 7;
constexpr std::size_t mostValues = 8;

/// Of a bus that nobody listens on: messages need one to belong to.
sd_bus* bus() {
    static sd_bus* const made = [] {
        std::array<int, 2> ends{};
        sd_bus* connection = nullptr;
        fuzz::expect(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0);
        fuzz::expect(sd_bus_new(&connection) >= 0);
        fuzz::expect(sd_bus_set_fd(connection, ends[0], ends[0]) >= 0);
        fuzz::expect(sd_bus_start(connection) >= 0);
        return connection;
    }();
    return made;
}

class Input {
public:
    explicit Input(std::string_view text) : text_(text) {}

    unsigned byte() {
        if (text_.empty()) return 0;
        const auto first = static_cast<unsigned char>(text_.front());
        text_.remove_prefix(1);
        return first;
    }
    /// In ASCII, as a message takes no other without a look.
    std::string word() {
        std::string word(byte() % 16, ' ');
        for (char& c : word) c = static_cast<char>(' ' + byte() % 95);
        return word;
    }
    [[nodiscard]] bool isAtEnd() const { return text_.empty(); }

private:
    std::string_view text_;
};

Sent nextOf(Input& input) {
    Sent sent;
    sent.kind = static_cast<Sent::Kind>(input.byte() % kinds);
    sent.number = input.byte() * 0x1010101U;
    sent.depth = static_cast<int>(input.byte() % 7);
    sent.text = input.word();
    for (auto count = input.byte() % 4; count > 0; --count) sent.texts.push_back(input.word());
    return sent;
}

void append(sd_bus_message* message, const Sent& sent) {
    const auto check = [](int result) { fuzz::expect(result >= 0); };
    switch (sent.kind) {
        case Sent::Kind::boolean:
            return check(sd_bus_message_append(message, "b", sent.number != 0));
        case Sent::Kind::text:
            return check(sd_bus_message_append(message, "s", sent.text.c_str()));
        case Sent::Kind::texts:
            check(sd_bus_message_open_container(message, 'a', "s"));
            for (const auto& text : sent.texts)
                check(sd_bus_message_append(message, "s", text.c_str()));
            return check(sd_bus_message_close_container(message));
        case Sent::Kind::number:
            return check(sd_bus_message_append(message, "u", sent.number));
        case Sent::Kind::variantText:
            return check(sd_bus_message_append(message, "v", "s", sent.text.c_str()));
        case Sent::Kind::variantBoolean:
            return check(sd_bus_message_append(message, "v", "b", sent.number != 0));
        case Sent::Kind::variantNumber:
            break;
    }
    for (int i = 0; i < sent.depth; ++i) check(sd_bus_message_open_container(message, 'v', "v"));
    check(sd_bus_message_append(message, "v", "u", sent.number));
    for (int i = 0; i < sent.depth; ++i) check(sd_bus_message_close_container(message));
}

/// Whether a value of that kind was there. One that was is what was sent.
bool read(BusMessage& message, Sent::Kind kind, const Sent* next) {
    const bool isNext = next && next->kind == kind;
    const auto judge = [isNext](const auto& value, auto wanted) {
        fuzz::expect(value.has_value() == isNext && (!isNext || *value == wanted));
        return value.has_value();
    };
    const Sent none;
    const Sent& sent = next ? *next : none;
    switch (kind) {
        case Sent::Kind::boolean:
            return judge(message.boolean(), sent.number != 0);
        case Sent::Kind::text:
            return judge(message.text(), sent.text);
        case Sent::Kind::texts:
            return judge(message.texts(), sent.texts);
        case Sent::Kind::number:
            return judge(message.unsignedNumber(), sent.number);
        case Sent::Kind::variantText:
            return judge(message.variantText(), sent.text);
        case Sent::Kind::variantBoolean:
            return judge(message.variantBoolean(), sent.number != 0);
        case Sent::Kind::variantNumber:
            break;
    }
    constexpr int deepest = 4;
    const auto value = message.variantUnsigned();
    fuzz::expect(value.has_value() == (isNext && sent.depth <= deepest));
    fuzz::expect(!value || *value == sent.number);
    return value.has_value();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(fuzz::asInputText(data, size));
    std::vector<Sent> sent;
    for (auto count = input.byte() % mostValues; count > 0 && !input.isAtEnd(); --count)
        sent.push_back(nextOf(input));
    sd_bus_message* made = nullptr;
    fuzz::expect(sd_bus_message_new_signal(bus(), &made, "/a", "a.b", "C") >= 0);
    for (const Sent& each : sent) append(made, each);
    fuzz::expect(sd_bus_message_seal(made, 1, 0) >= 0);
    fuzz::expect(sd_bus_message_rewind(made, 1) >= 0);

    BusMessage message(made);
    fuzz::expect(message.sender().empty());
    std::size_t at = 0;
    for (int question = 0; question < 32; ++question) {
        const Sent* next = at < sent.size() ? &sent[at] : nullptr;
        // The right question as often as any other.
        const auto drawn = input.byte();
        const bool asks = next && drawn % 2 == 0;
        const auto kind = asks ? next->kind : static_cast<Sent::Kind>(drawn / 2 % kinds);
        const bool isNumber = next && next->kind == Sent::Kind::variantNumber;
        if (read(message, kind, next))
            ++at;
        else if (isNumber && kind == Sent::Kind::variantNumber)
            break;  // wrapped too deep: who looked into it cannot look at what follows
    }
    sd_bus_message_unref(made);
    return 0;
}
