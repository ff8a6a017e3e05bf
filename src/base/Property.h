// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Data.h"

namespace vtx {

class Property;

using PropertyList = std::vector<Property>;
using PropertyMap = std::map<std::string, Property, std::less<>>;

/// A value as registries hold it: text, number, flag, bytes, a list or a map of these. Nothing is
/// converted on the way: asking for another type than is there gives an absent value.
class Property {
public:
    using Value =
        std::variant<bool, std::int64_t, double, std::string, Data, PropertyList, PropertyMap>;

    /// Of a flag alone: a pointer, which would turn into one silently, is refused.
    Property(std::same_as<bool> auto value) : value_(value) {}   // NOLINT(google-explicit-*)
    Property(int value) : value_(std::int64_t{value}) {}         // NOLINT(google-explicit-*)
    Property(std::int64_t value) : value_(value) {}              // NOLINT(google-explicit-*)
    Property(double value) : value_(value) {}                    // NOLINT(google-explicit-*)
    Property(const char* value) : value_(std::string(value)) {}  // NOLINT(google-explicit-*)
    Property(std::string value) : value_(std::move(value)) {}    // NOLINT(google-explicit-*)
    Property(Data value) : value_(std::move(value)) {}           // NOLINT(google-explicit-*)
    Property(PropertyList value) : value_(std::move(value)) {}   // NOLINT(google-explicit-*)
    Property(PropertyMap value) : value_(std::move(value)) {}    // NOLINT(google-explicit-*)

    [[nodiscard]] const Value& value() const { return value_; }
    /// To change it in place, so that what is read with each tick allocates nothing.
    [[nodiscard]] Value& value() { return value_; }

private:
    Value value_;
};

/// A look at a property, or at nothing: a missing member of a missing map is missing, so that a
/// path is read in one expression. Valid as long as what it looks at.
class PropertyView {
public:
    PropertyView() = default;
    PropertyView(const Property& property) : at_(&property) {}  // NOLINT(google-explicit-*)

    [[nodiscard]] bool exists() const { return at_ != nullptr; }

    /// The member of a map.
    PropertyView operator[](std::string_view key) const;
    /// The entry of a list.
    PropertyView operator[](std::size_t index) const;

    [[nodiscard]] std::optional<bool> flag() const;
    /// A whole number; a number with a fraction, or beyond 64 bits, is none.
    [[nodiscard]] std::optional<std::int64_t> number() const;
    /// Any number.
    [[nodiscard]] std::optional<double> real() const;
    [[nodiscard]] std::optional<std::string_view> text() const;
    [[nodiscard]] const Data* data() const;
    [[nodiscard]] const PropertyList* list() const;
    [[nodiscard]] const PropertyMap* map() const;

private:
    template <class T>
    [[nodiscard]] const T* as() const {
        return at_ ? std::get_if<T>(&at_->value()) : nullptr;
    }

    const Property* at_ = nullptr;
};

}  // namespace vtx
