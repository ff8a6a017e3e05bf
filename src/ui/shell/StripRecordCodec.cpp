// SPDX-License-Identifier: MIT
#include "ui/shell/StripRecordCodec.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cmath>

namespace vtx::StripRecordCodec {

namespace {

using Side = StripRecord::Side;

template <class Value>
struct Word {
    const char* text;
    Value value;
};

constexpr std::array<Word<DockEdge>, 5> edges{{{"none", DockEdge::none},
                                               {"top", DockEdge::top},
                                               {"bottom", DockEdge::bottom},
                                               {"left", DockEdge::left},
                                               {"right", DockEdge::right}}};
constexpr std::array<Word<Side>, 2> sides{{{"left", Side::left}, {"right", Side::right}}};

template <class Table, class Value>
QString wordOf(const Table& table, Value value) {
    for (const auto& word : table)
        if (word.value == value) return QString::fromLatin1(word.text);
    return {};
}

template <class Value, std::size_t count>
std::optional<Value> valueOf(const std::array<Word<Value>, count>& table, const QJsonValue& text) {
    for (const auto& word : table)
        if (text.toString() == QLatin1String(word.text)) return word.value;
    return std::nullopt;
}

std::optional<int> distance(const QJsonValue& number) {
    constexpr double limit = 100'000;
    if (!number.isDouble() || !std::isfinite(number.toDouble())) return std::nullopt;
    return static_cast<int>(std::clamp(number.toDouble(), 0.0, limit));
}

}  // namespace

Data encode(const StripRecord& record) {
    const QJsonObject object{{"screen", record.screen},
                             {"edge", wordOf(edges, record.edge)},
                             {"side", wordOf(sides, record.side)},
                             {"gap", record.gap},
                             {"top", record.top}};
    return toData(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString());
}

std::optional<StripRecord> decode(std::span<const std::byte> stored) {
    constexpr std::size_t longest = 4096;
    if (stored.size() > longest) return std::nullopt;
    const std::string_view text = asText(stored);
    const auto object =
        QJsonDocument::fromJson(QByteArray(text.data(), static_cast<qsizetype>(text.size())))
            .object();

    const auto edge = valueOf(edges, object["edge"]);
    const auto side = valueOf(sides, object["side"]);
    const auto gap = distance(object["gap"]);
    const auto top = distance(object["top"]);
    if (!object["screen"].isString() || !edge || !side || !gap || !top) return std::nullopt;
    return StripRecord{object["screen"].toString(), *edge, *side, *gap, *top};
}

}  // namespace vtx::StripRecordCodec
