// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CostReport.h"
#include "Options.h"
#include "Subject.h"
#include "UnevenLoad.h"

namespace vtx::bench {

/// Every program that is measured, started together and ended with this.
class Bench {
public:
    /// Starts the programs. Throws `std::runtime_error` where one cannot be.
    explicit Bench(const Options& options);

    /// Measures once with every surface of the resident program closed, with the popover open,
    /// after each surface was used, then with the mini widget shown, and then with every tile of
    /// the strip: on this machine's figures, and on those of a machine that has them all. Throws
    /// `std::runtime_error` when a program ends by itself. Once only.
    [[nodiscard]] CostReport measure();

private:
    using Stored = Subject::Stored;

    void addFloors();
    /// One of our own programs; null where it is not built.
    Subject* add(const std::string& name);
    void add(const std::string& command, std::size_t number);
    Subject* start(const std::string& name, const std::vector<std::string>& command,
                   Program::Environment environment = {}, Stored stored = Stored::ofAFirstStart);
    void measureEveryTile();
    void measureEverySensor();
    /// One resident program at a time: two would share their pages, and each seem smaller.
    void measureAlone(std::string title, const std::vector<std::string>& command, Stored stored);
    [[nodiscard]] std::vector<CostReading> readAll();
    void measureWindow(std::string title);
    /// Lets the window of time pass; how often the strip showed something else meanwhile.
    [[nodiscard]] std::optional<std::size_t> watchStrip();
    [[nodiscard]] bool useSurfaces();
    /// What the open popover costs, and how long it takes to open.
    void measurePopover();

    const Options options_;
    const std::filesystem::path programs_;
    const UnevenLoad load_;
    CostReport report_;
    std::vector<std::unique_ptr<Subject>> subjects_;
    Subject* resident_ = nullptr;
};

}  // namespace vtx::bench
