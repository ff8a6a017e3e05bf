// SPDX-License-Identifier: MIT
#include "pictures/PictureTable.h"

#include "pictures/FirstRunPictures.h"
#include "pictures/MiniWidgetPictures.h"
#include "pictures/ProcessPictures.h"
#include "pictures/SectionPictures.h"
#include "pictures/SettingsPictures.h"
#include "pictures/StripPictures.h"
#include "ui/kit/Metrics.h"

namespace vtx {
namespace {

constexpr QSize pageOnly(metrics::popoverWidth, metrics::popoverHeight - metrics::sectionBarHeight);
using Section = PopoverSection;
using sectionPictures::dashboard;
using sectionPictures::popover;

constexpr QSize atFirst{460, 700};
constexpr QSize wide{900, 700};

const PictureRow rows[] = {
    {"processes", "loading", pageOnly, processPictures::beforeTheFirstList},
    {"processes", "three", pageOnly, processPictures::three},
    {"processes", "thousand", pageOnly, processPictures::thousand},
    {"processes", "no-match", pageOnly, processPictures::withoutMatch},
    {"processes", "hogs", pageOnly, processPictures::withHogs},
    {"processes", "no-hogs", pageOnly, processPictures::withoutHogs},
    {"processes", "confirmation", pageOnly, processPictures::confirmation},
    {"processes", "refused", pageOnly, processPictures::refused},
    {"processes", "menu", {}, processPictures::menu},
    {"processes", "popover", {}, processPictures::inPopover},
    {"strip", "empty", {}, stripPictures::beforeReadings},
    {"strip", "usual", {}, stripPictures::usual},
    {"strip", "widest", {}, stripPictures::widest},
    {"strip", "compact", {}, stripPictures::compact},
    {"strip", "symbols", {}, stripPictures::symbolsAlone},
    {"strip", "second-icons", {}, stripPictures::secondIcons},
    {"strip", "third-icons", {}, stripPictures::thirdIcons},
    {"tray", "usual", {}, stripPictures::trayUsual},
    {"tray", "widest", {}, stripPictures::trayWidest},
    {"tray", "level", {}, stripPictures::trayLevel},
    {"widget", "empty", {}, miniWidgetPictures::beforeReadings},
    {"widget", "usual", {}, miniWidgetPictures::usual},
    {"widget", "widest", {}, miniWidgetPictures::widest},
    {"widget", "level", {}, miniWidgetPictures::level},
    {"picker", "asked", {}, firstRunPictures::asked},
    {"settings", "narrow", {}, settingsPictures::narrow},
    {"settings", "wide", {}, settingsPictures::wide},
    {"settings", "looking", {}, settingsPictures::looking},
    {"settings", "found", {}, settingsPictures::found},
    {"settings", "failed", {}, settingsPictures::failed},
    {"overview", "unread", {}, popover<Section::overview, sectionPictures::unread>},
    {"overview", "usual", {}, popover<Section::overview, sectionPictures::usual>},
    {"overview", "warning", {}, popover<Section::overview, sectionPictures::warning>},
    {"overview", "critical", {}, popover<Section::overview, sectionPictures::critical>},
    {"overview", "full-load", {}, popover<Section::overview, sectionPictures::fullLoad>},
    {"overview", "without-charts", {}, popover<Section::overview, sectionPictures::withoutCharts>},
    {"overview", "bars", {}, popover<Section::overview, sectionPictures::bars>},
    {"cpu", "unread", {}, popover<Section::cpu, sectionPictures::unread>},
    {"cpu", "unknown-machine", {}, popover<Section::cpu, sectionPictures::unknownMachine>},
    {"cpu", "usual", {}, popover<Section::cpu, sectionPictures::usual>},
    {"cpu", "extremes", {}, popover<Section::cpu, sectionPictures::extremes>},
    {"gpu", "unread", {}, popover<Section::gpu, sectionPictures::unread>},
    {"gpu", "without-gpu", {}, popover<Section::gpu, sectionPictures::withoutGPU>},
    {"gpu", "usual", {}, popover<Section::gpu, sectionPictures::usual>},
    {"gpu", "extremes", {}, popover<Section::gpu, sectionPictures::extremes>},
    {"memory", "unread", {}, popover<Section::memory, sectionPictures::unread>},
    {"memory", "usual", {}, popover<Section::memory, sectionPictures::usual>},
    {"memory", "warning", {}, popover<Section::memory, sectionPictures::warning>},
    {"memory", "critical", {}, popover<Section::memory, sectionPictures::critical>},
    {"memory", "extremes", {}, popover<Section::memory, sectionPictures::extremes>},
    {"disk", "unread", {}, popover<Section::disk, sectionPictures::unread>},
    {"disk", "usual", {}, popover<Section::disk, sectionPictures::usual>},
    {"disk", "extremes", {}, popover<Section::disk, sectionPictures::extremes>},
    {"fan", "unread", {}, popover<Section::fan, sectionPictures::unread>},
    {"fan", "usual", {}, popover<Section::fan, sectionPictures::usual>},
    {"fan", "extremes", {}, popover<Section::fan, sectionPictures::extremes>},
    {"network", "unread", {}, popover<Section::network, sectionPictures::unread>},
    {"network", "without-network", {}, popover<Section::network, sectionPictures::withoutNetwork>},
    {"network", "usual", {}, popover<Section::network, sectionPictures::usual>},
    {"network", "extremes", {}, popover<Section::network, sectionPictures::extremes>},
    {"battery", "unread", {}, popover<Section::battery, sectionPictures::unread>},
    {"battery", "desktop", {}, popover<Section::battery, sectionPictures::desktop>},
    {"battery", "usual", {}, popover<Section::battery, sectionPictures::usual>},
    {"battery", "charging", {}, popover<Section::battery, sectionPictures::charging>},
    {"battery", "nearly-empty", {}, popover<Section::battery, sectionPictures::nearlyEmpty>},
    {"system", "unknown-machine", {}, popover<Section::system, sectionPictures::unknownMachine>},
    {"system", "usual", {}, popover<Section::system, sectionPictures::usual>},
    {"dashboard", "overview", atFirst, dashboard<Section::overview>},
    {"dashboard", "cpu", atFirst, dashboard<Section::cpu>},
    {"dashboard", "gpu", atFirst, dashboard<Section::gpu>},
    {"dashboard", "memory", atFirst, dashboard<Section::memory>},
    {"dashboard", "disk", atFirst, dashboard<Section::disk>},
    {"dashboard", "fan", atFirst, dashboard<Section::fan>},
    {"dashboard", "network", atFirst, dashboard<Section::network>},
    {"dashboard", "battery", atFirst, dashboard<Section::battery>},
    {"dashboard", "processes", atFirst, processPictures::inDashboard},
    {"dashboard", "system", atFirst, dashboard<Section::system>},
    {"wide-dashboard", "overview", wide, dashboard<Section::overview>},
    {"wide-dashboard", "cpu", wide, dashboard<Section::cpu>},
    {"wide-dashboard", "gpu", wide, dashboard<Section::gpu>},
    {"wide-dashboard", "memory", wide, dashboard<Section::memory>},
    {"wide-dashboard", "disk", wide, dashboard<Section::disk>},
    {"wide-dashboard", "fan", wide, dashboard<Section::fan>},
    {"wide-dashboard", "network", wide, dashboard<Section::network>},
    {"wide-dashboard", "battery", wide, dashboard<Section::battery>},
    {"wide-dashboard", "processes", wide, processPictures::inDashboard},
    {"wide-dashboard", "system", wide, dashboard<Section::system>},
};

}  // namespace

std::span<const PictureRow> pictureTable() { return rows; }

}  // namespace vtx
