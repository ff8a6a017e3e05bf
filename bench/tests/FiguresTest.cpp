// SPDX-License-Identifier: MIT
#include "Figures.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

#include "TemporaryFolder.h"

namespace vtx::bench {
namespace {

TEST(Figures, come_back_as_they_were_saved) {
    const TemporaryFolder folder;
    const Figures figures{{"a", 1.25}, {"b", 0.1}};
    saveFigures(figures, folder.path() / "figures.json");
    EXPECT_EQ(loadFigures(folder.path() / "figures.json"), figures);
}

TEST(Figures, what_is_no_record_of_numbers_is_refused) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "figures.json";
    EXPECT_THROW((void)loadFigures(file), std::runtime_error);
    for (const auto* text : {"", "[1]", "{\"a\":", "{\"a\":\"1\"}", "{\"a\":null}"}) {
        std::ofstream(file) << text;
        EXPECT_THROW((void)loadFigures(file), std::runtime_error) << text;
    }
}

TEST(Figures, that_cannot_be_written_are_told) {
    const TemporaryFolder folder;
    EXPECT_THROW(saveFigures({}, folder.path() / "missing/figures.json"), std::runtime_error);
}

}  // namespace
}  // namespace vtx::bench
