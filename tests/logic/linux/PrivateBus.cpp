// SPDX-License-Identifier: MIT
#include "linux/PrivateBus.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

#include "platform/linux/FileDescriptor.h"

namespace vtx::test {
namespace {

std::string configuration(const std::string& folder) {
    return "<busconfig><type>session</type><listen>unix:dir=" + folder + "</listen><servicedir>" +
           folder +
           "/services</servicedir><auth>EXTERNAL</auth><policy context=\"default\"><allow "
           "own=\"*\"/>"
           "<allow send_destination=\"*\"/><allow send_type=\"signal\"/>"
           "<allow receive_type=\"signal\"/><allow receive_type=\"method_call\"/>"
           "<allow receive_type=\"method_return\"/><allow receive_type=\"error\"/>"
           "</policy></busconfig>";
}

std::string readLine(int fd) {
    std::string line;
    for (char c = 0; ::read(fd, &c, 1) == 1 && c != '\n';) line += c;
    return line;
}

void check(int result, const char* what) {
    if (result < 0) throw std::runtime_error(std::string(what) + ": " + std::to_string(-result));
}

}  // namespace

PrivateBus::PrivateBus(const std::vector<std::string>& startable) {
    for (const auto& name : startable)
        folder_.write("/services/" + name + ".service",
                      "[D-BUS Service]\nName=" + name + "\nExec=/bin/false\n");
    folder_.write("/bus.conf", configuration(folder_.path()));
    std::array<int, 2> ends{};
    check(::pipe2(ends.data(), O_CLOEXEC), "pipe");
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);

    std::string program = "dbus-daemon", fork = "--nofork", print = "--print-address=1";
    std::string config = "--config-file=" + folder_.path() + "/bus.conf";
    std::array<char*, 5> arguments{program.data(), fork.data(), print.data(), config.data(),
                                   nullptr};
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, writer.get(), STDOUT_FILENO);
    // It complains of limits that do not matter here.
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const int result =
        ::posix_spawnp(&pid_, program.c_str(), &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (result != 0) {
        pid_ = -1;
        return;
    }
    writer.reset();
    address_ = readLine(reader.get());
}

PrivateBus::~PrivateBus() {
    if (pid_ <= 0) return;
    ::kill(pid_, SIGTERM);
    ::waitpid(pid_, nullptr, 0);
}

FakeService::FakeService(RunLoop& loop, const std::string& address, const std::string& name,
                         const std::string& path, Answer answer)
    : path_(path), answer_(std::move(answer)) {
    check(sd_bus_new(&bus_), "new");
    check(sd_bus_set_address(bus_, address.c_str()), "address");
    check(sd_bus_set_bus_client(bus_, 1), "client");
    check(sd_bus_start(bus_), "start");
    const auto handler = [](sd_bus_message* message, void* self, sd_bus_error*) {
        return onCall(message, self, nullptr);
    };
    check(sd_bus_add_object(bus_, nullptr, path.c_str(), handler, this), "object");
    // The name is asked for in any case, so that the connection stands from here on.
    const std::string owned = name.empty() ? "org.example.Nobody" : name;
    check(sd_bus_request_name(bus_, owned.c_str(), 0), "name");
    watch_ = loop.watch(sd_bus_get_fd(bus_), POLLIN, [this] {
        while (sd_bus_process(bus_, nullptr) > 0) continue;
    });
}

FakeService::~FakeService() {
    watch_.cancel();
    sd_bus_flush_close_unref(bus_);
}

int FakeService::onCall(sd_bus_message* message, void* self, void* /*error*/) {
    auto& service = *static_cast<FakeService*>(self);
    return service.answer_ ? service.answer_(message) : 0;
}

void FakeService::emit(const std::string& interface, const std::string& member, bool value) {
    check(sd_bus_emit_signal(bus_, path_.c_str(), interface.c_str(), member.c_str(), "b",
                             static_cast<int>(value)),
          "emit");
}

void FakeService::emit(const std::string& interface, const std::string& member,
                       const std::string& value) {
    check(sd_bus_emit_signal(bus_, path_.c_str(), interface.c_str(), member.c_str(), "s",
                             value.c_str()),
          "emit");
}

void FakeService::emitPropertiesChanged(const std::string& interface) {
    check(sd_bus_emit_signal(bus_, path_.c_str(), "org.freedesktop.DBus.Properties",
                             "PropertiesChanged", "sa{sv}as", interface.c_str(), 0, 0),
          "emit");
}

}  // namespace vtx::test
