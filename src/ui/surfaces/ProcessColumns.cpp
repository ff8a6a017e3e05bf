// SPDX-License-Identifier: MIT
#include "ui/surfaces/ProcessColumns.h"

#include <QPainter>
#include <array>

#include "ui/kit/Metrics.h"
#include "ui/kit/Type.h"
#include "ui/models/ProcessTabModel.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {

struct Column {
    std::string_view title;
    QRect ProcessColumnPlaces::* place;
    ColorToken color;
};

constexpr std::array columns{
    Column{processTexts::name, &ProcessColumnPlaces::name, ColorToken::text3},
    Column{processTexts::cpu, &ProcessColumnPlaces::cpu, ColorToken::text2},
    Column{processTexts::memory, &ProcessColumnPlaces::memory, ColorToken::text3},
    Column{processTexts::pid, &ProcessColumnPlaces::pid, ColorToken::text3},
};

}  // namespace

ProcessColumnPlaces ProcessColumnPlaces::in(const QRect& row) {
    int right = row.right() + 1 - metrics::contentInset;
    const auto take = [&right, &row](int width) {
        right -= width;
        return QRect(right, row.top(), width, row.height());
    };
    ProcessColumnPlaces places;
    places.action = take(metrics::processActionWidth);
    places.pid = take(metrics::processPIDWidth);
    places.memory = take(metrics::processMemoryWidth);
    places.cpu = take(metrics::processCPUWidth);
    const int left = row.left() + metrics::contentInset;
    places.name = QRect(left, row.top(), right - left, row.height());
    return places;
}

ProcessColumns::ProcessColumns(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ProcessColumns::sizeHint() const {
    return {metrics::popoverWidth, metrics::processRowHeight};
}

int ProcessColumns::partCount() const { return static_cast<int>(columns.size()); }

AccessiblePart ProcessColumns::part(int index) const {
    return {.name = qt(columns.at(static_cast<std::size_t>(index)).title),
            .value = {},
            .role = QAccessible::ColumnHeader};
}

QRect ProcessColumns::partRect(int index) const {
    return mirrored(ProcessColumnPlaces::in(rect()).*
                    columns.at(static_cast<std::size_t>(index)).place);
}

void ProcessColumns::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (int i = 0; i < partCount(); ++i) {
        const Column& column = columns.at(static_cast<std::size_t>(i));
        painter.setPen(color(column.color));
        drawText(painter, partRect(i), qt(column.title), TextRole::label,
                 i == 0 ? atStart() : atEnd());
    }
}

}  // namespace vtx
