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

    /// From now on what was drawn is kept as pixels too: a long drawing that grows
    /// line by line is shown without being painted again as a whole.
    void KeepPicture() { m_keepsPicture = true; }

    void SetBackColour(const QColor& colour);
    QColor BackColour() const { return m_backColour; }

    /// Takes away all that was drawn.
    void Clear();

    struct Line {
        QPointF from, to;
        QColor colour;
        double width; ///< in pixels
        Qt::PenStyle style;
    };
    struct Box {
        QRectF box;
        QColor colour;
        double rim; ///< pixels of an open box's rim; 0 when filled
    };
    struct Disc {
        QPointF centre;
        double radius;
        QRgb colour;
        QString symbol;
    };
    struct Text {
        QPointF place;
        QString text;
        QColor colour;
        QFont font;
        Qt::Alignment side; ///< which part of the text's box stands at the place
        int degrees; ///< counter-clockwise about the place
    };

    /// Level and upright lines lie on whole pixels of the screen.
    void DrawLine(const QPointF& from, const QPointF& to, const QColor& colour, double widthPixels = 1,
                  Qt::PenStyle style = Qt::SolidLine);
    /// A filled rectangle, its edges on whole pixels.
    void FillBox(const QRectF& box, const QColor& colour);
    /// The rim of a rectangle alone, inside its edges.
    void DrawOpenBox(const QRectF& box, const QColor& colour, double rimPixels = 1);
    /// A disc with a radius in user units along x.
    void DrawDisc(const QPointF& centre, double radius, const QColor& colour, const QString& symbol = {});
    /// A text whose upper left corner, or another part of its box, stands at the
    /// place: with `Qt::AlignRight | Qt::AlignVCenter` the middle of its right edge.
    void DrawText(const QPointF& place, const QString& text, const QColor& colour, const QFont& font,
                  Qt::Alignment side = Qt::AlignLeft | Qt::AlignTop);
    /// A text turned counter-clockwise by whole degrees about its upper left
    /// corner: at 90 it runs upwards from the place, to the right of it.
    void DrawTurnedText(const QPointF& start, const QString& text, const QColor& colour, const QFont& font,
                        int degrees);

    /// Where a `Rotator` prints next; the font is the widget's own.
    void MoveTo(const QPointF& place) { m_position = place; }
    QPointF CurrentPosition() const { return m_position; }
    /// The ink of a `Rotator`; black at first.
    void SetForeColour(const QColor& colour) { m_foreColour = colour; }
    QColor ForeColour() const { return m_foreColour; }

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

    /// All that was drawn of one kind, in the order of drawing and in user
    /// coordinates: `Drawn<PictureSurface::Line>()`.
    template <typename Kind>
    std::vector<Kind> Drawn() const
    {
        std::vector<Kind> found;
        for (const Item& item : m_items) {
            if (const auto* const drawn = std::get_if<Kind>(&item))
                found.push_back(*drawn);
        }
        return found;
    }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using Item = std::variant<Line, Box, Disc, Text>;

    /// Pixels, and how many of the items stand in them; null until they are needed.
    struct Pixels {
        QImage picture;
        std::size_t items = 0;
    };

    void Add(Item item);
    void AskForPaint();
    void ForgetPixels();
    QRect RoomOf(const Line& line) const; ///< the pixels that a line may touch
    void Render(QPainter& painter, bool smooth, std::size_t firstItem = 0) const;
    void BringUpToDate(Pixels& pixels, double devicePixelRatio, bool smooth) const;
    void RenderItem(QPainter& painter, const Line& line, bool smooth) const;
    void RenderItem(QPainter& painter, const Box& box, bool smooth) const;
    void RenderItem(QPainter& painter, const Disc& disc, bool smooth) const;
    void RenderItem(QPainter& painter, const Text& text, bool smooth) const;
    QPointF Scale() const; ///< user units per pixel

    std::vector<Item> m_items;
    QColor m_backColour = Qt::white;
    QColor m_foreColour = Qt::black;
    QPointF m_position;
    bool m_hasScale = false;
    QPointF m_upperLeft;
    QPointF m_lowerRight;
    mutable DiscPictures m_discPictures;
    bool m_paintIsAsked = false; ///< of the whole surface, and not painted yet
    bool m_keepsPicture = false;
    Pixels m_shown; ///< smooth, while pixels are kept
    mutable Pixels m_twin; ///< exact colours
};

} // namespace stoikal
