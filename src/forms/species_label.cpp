#include "forms/species_label.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace stoikal {

SpeciesLabel::SpeciesLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
}

void SpeciesLabel::SetSpecies(const QString& text, const std::vector<Height>& heights)
{
    Q_ASSERT(static_cast<size_t>(text.size()) == heights.size());
    m_runs.clear();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const Height height = heights[static_cast<size_t>(i)];
        if (m_runs.empty() || m_runs.back().height != height)
            m_runs.push_back({QString(), height});
        m_runs.back().text += text[i];
    }
    setText(text);
    update();
}

QFont SpeciesLabel::FontOf(Height height) const
{
    QFont small = font();
    if (height != Height::Line) {
        // Small enough to stand off the line, large enough to be read.
        const double line = font().pointSizeF();
        small.setPointSizeF(std::min(0.85 * line, std::max(7.5, 0.76 * line)));
    }
    return small;
}

QString SpeciesLabel::Drawn(const Run& run)
{
    return run.height == Height::Superscript ? QString(run.text).replace(QLatin1Char('-'), QChar(0x2212))
                                             : run.text;
}

double SpeciesLabel::DrawnWidth() const
{
    double width = 0;
    for (const Run& run : m_runs)
        width += QFontMetricsF(FontOf(run.height)).horizontalAdvance(Drawn(run));
    return width;
}

void SpeciesLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const QFontMetricsF metrics(font());
    const double baseLine = (height() + metrics.capHeight()) / 2;
    double x = 2;
    for (const Run& run : m_runs) {
        const QFont runFont = FontOf(run.height);
        const double offset = run.height == Height::Subscript ? metrics.capHeight() * 0.28
            : run.height == Height::Superscript               ? -metrics.capHeight() * 0.48
                                                              : 0;
        painter.setFont(runFont);
        // A raised hyphen would hardly be seen: the true minus sign is drawn for it.
        const QString drawn = Drawn(run);
        painter.drawText(QPointF(x, baseLine + offset), drawn);
        x += QFontMetricsF(runFont).horizontalAdvance(drawn);
    }
}

} // namespace stoikal
