// SPDX-License-Identifier: MIT
#include "pictures/PictureTable.h"

#include "pictures/SettingsPictures.h"
#include "pictures/StripPictures.h"

namespace vtx {
namespace {

const PictureRow rows[] = {
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
    {"settings", "narrow", {}, settingsPictures::narrow},
    {"settings", "wide", {}, settingsPictures::wide},
};

}  // namespace

std::span<const PictureRow> pictureTable() { return rows; }

}  // namespace vtx
