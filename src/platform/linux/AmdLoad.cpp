// SPDX-License-Identifier: MIT
#include "platform/linux/AmdLoad.h"

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::size_t shortFile = 64;

}  // namespace

GraphicsLoad::Percent AmdLoad::next() {
    const auto text = busy_.read(shortFile);
    const auto percent = text && text->size() < shortFile ? parseUnsigned(*text) : std::nullopt;
    return percent && *percent <= 100 ? percent : std::nullopt;
}

}  // namespace vtx
