#pragma once

#include "forms/disc_pictures.h"

#include <QFont>
#include <QImage>
#include <QRectF>
#include <QWidget>
#include <variant>
#include <vector>

namespace stoikal {

/// A surface for drawings with a coordinate scale of the user's own. What is
/// drawn stays until `Clear` and is shown smooth and sharp at every resolution.
/// Beside it there is an exact twin without antialiasing, one pixel a logical
/// pixel, from which colours are read back. It keeps the list of what was drawn,
/// not pixels: both pictures are made from it when they are needed.
class PictureSurface : public QWidget
{
    Q_OBJECT

public:
    explicit PictureSurface(QWidget* parent = nullptr);

    /// The rectangle of user coordinates that the surface shows, y downwards or,
    /// with a negative height, upwards. Without a call: twips, 15 to a pixel.
    void SetScale(const QPointF& upperLeft, const QPointF& lowerRight);
    /// Back to twips.
    void ResetScale();

    void SetBackColour(const QColor& colour);
    QColor BackColour() const { return m_backColour; }

    /// Takes away all that was drawn.
    void Clear();

    void DrawLine(const QPointF& from, const QPointF& to, const QColor& colour, double widthPixels = 1,
                  Qt::PenStyle style = Qt::SolidLine);
    void FillBox(const QRectF& box, const QColor& colour);
    /// A disc with a radius in user units along x.
    void DrawDisc(const QPointF& centre, double radius, const QColor& colour, const QString& symbol = {});
    /// A text with its upper left corner at the place.
    void DrawText(const QPointF& upperLeft, const QString& text, const QColor& colour, const QFont& font);

    double TextWidth(const QString& text, const QFont& font) const; ///< in user units
    double TextHeight(const QFont& font) const; ///< in user units

    QPointF ToUser(const QPointF& pixel) const;
    QPointF ToPixel(const QPointF& user) const;

    /// The colour drawn at a pixel of the surface, exactly as it was given;
    /// an invalid colour outside.
    QColor ColourAt(const QPoint& pixel) const;

    /// What is shown, as an image at a device pixel ratio.
    QImage Picture(double devicePixelRatio = 1) const;

    /// How many discs are on the surface.
    qsizetype DiscCount() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Line {
        QPointF from, to;
        QColor colour;
        double width;
        Qt::PenStyle style;
    };
    struct Box {
        QRectF box;
        QColor colour;
    };
    struct Disc {
        QPointF centre;
        double radius;
        QRgb colour;
        QString symbol;
    };
    struct Text {
        QPointF upperLeft;
        QString text;
        QColor colour;
        QFont font;
    };
    using Item = std::variant<Line, Box, Disc, Text>;

    void Add(Item item);
    void Render(QPainter& painter, bool smooth) const;
    void RenderItem(QPainter& painter, const Line& line, bool smooth) const;
    void RenderItem(QPainter& painter, const Box& box, bool smooth) const;
    void RenderItem(QPainter& painter, const Disc& disc, bool smooth) const;
    void RenderItem(QPainter& painter, const Text& text, bool smooth) const;
    QPointF Scale() const; ///< user units per pixel

    std::vector<Item> m_items;
    QColor m_backColour = Qt::white;
    bool m_hasScale = false;
    QPointF m_upperLeft;
    QPointF m_lowerRight;
    mutable DiscPictures m_discPictures;
    mutable QImage m_twin; ///< null until a colour is asked for
};

} // namespace stoikal
