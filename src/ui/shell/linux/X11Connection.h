// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace vtx {

/// A reply of the X server comes from malloc.
struct FreeXcbReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using XcbReply = std::unique_ptr<Reply, FreeXcbReply>;

/// The toolkit's own connection to the X server, in the terms that window properties need. Calls
/// that read wait for the server. Main executor.
class X11Connection {
public:
    /// Null where the toolkit is not connected to an X server.
    [[nodiscard]] static std::unique_ptr<X11Connection> ofToolkit();

    explicit X11Connection(xcb_connection_t* connection);

    [[nodiscard]] xcb_connection_t* get() const { return connection_; }
    [[nodiscard]] xcb_window_t root() const { return screen_->root; }

    /// The server's number for a name; asked once a name.
    [[nodiscard]] xcb_atom_t atom(const std::string& name);
    [[nodiscard]] xcb_window_t selectionOwner(const std::string& name);

    void setAtoms(xcb_window_t window, const std::string& property,
                  const std::vector<std::string>& names);
    void setNumbers(xcb_window_t window, const std::string& property,
                    std::span<const std::uint32_t> numbers);
    void remove(xcb_window_t window, const std::string& property);

    /// Asks the window manager to change what it looks after of a window that is shown.
    void askManager(xcb_window_t window, const std::string& property, std::uint32_t value);

    /// The 32-bit items of a property; empty where it is not there or of another kind.
    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window,
                                                     const std::string& property);
    /// The text of a property; empty where it is not there or of another kind.
    [[nodiscard]] std::string text(xcb_window_t window, const std::string& property);
    void flush() { xcb_flush(connection_); }

private:
    void set(xcb_window_t window, const std::string& property, xcb_atom_t type,
             std::span<const std::uint32_t> items);
    /// Null where the window or the property is not there, or where its items are of another size.
    [[nodiscard]] XcbReply<xcb_get_property_reply_t> get(xcb_window_t window,
                                                         const std::string& property, int itemBits);

    xcb_connection_t* connection_;
    const xcb_screen_t* screen_;
    std::map<std::string, xcb_atom_t> atoms_;
};

}  // namespace vtx
