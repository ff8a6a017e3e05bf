// SPDX-License-Identifier: MIT
// The programs as a shell starts them.
#include <gmock/gmock.h>

#include <QImage>
#include <regex>
#include <sstream>

#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

class CommandLineE2E : public DesktopTest, public testing::WithParamInterface<const char*> {
protected:
    static std::string program() {
        return std::string_view(GetParam()) == "real" ? VANTRIX_PROGRAM : VANTRIX_SIMULATED_PROGRAM;
    }
    static bool showsSomething(const QImage& image) {
        if (image.width() < 16 || image.height() < 16) return false;
        const QRgb corner = image.pixel(image.width() / 2, 0);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != corner) return true;
        return false;
    }
};

INSTANTIATE_TEST_SUITE_P(Programs, CommandLineE2E, testing::Values("real", "simulated"),
                         [](const auto& program) { return program.param; });

TEST_P(CommandLineE2E, pictures_of_every_surface_and_five_spoken_texts) {
    const std::filesystem::path folder = desktop.folder().path() / "made" / "pictures";
    vantrix = desktop.start({program(), "--pictures", folder.string()});
    constexpr Span wholeTour{60'000};
    ASSERT_EQ(vantrix->exitStatus(wholeTour), 0);
    for (const char* name :
         {"picker", "strip", "widget", "popover", "menu", "dashboard", "about"}) {
        const auto file = folder / (std::string(name) + ".png");
        EXPECT_TRUE(showsSomething(QImage(QString::fromStdString(file.string())))) << name;
    }
    std::istringstream output(vantrix->output());
    const std::regex spoken(R"(^CPU \d+ percent.*)");
    int lines = 0;
    for (std::string line; std::getline(output, line); ++lines)
        EXPECT_TRUE(std::regex_match(line, spoken)) << line;
    EXPECT_EQ(lines, 5);
}

TEST_P(CommandLineE2E, an_argument_that_means_nothing_is_complained_of) {
    vantrix = desktop.start({program(), "--no-such-thing"});
    EXPECT_EQ(vantrix->exitStatus(), 2);
    EXPECT_THAT(vantrix->errors(), testing::HasSubstr("--no-such-thing"));
}

}  // namespace
}  // namespace vtx::e2e
