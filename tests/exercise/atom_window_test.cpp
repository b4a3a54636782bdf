#include "exercise/windows/atom_window.h"
#include "forms/window_events.h"

#include "base/settings_store.h"
#include "exercise/atom_list.h"
#include "forms/picture_surface.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QColor kPaleGreen(0xC0, 0xFF, 0xC0);
const QColor kHydrogen(0xFF, 0xFF, 0xFF);

AtomList Atoms(const QString& molecule, int coefficient = 1)
{
    AtomList list;
    const std::vector<SpeciesInput> species{{molecule, coefficient}};
    ComputeComposition(list, species);
    return list;
}

/// The reactants' atoms, 400 x 200 pixels. The disc of hydrogen has a radius of
/// 0.79 * 150 = 118.5 twips at scale 1; the first disc of a window has its centre
/// at its radius and 50 twips from the left and from the top:
///
///     scale  radius          centre
///     1      119 tw,  7.9 px  169 tw, 11.3 px
///     2      237 tw, 15.8 px  287 tw, 19.1 px
///     4      474 tw, 31.6 px  524 tw, 34.9 px
class AtomWindowTest : public testing::Test
{
protected:
    AtomWindowTest() { Show(); }

    void Show()
    {
        window.resize(400, 200);
        window.show();
        Settle();
    }

    PictureSurface& Surface() { return Control<PictureSurface>(window, "picAtomes"); }
    QLabel& Bubble() { return Control<QLabel>(window, "lblInfo_bulle"); }
    QColor At(int x, int y) { return Surface().ColourAt({x, y}); }

    void MoveMouse(const QPoint& place)
    {
        const QPointF at(place);
        QMouseEvent move(QEvent::MouseMove, at, Surface().mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&Surface(), &move);
    }

    void WriteOption(const QString& key, const QString& value)
    {
        EXPECT_TRUE(settings.Write(u"Options"_s, key, value));
    }

    QTemporaryDir folder;
    QString file = folder.filePath(u"ConfEQU_dupont.ini"_s);
    SettingsStore store;
    Settings settings{store, file};
    frmReactif window{settings, nullptr};
};

/// A place on the first disc of hydrogen at scale 4, left of its letter.
constexpr QPoint kOnHydrogen(12, 35);

} // namespace

TEST_F(AtomWindowTest, HasTheCaptionOfItsSide)
{
    const frmProduit products(settings, nullptr);

    EXPECT_EQ(window.windowTitle(), u"Atomes des réactifs"_s);
    EXPECT_EQ(window.objectName(), u"frmReactif"_s);
    EXPECT_EQ(products.windowTitle(), u"Atomes des produits"_s);
    EXPECT_EQ(products.objectName(), u"frmProduit"_s);
}

TEST_F(AtomWindowTest, HasTheColourOfItsSide)
{
    frmProduit products(settings, nullptr);

    EXPECT_EQ(At(200, 100), kPaleGreen);
    EXPECT_EQ(Control<PictureSurface>(products, "picAtomes").BackColour(), QColor(0x80, 0xFF, 0xFF));
}

TEST_F(AtomWindowTest, TakesAChangedColourOfItsSide)
{
    WriteOption(u"BackGround Color Reactifs"_s, u"255"_s); // red is the low byte
    window.RefreshColour();

    EXPECT_EQ(At(200, 100), QColor(255, 0, 0));
}

TEST_F(AtomWindowTest, DrawsADiscForEachAtomAtEachScale)
{
    for (int scale = 1; scale <= 4; ++scale) {
        window.ShowAtoms(Atoms(u"Ca(OH)2"_s, 3), scale);
        EXPECT_EQ(Surface().DiscCount(), 15) << scale; // Ca 3, O 6, H 6
    }
}

TEST_F(AtomWindowTest, DrawsAnewAndNotOnTop)
{
    window.ShowAtoms(Atoms(u"H2O"_s, 9), 1);
    window.ShowAtoms(Atoms(u"H2O"_s), 1);

    EXPECT_EQ(Surface().DiscCount(), 3);
}

