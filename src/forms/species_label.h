#pragma once

#include "base/character_height.h"

#include <QLabel>
#include <vector>

namespace stoikal {

/// A species on one line with true sub- and superscripts. Its text is the plain
/// one ("Fe3+"); the height of each character is given beside it.
class SpeciesLabel : public QLabel
{
    Q_OBJECT

public:
    using Height = CharacterHeight;

    explicit SpeciesLabel(QWidget* parent = nullptr);

    /// A text and the height of each of its characters.
    void SetSpecies(const QString& text, const std::vector<Height>& heights);

    /// The width of the text in pixels as it is drawn.
    double DrawnWidth() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Run {
        QString text;
        Height height;
    };
    QFont FontOf(Height height) const;
    static QString Drawn(const Run& run);

    std::vector<Run> m_runs;
};

} // namespace stoikal
