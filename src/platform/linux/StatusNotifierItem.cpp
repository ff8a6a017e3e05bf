// SPDX-License-Identifier: MIT
#include "platform/linux/StatusNotifierItem.h"

#include <systemd/sd-bus.h>

#include <utility>

namespace vtx {
namespace {

constexpr auto itemPath = "/StatusNotifierItem";
constexpr auto itemInterface = "org.kde.StatusNotifierItem";
const BusObject watcher{"org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                        "org.kde.StatusNotifierWatcher"};

int appendPictures(sd_bus_message* reply,
                   const std::vector<StatusNotifierItem::Picture>& pictures) {
    int result = sd_bus_message_open_container(reply, 'a', "(iiay)");
    for (const auto& picture : pictures) {
        if (result < 0) return result;
        result = sd_bus_message_open_container(reply, 'r', "iiay");
        if (result < 0) return result;
        result = sd_bus_message_append(reply, "ii", picture.width, picture.height);
        if (result < 0) return result;
        result = sd_bus_message_append_array(reply, 'y', picture.argb.data(), picture.argb.size());
        if (result < 0) return result;
        result = sd_bus_message_close_container(reply);
    }
    return result < 0 ? result : sd_bus_message_close_container(reply);
}

int noPicture(sd_bus_message* reply) { return sd_bus_message_append(reply, "a(iiay)", 0); }

}  // namespace

/// What the item answers on the bus.
struct StatusNotifierItem::Table {
    using Item = StatusNotifierItem;

    static const Item& of(void* self) { return *static_cast<const Item*>(self); }

    static int textProperty(sd_bus*, const char*, const char*, const char* name,
                            sd_bus_message* reply, void* self, sd_bus_error*) {
        const std::string_view property = name;
        const char* text = "";
        if (property == "Category") text = "Hardware";
        if (property == "Status") text = "Active";
        if (property == "Id") text = of(self).identifier_.c_str();
        if (property == "Title") text = of(self).title_.c_str();
        return sd_bus_message_append(reply, "s", text);
    }
    static int windowId(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                        void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "i", 0);
    }
    static int itemIsMenu(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                          void*, sd_bus_error*) {
        return sd_bus_message_append(reply, "b", 0);
    }
    static int iconPixmap(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                          void* self, sd_bus_error*) {
        return appendPictures(reply, of(self).pictures_);
    }
    static int otherPixmap(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                           void*, sd_bus_error*) {
        return noPicture(reply);
    }
    static int toolTip(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                       void* self, sd_bus_error*) {
        int result = sd_bus_message_open_container(reply, 'r', "sa(iiay)ss");
        if (result >= 0) result = sd_bus_message_append(reply, "s", "");
        if (result >= 0) result = noPicture(reply);
        if (result >= 0)
            result = sd_bus_message_append(reply, "ss", of(self).title_.c_str(),
                                           of(self).toolTip_.c_str());
        return result < 0 ? result : sd_bus_message_close_container(reply);
    }

    template <Click click>
    static int clicked(sd_bus_message* call, void* self, sd_bus_error*) {
        std::int32_t x = 0, y = 0;
        if (const int result = sd_bus_message_read(call, "ii", &x, &y); result < 0) return result;
        const int sent = sd_bus_reply_method_return(call, "");
        // A copy: what it does may replace the handler.
        if (const auto tell = static_cast<Item*>(self)->onClick) tell(click, x, y);
        return sent;
    }
    static int scrolled(sd_bus_message* call, void*, sd_bus_error*) {
        return sd_bus_reply_method_return(call, "");
    }

    static const sd_bus_vtable rows[];
};

const sd_bus_vtable StatusNotifierItem::Table::rows[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Category", "s", textProperty, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Id", "s", textProperty, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Title", "s", textProperty, 0, 0),
    SD_BUS_PROPERTY("Status", "s", textProperty, 0, 0),
    SD_BUS_PROPERTY("WindowId", "i", windowId, 0, 0),
    SD_BUS_PROPERTY("IconThemePath", "s", textProperty, 0, 0),
    SD_BUS_PROPERTY("IconName", "s", textProperty, 0, 0),
    SD_BUS_PROPERTY("IconPixmap", "a(iiay)", iconPixmap, 0, 0),
    SD_BUS_PROPERTY("OverlayIconName", "s", textProperty, 0, 0),
    SD_BUS_PROPERTY("OverlayIconPixmap", "a(iiay)", otherPixmap, 0, 0),
    SD_BUS_PROPERTY("AttentionIconName", "s", textProperty, 0, 0),
    SD_BUS_PROPERTY("AttentionIconPixmap", "a(iiay)", otherPixmap, 0, 0),
    SD_BUS_PROPERTY("AttentionMovieName", "s", textProperty, 0, 0),
    SD_BUS_PROPERTY("ToolTip", "(sa(iiay)ss)", toolTip, 0, 0),
    SD_BUS_PROPERTY("ItemIsMenu", "b", itemIsMenu, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_METHOD("Activate", "ii", "", clicked<Click::primary>, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("SecondaryActivate", "ii", "", clicked<Click::secondary>,
                  SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("ContextMenu", "ii", "", clicked<Click::menu>, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Scroll", "is", "", scrolled, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL("NewIcon", "", 0),
    SD_BUS_SIGNAL("NewToolTip", "", 0),
    SD_BUS_VTABLE_END};

StatusNotifierItem::StatusNotifierItem(SystemBus& session, std::string identifier,
                                       std::string title)
    : session_(session), identifier_(std::move(identifier)), title_(std::move(title)) {
    object_ = session_.addObject(itemPath, itemInterface, Table::rows, this);
    if (!object_) return;
    const auto ask = [this](BusMessage&) { askWatcher(); };
    watches_.push_back(session_.onOwnerChanged(watcher.service, ask));
    for (const char* change : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        watches_.push_back(session_.onSignal(watcher, change, ask));
    askWatcher();
}

StatusNotifierItem::~StatusNotifierItem() = default;

void StatusNotifierItem::askWatcher() {
    question_ = session_.getProperty(
        watcher, "IsStatusNotifierHostRegistered",
        [this](BusMessage& answer) { setHosted(answer.variantBoolean().value_or(false)); });
}

void StatusNotifierItem::setHosted(bool hosted) {
    // First, so that there is a picture when the tray comes to look.
    if (std::exchange(isHosted_, hosted) != hosted && onHostedChange) onHostedChange();
    // With every answer, since the watcher may be another one by now; it keeps an item once.
    if (hosted)
        registration_ =
            session_.call(watcher, "RegisterStatusNotifierItem", {itemPath}, [](BusMessage&) {});
}

void StatusNotifierItem::setPictures(std::vector<Picture> pictures) {
    pictures_ = std::move(pictures);
    session_.emitSignal(itemPath, itemInterface, "NewIcon");
}

void StatusNotifierItem::setToolTip(std::string text) {
    toolTip_ = std::move(text);
    session_.emitSignal(itemPath, itemInterface, "NewToolTip");
}

}  // namespace vtx
