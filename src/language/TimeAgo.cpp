// SPDX-License-Identifier: MIT
#include "language/TimeAgo.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace vtx {
namespace {

/// What comes before and after the number, and the unit between them by the number's form. A
/// language with fewer forms repeats the last.
struct Unit {
    std::string_view one, few, many;
};
struct Wording {
    std::string_view now;
    std::string_view before;
    std::array<Unit, 4> units;  ///< seconds, minutes, hours, days
    std::string_view after;
};

constexpr Unit always(std::string_view unit) { return {unit, unit, unit}; }
constexpr Unit plural(std::string_view one, std::string_view many) { return {one, many, many}; }

// In the order of the enumeration, the automatic one in English.
constexpr Wording english{"just now",
                          "",
                          {plural(" second", " seconds"), plural(" minute", " minutes"),
                           plural(" hour", " hours"), plural(" day", " days")},
                          " ago"};
constexpr std::array<Wording, allLanguages.size()> wordings{{
    english,
    {"gerade eben",
     "vor ",
     {plural(" Sekunde", " Sekunden"), plural(" Minute", " Minuten"), plural(" Stunde", " Stunden"),
      plural(" Tag", " Tagen")},
     ""},
    english,
    {"à l’instant",
     "il y a ",
     {plural(" seconde", " secondes"), plural(" minute", " minutes"), plural(" heure", " heures"),
      plural(" jour", " jours")},
     ""},
    {"ahora mismo",
     "hace ",
     {plural(" segundo", " segundos"), plural(" minuto", " minutos"), plural(" hora", " horas"),
      plural(" día", " días")},
     ""},
    {"adesso",
     "",
     {plural(" secondo", " secondi"), plural(" minuto", " minuti"), plural(" ora", " ore"),
      plural(" giorno", " giorni")},
     " fa"},
    {"agora mesmo",
     "há ",
     {plural(" segundo", " segundos"), plural(" minuto", " minutos"), plural(" hora", " horas"),
      plural(" dia", " dias")},
     ""},
    {"zojuist",
     "",
     {plural(" seconde", " seconden"), plural(" minuut", " minuten"), always(" uur"),
      plural(" dag", " dagen")},
     " geleden"},
    {"przed chwilą",
     "",
     {Unit{" sekundę", " sekundy", " sekund"},
      {" minutę", " minuty", " minut"},
      {" godzinę", " godziny", " godzin"},
      plural(" dzień", " dni")},
     " temu"},
    {"たった今", "", {always(" 秒"), always(" 分"), always(" 時間"), always(" 日")}, "前"},
    {"刚刚", "", {always("秒"), always("分钟"), always("小时"), always("天")}, "前"},
    {"az önce",
     "",
     {always(" saniye"), always(" dakika"), always(" saat"), always(" gün")},
     " önce"},
    {"только что",
     "",
     {Unit{" секунду", " секунды", " секунд"},
      {" минуту", " минуты", " минут"},
      {" час", " часа", " часов"},
      {" день", " дня", " дней"}},
     " назад"},
    {"방금", "", {always("초"), always("분"), always("시간"), always("일")}, " 전"},
}};

std::string_view formOf(const Unit& unit, std::uint64_t count, Language language) {
    const bool isTeen = count % 100 >= 11 && count % 100 <= 14;
    const bool endsInFew = !isTeen && count % 10 >= 2 && count % 10 <= 4;
    if (language == Language::ru && !isTeen && count % 10 == 1) return unit.one;
    if (language == Language::ru || (language == Language::pl && count != 1))
        return endsInFew ? unit.few : unit.many;
    return count == 1 ? unit.one : unit.many;
}

}  // namespace

std::string timeAgo(double seconds, Language language) {
    constexpr std::array<double, 4> lengths{1.0, 60.0, 3600.0, 86400.0};
    constexpr double mostSeconds = 1e12;
    const Wording& wording = wordings.at(indexOf(language));
    if (!(seconds >= 1.0)) return std::string(wording.now);
    std::size_t unit = lengths.size() - 1;
    while (lengths[unit] > seconds) --unit;
    const auto count = static_cast<std::uint64_t>(std::min(seconds, mostSeconds) / lengths[unit]);
    return fmt::format("{}{}{}{}", wording.before, count,
                       formOf(wording.units[unit], count, language), wording.after);
}

}  // namespace vtx
