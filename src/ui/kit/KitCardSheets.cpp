// SPDX-License-Identifier: MIT
#include "ui/kit/Banner.h"
#include "ui/kit/ClockTile.h"
#include "ui/kit/Figures.h"
#include "ui/kit/HeroNumber.h"
#include "ui/kit/KeyValueRows.h"
#include "ui/kit/KitSample.h"
#include "ui/kit/KitSheets.h"
#include "ui/kit/ListRows.h"
#include "ui/kit/PlaceholderCard.h"

namespace vtx::sheets {

namespace {

using sample::Sheet;
using sample::text;

std::unique_ptr<QWidget> banner(BannerContent content) {
    auto made = std::make_unique<Banner>();
    made->setContent(std::move(content));
    return made;
}

std::vector<BannerEntry> consumers() {
    return {{text("Photo Studio"), text("6.1 GB")},
            {text("firefox"), text("4.8 GB")},
            {text("rust-analyzer"), text("3.2 GB")}};
}

std::unique_ptr<QWidget> hero(HeroContent content) {
    auto made = std::make_unique<HeroNumber>();
    made->setContent(std::move(content));
    return made;
}

std::unique_ptr<QWidget> title(CardTitleContent content) {
    auto made = std::make_unique<CardTitle>();
    made->setContent(std::move(content));
    return made;
}

std::unique_ptr<QWidget> clock(const char* now, const char* limit) {
    auto made = std::make_unique<ClockTile>();
    made->setTexts(text(now), text(limit));
    return made;
}

std::unique_ptr<QWidget> figurePair(FigureSize size, std::vector<FigureContent> shown) {
    auto made = std::make_unique<Figures>(size);
    made->setFigures(std::move(shown));
    return made;
}

std::unique_ptr<QWidget> rows(std::vector<KeyValueRow> shown) {
    auto made = std::make_unique<KeyValueRows>();
    made->setRows(std::move(shown));
    return made;
}

std::unique_ptr<QWidget> list(ListKind kind, std::vector<ListRow> shown) {
    auto made = std::make_unique<ListRows>(kind);
    made->setRows(std::move(shown));
    return made;
}

ListRow interface(const char* symbol, const char* name, const char* kind, bool isActive) {
    const ColorToken tint = isActive ? ColorToken::green : ColorToken::text2;
    return {.title = text(name),
            .symbol = text(symbol),
            .symbolColor = isActive ? ColorToken::text1 : ColorToken::text3,
            .caption = text(kind),
            .mark = isActive ? StateMark::filled : StateMark::hollow,
            .values = {{.text = text(isActive ? "Active" : "Inactive"), .color = tint}}};
}

ListRow volume(const char* name, const char* device, const char* read, const char* written) {
    return {.title = text(name),
            .symbol = text("internaldrive"),
            .caption = text(device),
            .values = {{.text = text(read), .label = text("Read")},
                       {.text = text(written), .label = text("Write")}}};
}

ListRow consumer(const char* name, const char* size, double share) {
    return {.title = text(name),
            .values = {{.text = text(size)}},
            .bar = share,
            .barTint = ColorToken::memory};
}

}  // namespace

std::unique_ptr<QWidget> banners() {
    Sheet sheet("Banners");
    sheet.add(banner({.color = ColorToken::orange,
                      .symbol = text("exclamationmark.circle"),
                      .title = text("Memory pressure"),
                      .status = text("Warning"),
                      .body = text("Top consumers"),
                      .entries = consumers()}));
    sheet.add(banner({.color = ColorToken::red,
                      .symbol = text("exclamationmark.triangle.fill"),
                      .title = text("Memory pressure"),
                      .status = text("Critical"),
                      .body = text("Memory is getting tight — quitting tabs or apps reduces the "
                                   "load instantly."),
                      .button = text("Free RAM")}));
    sheet.add(banner({.color = ColorToken::green,
                      .symbol = text("checkmark.seal.fill"),
                      .title = text("Freed 2.7 GB")}));
    sheet.add(banner({.color = ColorToken::orange,
                      .symbol = text("exclamationmark.circle"),
                      .title = text("Нагрузка на оперативную память"),
                      .status = text("Предупреждение"),
                      .body = text("Наибольшие потребители"),
                      .entries = {{text("Web Content Isolated Process (Renderer) of firefox"),
                                   text("6.1 GB")}}}));
    return sheet.take();
}

std::unique_ptr<QWidget> heroes() {
    Sheet sheet("Hero numbers");
    sheet.add(hero({.label = text("Total"),
                    .text = text("23 %"),
                    .tint = ColorToken::cpu,
                    .trailing = text("8 P · 4 E")}));
    sheet.add(hero({.label = text("used"),
                    .text = text("21.4 GB"),
                    .tint = ColorToken::memory,
                    .beside = text("of 32.0 GB"),
                    .pill = {text("Warning"), ColorToken::orange}}));
    sheet.add(hero({.label = text("Ladung"),
                    .text = text("100 %"),
                    .trailing = text("Am Netzteil angeschlossen, wird nicht geladen")}));
    sheet.add(hero({.label = text("Total"), .text = text("—"), .tint = ColorToken::cpu}));
    return sheet.take();
}

std::unique_ptr<QWidget> figures() {
    Sheet sheet("Titles, tiles, figures");
    sheet.add(title({.title = text("P-cores"),
                     .symbol = text("p.circle.fill"),
                     .symbolColor = ColorToken::pCore,
                     .trailing = text("31 %"),
                     .trailingColor = ColorToken::pCore,
                     .trailingStyle = TitleEnd::load}));
    sheet.add(clock("3.23 GHz", "max 3.70 GHz"));
    sheet.add(clock("Idle", "max 2.42 GHz"));
    sheet.add(figurePair(FigureSize::medium, {{.label = text("Read"),
                                               .text = text("38.4 MB/s"),
                                               .tint = ColorToken::cyan,
                                               .symbol = text("arrow.down.circle"),
                                               .caption = text("612 IOPS")},
                                              {.label = text("Upload"),
                                               .text = text("412 KB/s"),
                                               .tint = ColorToken::orange,
                                               .symbol = text("arrow.up.circle.fill"),
                                               .caption = text("Sent"),
                                               .captionValue = text("874.2 MB")}}));
    sheet.add(
        figurePair(FigureSize::large,
                   {{.label = text("Current RPM"), .text = text("2864"), .tint = ColorToken::cyan},
                    {.label = text("Fan load"), .text = text("29%"), .tint = ColorToken::orange}}));
    sheet.add(title({.title = text("Fan 1"),
                     .symbol = text("fan"),
                     .trailing = text("2864 RPM"),
                     .trailingColor = ColorToken::text1,
                     .trailingStyle = TitleEnd::value}));
    sheet.add(title({.title = text("Fan control"),
                     .symbol = text("slider.horizontal.3"),
                     .trailing = text("Verified on this machine"),
                     .trailingColor = ColorToken::green,
                     .trailingStyle = TitleEnd::mark,
                     .trailingSymbol = text("checkmark.seal.fill")}));
    return sheet.take();
}

std::unique_ptr<QWidget> properties() {
    Sheet sheet("Properties");
    sheet.add(title(
        {.title = text("Health"), .pill = {text("Excellent"), ColorToken::green, PillDot::none}}));
    sheet.add(rows({{.label = text("Max capacity"), .value = text("7913 mAh (91 %)")},
                    {.label = text("Cycle count"), .value = text("184")},
                    {.label = text("Speed"), .value = text("—")}}));
    sheet.add(title({.title = text("Active"), .symbol = text("wifi"), .trailing = text("en0")}));
    sheet.add(rows({{.label = text("IPv4"), .value = text("192.168.1.42")},
                    {.label = text("IPv6"), .value = text("fe80::1c3f:9a2e:77d1:5b06")},
                    {.label = text("Идентификатор модели устройства"),
                     .value = text("A long name of a model that no row could ever hold whole")}}));
    return sheet.take();
}

std::unique_ptr<QWidget> lists() {
    Sheet sheet("Lists");
    sheet.add(list(ListKind::oneLine,
                   {interface("wifi", "en0", "Wi-Fi", true),
                    interface("cable.connector", "en5", "Ethernet", false),
                    interface("arrow.triangle.2.circlepath", "lo0", "Loopback", true),
                    interface("questionmark.circle", "br-3f2a8cd1e0b29f4c", "Other", false)}));
    sheet.add(
        list(ListKind::twoLine,
             {volume("Internal SSD", "disk0", "1.9 GB", "846 MB"),
              volume("A volume whose name goes on and on for ever", "disk4", "312 MB", "4.2 GB"),
              {.title = text("rust-analyzer"),
               .symbol = text("exclamationmark.triangle.fill"),
               .symbolColor = ColorToken::red,
               .caption = text("21 min · peak 238%"),
               .values = {{.text = text("142%"), .color = ColorToken::red}}}}));
    sheet.add(
        list(ListKind::withBar,
             {consumer("Photo Studio", "6.1 GB", 0.19), consumer("firefox", "4.8 GB", 0.15),
              consumer("Web Content Isolated Process (Renderer) of firefox", "412 MB", 0.0001)}));
    return sheet.take();
}

std::unique_ptr<QWidget> placeholders() {
    Sheet sheet("Placeholders");
    const auto add = [&sheet](const char* symbol, const char* head, const char* body) {
        auto made = std::make_unique<PlaceholderCard>();
        made->setContent({text(symbol), text(head), text(body)});
        sheet.add(std::move(made));
    };
    add("display.trianglebadge.exclamationmark", "GPU statistics unavailable",
        "On this system the driver returns no performance statistics. Common in virtual machines "
        "or beta releases.");
    add("fan.slash", "This machine is fanless.", "");
    return sheet.take();
}

}  // namespace vtx::sheets