TEST_F(AtomWindowTest, DrawsItsDiscsLargerAtLargerScales)
{
    window.ShowAtoms(Atoms(u"H"_s), 1);
    EXPECT_EQ(At(5, 11), kHydrogen); // 6.3 from the centre, 7.9 is the radius
    EXPECT_EQ(At(11, 22), kPaleGreen); // 10.7 from the centre

    window.ShowAtoms(Atoms(u"H"_s), 2);
    EXPECT_EQ(At(7, 19), kHydrogen); // 12.1 from the centre, 15.8 is the radius
    EXPECT_EQ(At(38, 19), kPaleGreen); // 18.9

    window.ShowAtoms(Atoms(u"H"_s), 4);
    EXPECT_EQ(At(60, 35), kHydrogen); // 25.1 from the centre, 31.6 is the radius
    EXPECT_EQ(At(70, 35), kPaleGreen); // 35.1
}

TEST_F(AtomWindowTest, DrawsEachKindInTheColourOfItsElement)
{
    window.ShowAtoms(Atoms(u"HO"_s), 4);

    EXPECT_EQ(At(12, 35), kHydrogen);
    // Oxygen 0D0DFF, blue in the high byte. The hydrogen ends at 2 * 474 twips
    // and 50 of margin: what stands right of it is the oxygen's.
    EXPECT_EQ(At(76, 35), QColor(0xFF, 0x0D, 0x0D));
}

TEST_F(AtomWindowTest, BreaksIntoRowsAnewWhenItsWidthChanges)
{
    // Four discs of 2 * 474 + 50 = 998 twips: one row in 6000 - 50, two in 2250 - 50.
    window.ShowAtoms(Atoms(u"H4"_s), 4);
    EXPECT_EQ(At(250, 35), kHydrogen); // the fourth, centred at 4 * 998 - 474 = 3518 twips, 234.5 px
    EXPECT_EQ(At(12, 101), kPaleGreen);

    window.resize(150, 200);
    Settle();

    EXPECT_EQ(Surface().DiscCount(), 4);
    EXPECT_EQ(At(12, 35), kHydrogen);
    EXPECT_EQ(At(12, 101), kHydrogen); // second row at 524 + 474 + 524 = 1522 twips, 101.5 px
}

TEST_F(AtomWindowTest, ForgetsItsAtomsWhenItIsCleared)
{
    window.ShowAtoms(Atoms(u"H2O"_s), 4);
    window.Clear();
    EXPECT_EQ(Surface().DiscCount(), 0);
    EXPECT_EQ(At(12, 35), kPaleGreen);

    window.resize(150, 200);
    Settle();
    EXPECT_EQ(Surface().DiscCount(), 0);
}

TEST_F(AtomWindowTest, NamesTheElementUnderTheMouse)
{
    window.ShowAtoms(Atoms(u"H"_s), 4);
    EXPECT_FALSE(Bubble().isVisible());
    MoveMouse(kOnHydrogen);

    EXPECT_TRUE(Bubble().isVisible());
    EXPECT_EQ(Bubble().text(), u" hydrogène "_s);
}

TEST_F(AtomWindowTest, StandsTheBubbleAboveTheMouse)
{
    window.ShowAtoms(Atoms(u"H8"_s), 4); // five in the first row, three in the second
    MoveMouse({12, 101});

    ASSERT_TRUE(Bubble().isVisible());
    EXPECT_EQ(Bubble().x(), 12);
    EXPECT_EQ(Bubble().y(), 101 - Bubble().height());
}

TEST_F(AtomWindowTest, KeepsTheBubbleInTheWindow)
{
    window.ShowAtoms(Atoms(u"H8"_s), 4);
    MoveMouse({35, 8}); // near the upper edge

    ASSERT_TRUE(Bubble().isVisible());
    EXPECT_TRUE(Surface().rect().contains(Bubble().geometry()));
}

TEST_F(AtomWindowTest, NamesNothingOnTheBackColour)
{
    window.ShowAtoms(Atoms(u"H"_s), 4);
    MoveMouse({200, 150});

    EXPECT_FALSE(Bubble().isVisible());
}

TEST_F(AtomWindowTest, NamesNothingOnALetterOfASymbol)
{
    window.ShowAtoms(Atoms(u"H"_s), 4);
    QPoint letter(-1, -1);
    for (int y = 20; y < 50; ++y) {
        for (int x = 20; x < 50; ++x) {
            if (At(x, y) == QColor(Qt::black))
                letter = QPoint(x, y);
        }
    }
    ASSERT_GE(letter.x(), 0) << "no letter on the disc";
    MoveMouse(letter);

    EXPECT_FALSE(Bubble().isVisible());
}

