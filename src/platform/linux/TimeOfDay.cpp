// SPDX-License-Identifier: MIT
#include "platform/linux/TimeOfDay.h"

#include <langinfo.h>
#include <time.h>

#include <array>
#include <string_view>

namespace vtx {
namespace {

constexpr auto plainFormat = "%H:%M:%S";

locale_t locale(const char* name) {
    return ::newlocale(LC_TIME_MASK | LC_CTYPE_MASK, name, locale_t{});
}

}  // namespace

TimeOfDay::Rules TimeOfDay::load() const {
    std::string name;
    for (const auto* variable : {"LC_ALL", "LC_TIME", "LANG"})
        if (name.empty()) name = environment_(variable).value_or("");
    Rules wanted(name.empty() ? locale_t{} : locale(name.c_str()));
    if (wanted && std::string_view(::nl_langinfo_l(CODESET, wanted.get())) == "UTF-8")
        return wanted;
    return Rules(locale("C"));
}

std::string TimeOfDay::text(Date date) const {
    if (!rules_) rules_ = load();
    const std::time_t seconds =
        std::chrono::floor<std::chrono::seconds>(date).time_since_epoch().count();
    tm parts{};
    ::tzset();  // the user may have moved to another zone
    if (!rules_ || !::localtime_r(&seconds, &parts)) return {};
    std::array<char, 128> written{};
    // A locale that is damaged may have no way of its own.
    for (const char* format : {"%X", plainFormat}) {
        const std::size_t length =
            ::strftime_l(written.data(), written.size(), format, &parts, rules_.get());
        if (length > 0) return {written.data(), length};
    }
    return {};
}

}  // namespace vtx
