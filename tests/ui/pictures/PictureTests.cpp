// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <set>
#include <string>

#include "pictures/PictureMaker.h"
#include "pictures/PictureStage.h"
#include "ui/kit/PaletteAppearanceSource.h"
#include "ui/kit/Theme.h"

namespace vtx {
namespace {

std::string nameOf(const PictureRow& row) {
    return std::string(row.surface) + "-" + std::string(row.state);
}

const PictureRow& rowNamed(const std::string& name) {
    return *std::ranges::find(pictureTable(), name, nameOf);
}

bool isOneColour(const QImage& image) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != image.pixel(0, 0)) return false;
    return true;
}

class PictureTest : public testing::Test {
protected:
    ~PictureTest() override {
        Theme::current().follow(std::make_unique<PaletteAppearanceSource>());
    }
};

TEST_F(PictureTest, every_state_of_a_surface_has_a_name_of_its_own) {
    std::set<std::string> names;
    for (const PictureRow& row : pictureTable()) EXPECT_TRUE(names.insert(nameOf(row)).second);
}

TEST_F(PictureTest, every_surface_is_drawn_in_both_appearances_at_three_scales) {
    for (const PictureRow& row : pictureTable()) {
        SCOPED_TRACE(nameOf(row));
        const auto pictures = PictureMaker::draw(row, Language::en);
        ASSERT_EQ(pictures.size(), 6U);
        for (const Picture& picture : pictures) EXPECT_FALSE(isOneColour(picture.image));
        EXPECT_NE(pictures[0].image, pictures[3].image) << "light and dark look alike";
        EXPECT_EQ(pictures[2].image.width(), 2 * pictures[0].image.width());
    }
}

TEST_F(PictureTest, the_strip_and_the_tray_look_the_same_in_every_language) {
    for (const auto* name : {"strip-empty", "strip-widest", "tray-level"}) {
        const auto english = PictureMaker::draw(rowNamed(name), Language::en);
        for (const Language language : {Language::de, Language::ja, Language::ru})
            EXPECT_EQ(PictureMaker::draw(rowNamed(name), language), english) << name;
    }
}

TEST_F(PictureTest, are_saved_under_the_names_of_what_they_show) {
    const QTemporaryDir folder;
    const auto made = PictureMaker::save(rowNamed("strip-usual"), folder.path());
    EXPECT_EQ(made.languages, std::vector{Language::en});
    EXPECT_TRUE(made.unsaved.empty());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
              (QStringList{"strip-usual-dark@1.5x.png", "strip-usual-dark@1x.png",
                           "strip-usual-dark@2x.png", "strip-usual-light@1.5x.png",
                           "strip-usual-light@1x.png", "strip-usual-light@2x.png"}));
}

TEST_F(PictureTest, what_cannot_be_saved_is_told) {
    const QTemporaryDir folder;
    const auto made = PictureMaker::save(rowNamed("tray-usual"), folder.filePath("missing"));
    EXPECT_EQ(made.unsaved.size(), 6U);
}

TEST_F(PictureTest, a_stage_that_is_run_has_readings_and_a_history) {
    PictureStage stage(Language::en);
    stage.run(std::chrono::seconds(60));
    EXPECT_TRUE(stage.coordinator().cpu.latest->has_value());
    EXPECT_GE(stage.coordinator().cpuHistory->size(), 55U);
    EXPECT_FALSE(stage.coordinator().isRunning());
}

}  // namespace
}  // namespace vtx
