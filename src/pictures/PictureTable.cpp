// SPDX-License-Identifier: MIT
#include "pictures/PictureTable.h"

#include "pictures/FirstRunPictures.h"
#include "pictures/MiniWidgetPictures.h"
#include "pictures/ProcessPictures.h"
#include "pictures/SettingsPictures.h"
#include "pictures/StripPictures.h"
#include "ui/kit/Metrics.h"

namespace vtx {
namespace {

constexpr QSize popover(metrics::popoverWidth, metrics::popoverHeight - metrics::sectionBarHeight);

const PictureRow rows[] = {
    {"processes", "loading", popover, processPictures::beforeTheFirstList},
    {"processes", "three", popover, processPictures::three},
    {"processes", "thousand", popover, processPictures::thousand},
    {"processes", "no-match", popover, processPictures::withoutMatch},
    {"processes", "hogs", popover, processPictures::withHogs},
    {"processes", "no-hogs", popover, processPictures::withoutHogs},
    {"processes", "confirmation", popover, processPictures::confirmation},
    {"processes", "refused", popover, processPictures::refused},
    {"processes", "menu", {}, processPictures::menu},
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
};

}  // namespace

std::span<const PictureRow> pictureTable() { return rows; }

}  // namespace vtx