TEST_F(AtomWindowTest, HasNoOtherColourThanTheDiscTheLetterAndTheBack)
{
    window.ShowAtoms(Atoms(u"H"_s), 4);

    for (int y = 0; y < 80; ++y) {
        for (int x = 0; x < 80; ++x) {
            const QColor colour = At(x, y);
            EXPECT_TRUE(colour == kHydrogen || colour == kPaleGreen || colour == QColor(Qt::black))
                << x << ", " << y << " " << colour.name().toStdString();
        }
    }
}

TEST_F(AtomWindowTest, NamesNothingOutside)
{
    window.ShowAtoms(Atoms(u"H"_s), 4);
    MoveMouse({-3, 35});

    EXPECT_FALSE(Bubble().isVisible());
}

TEST_F(AtomWindowTest, NamesNothingWhenTheSettingIsZero)
{
    WriteOption(u"Show info-bulles at Startup"_s, u"0"_s);
    window.ShowAtoms(Atoms(u"H"_s), 4);
    MoveMouse(kOnHydrogen);
    EXPECT_FALSE(Bubble().isVisible());

    WriteOption(u"Show info-bulles at Startup"_s, u"1"_s);
    MoveMouse(kOnHydrogen);
    EXPECT_TRUE(Bubble().isVisible());
}

TEST_F(AtomWindowTest, NamesNothingOnADiscOfTheBackColour)
{
    WriteOption(u"BackGround Color Reactifs"_s, u"16777215"_s); // white, as hydrogen
    window.RefreshColour();
    window.ShowAtoms(Atoms(u"H"_s), 4);
    MoveMouse(kOnHydrogen);

    EXPECT_FALSE(Bubble().isVisible());
}

TEST_F(AtomWindowTest, CallsAnUnknownAtomDarmstadtium)
{
    // The colour of no element is the colour of the last nine, the first of
    // which answers for all. Radius 1.43 * 150 * 2 = 429 twips, centre 479: 31.9 px.
    window.ShowAtoms(Atoms(u"Xx"_s), 2);
    MoveMouse({10, 32});

    EXPECT_TRUE(Bubble().isVisible());
    EXPECT_EQ(Bubble().text(), u"darmstadtium"_s);
}

TEST_F(AtomWindowTest, CallsAColourOfNoElementUnknown)
{
    Surface().FillBox(QRectF(0, 0, 300, 300), QColor(1, 2, 3));
    MoveMouse({10, 10});

    EXPECT_TRUE(Bubble().isVisible());
    EXPECT_EQ(Bubble().text(), u" (inconnu) "_s);
}

TEST_F(AtomWindowTest, TellsOfTheMouseBeforeItShowsItsBubble)
{
    const WindowEvents events;
    window.ShowAtoms(Atoms(u"H"_s), 4);
    int moved = 0;
    QObject::connect(&events, &WindowEvents::PointerMoved, &window, [this, &moved] {
        ++moved;
        window.HideBubble();
    });

    MoveMouse(kOnHydrogen);
    EXPECT_TRUE(Bubble().isVisible());
    MoveMouse({200, 150}); // who hears of the mouse hides the bubbles
    EXPECT_FALSE(Bubble().isVisible());
    EXPECT_EQ(moved, 2);
}

TEST_F(AtomWindowTest, HidesItsBubbleWhenTheMouseLeaves)
{
    window.ShowAtoms(Atoms(u"H"_s), 4);
    MoveMouse(kOnHydrogen);
    ASSERT_TRUE(Bubble().isVisible());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Surface(), &leave);

    EXPECT_FALSE(Bubble().isVisible());
}

TEST_F(AtomWindowTest, TellsOfAReleasedMouseButton)
{
    int released = 0;
    QObject::connect(&window, &AtomWindow::MouseReleasedOver, &window, [&released] { ++released; });
    QTest::mouseClick(&Surface(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 150));

    EXPECT_EQ(released, 1);
}

TEST_F(AtomWindowTest, TellsItsAtomsInWordsForReaders)
{
    window.ShowAtoms(Atoms(u"H2O"_s, 2), 1);
    EXPECT_EQ(Surface().accessibleDescription(), u"4 hydrogène, 2 oxygène"_s);

    window.Clear();
    EXPECT_EQ(Surface().accessibleDescription(), u""_s);
}

} // namespace stoikal
