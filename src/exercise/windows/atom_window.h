#pragma once

#include "exercise/side_colours.h"
#include "forms/form.h"

#include <QColor>
#include <vector>

class QLabel;

namespace stoikal {

struct AtomList;
class PictureSurface;
class Settings;

/// The atoms of one side as rows of coloured discs, with a bubble that names
/// the element under the mouse. The two windows are mirror images.
class AtomWindow : public Form
{
    Q_OBJECT

public:
    AtomWindow(const QString& name, const QString& caption, Side side, const Settings& settings,
               QWidget* parent);

    /// Draws the atoms of a side; scale 1 to 4 for 50 to 200 %.
    void ShowAtoms(const AtomList& atoms, int scale);
    void Clear();
    void HideBubble();
    /// Takes the side's colour from the settings again.
    void RefreshColour();

Q_SIGNALS:
    void MouseReleasedOver();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct DrawnKind {
        QString symbol;
        QColor colour;
        double ballRadius = 0;
        int count = 0;
    };

    void DrawAtoms();
    void ShowBubble(const QPoint& mouse);

    Side m_side;
    const Settings& m_settings;
    std::vector<DrawnKind> m_kinds;
    int m_scale = 2;

    PictureSurface* picAtomes;
    QLabel* lblInfo_bulle;
};

/// The atoms of the reactants.
class frmReactif final : public AtomWindow
{
    Q_OBJECT

public:
    frmReactif(const Settings& settings, QWidget* parent);
};

/// The atoms of the products.
class frmProduit final : public AtomWindow
{
    Q_OBJECT

public:
    frmProduit(const Settings& settings, QWidget* parent);
};

} // namespace stoikal
