// SPDX-License-Identifier: MIT
#include "Figures.h"

#include <fmt/format.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace vtx::bench {

void saveFigures(const Figures& figures, const std::filesystem::path& file) {
    std::ofstream out(file);
    if (!(out << nlohmann::json(figures).dump(2) << '\n'))
        throw std::runtime_error(fmt::format("cannot write {}", file.string()));
}

Figures loadFigures(const std::filesystem::path& file) {
    const auto document = nlohmann::json::parse(std::ifstream(file), nullptr, false);
    if (!document.is_object())
        throw std::runtime_error(fmt::format("{} holds no figures", file.string()));
    Figures figures;
    for (const auto& [name, value] : document.items()) {
        if (!value.is_number())
            throw std::runtime_error(fmt::format("{}: {} is no number", file.string(), name));
        figures[name] = value.get<double>();
    }
    return figures;
}

}  // namespace vtx::bench
