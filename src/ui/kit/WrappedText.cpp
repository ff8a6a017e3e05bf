// SPDX-License-Identifier: MIT
#include "ui/kit/WrappedText.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace vtx::wrapped {

namespace {
// Narrower than this, a text would become a column of letters.
constexpr int leastWidth = 24;
}  // namespace

QStringList lines(const QString& text, TextRole role, int width) {
    QString broken = text;
    broken.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout layout(broken, fontFor(role));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList found;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid() && !text.isEmpty();
         line = layout.createLine()) {
        line.setLineWidth(std::max(leastWidth, width));
        found.append(broken.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    return found;
}

int height(const QString& text, TextRole role, int width) {
    return static_cast<int>(lines(text, role, width).size()) * lineHeight(role);
}

void draw(QPainter& painter, const QRect& rect, const QString& text, TextRole role,
          Qt::Alignment alignment) {
    QRect line(rect.left(), rect.top(), rect.width(), lineHeight(role));
    for (const QString& one : lines(text, role, rect.width())) {
        drawText(painter, line, one, role, alignment | Qt::AlignVCenter);
        line.translate(0, line.height());
    }
}

}  // namespace vtx::wrapped
