// SPDX-License-Identifier: MIT
#include "base/Property.h"

#include <cmath>

namespace vtx {

PropertyView PropertyView::operator[](std::string_view key) const {
    const auto* members = map();
    if (!members) return {};
    const auto found = members->find(key);
    return found == members->end() ? PropertyView{} : PropertyView{found->second};
}

PropertyView PropertyView::operator[](std::size_t index) const {
    const auto* entries = list();
    return entries && index < entries->size() ? PropertyView{(*entries)[index]} : PropertyView{};
}

std::optional<bool> PropertyView::flag() const {
    const auto* value = as<bool>();
    return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::int64_t> PropertyView::number() const {
    if (const auto* whole = as<std::int64_t>()) return *whole;
    const auto* value = as<double>();
    constexpr double limit = 9223372036854775808.0;  // 2^63, the first double that does not fit
    if (!value || std::trunc(*value) != *value || *value >= limit || *value < -limit) return {};
    return static_cast<std::int64_t>(*value);
}

std::optional<double> PropertyView::real() const {
    if (const auto* value = as<double>()) return *value;
    const auto* whole = as<std::int64_t>();
    return whole ? std::optional(static_cast<double>(*whole)) : std::nullopt;
}

std::optional<std::string_view> PropertyView::text() const {
    const auto* value = as<std::string>();
    return value ? std::optional<std::string_view>(*value) : std::nullopt;
}

const Data* PropertyView::data() const { return as<Data>(); }
const PropertyList* PropertyView::list() const { return as<PropertyList>(); }
const PropertyMap* PropertyView::map() const { return as<PropertyMap>(); }

}  // namespace vtx
