// SPDX-License-Identifier: MIT
// vantrix-pictures: what every surface looks like, drawn without a display from sample figures.
#include <fmt/format.h>

#include <QApplication>
#include <QDir>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "pictures/PictureMaker.h"

namespace vtx {
namespace {

constexpr auto help =
    "Usage: vantrix-pictures FOLDER [SURFACE...] [LANGUAGE...]\n"
    "\n"
    "Saves a picture of every surface, or of those named, in each of its states: light and dark,\n"
    "at scales of 1, 1.5 and 2, in English and in every language, or those named by codes as\n"
    "\"de\", that looks different. The figures are samples.\n";

void print(std::FILE* to, const std::string& text) { std::fputs(text.c_str(), to); }

std::string describe(const PictureRow& row, const MadePictures& made) {
    std::string languages;
    for (const Language language : made.languages)
        languages += fmt::format(" {}", rawValue(language));
    if (made.languages.size() == 1) languages = " the same in every language";
    return fmt::format("{} {}:{}\n", row.surface, row.state, languages);
}

bool isWanted(const PictureRow& row, const std::vector<std::string>& names) {
    return names.empty() || std::ranges::find(names, row.surface) != names.end();
}

bool isKnown(const std::string& name) {
    return std::ranges::any_of(pictureTable(),
                               [&name](const PictureRow& row) { return row.surface == name; });
}

/// Takes the codes of languages out of the words; all of them where there are none.
std::vector<Language> takeLanguages(std::vector<std::string>& words) {
    std::vector<Language> taken;
    for (const Language language : allLanguages)
        if (std::erase(words, rawValue(language)) != 0) taken.push_back(language);
    if (taken.empty()) taken.assign(allLanguages.begin(), allLanguages.end());
    return taken;
}

int run(const QString& folder, std::vector<std::string> names) {
    const std::vector<Language> languages = takeLanguages(names);
    for (const auto& name : names) {
        if (isKnown(name)) continue;
        print(stderr, fmt::format("vantrix-pictures: there is no surface \"{}\"\n", name));
        return 2;
    }
    bool failed = !QDir().mkpath(folder);
    for (const PictureRow& row : pictureTable()) {
        if (!isWanted(row, names)) continue;
        const MadePictures made = PictureMaker::save(row, folder, languages);
        print(stdout, describe(row, made));
        for (const QString& file : made.unsaved)
            print(stderr,
                  fmt::format("vantrix-pictures: {} could not be saved\n", file.toStdString()));
        failed |= !made.unsaved.empty();
    }
    return failed ? 1 : 0;
}

}  // namespace
}  // namespace vtx

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty() || arguments.front().starts_with("-")) {
        std::fputs(vtx::help, stdout);
        return arguments.empty() || arguments.front() != "--help" ? 2 : 0;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("VANTRIX_APPEARANCE");
    const QApplication application(argc, argv);
    return vtx::run(QString::fromLocal8Bit(arguments.front().c_str()),
                    {arguments.begin() + 1, arguments.end()});
}
