#include "exercise/equation_bench.h"
#include "forms/species_label.h"

#include <QFontMetrics>
#include <algorithm>
#include <utility>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// What of the window is seen and where, for each kind of run.
class FrmEquationLayout : public EquationBench
{
protected:
    QLabel& Instruction() { return Control<QLabel>(*window, "lblInstruction"); }

    /// The names of the controls that Tab passes, from the first box on.
    QStringList TabOrder()
    {
        QStringList names;
        Box(0).setFocus();
        do {
            names << window->focusWidget()->objectName();
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        } while (!names.contains(window->focusWidget()->objectName()));
        return names;
    }

    /// Which boxes are seen: one letter a slot, the hidden ones as ".".
    QString SeenSlots()
    {
        QString seen;
        for (int slot = 0; slot < 6; ++slot) {
            EXPECT_EQ(Box(slot).isVisible(), Species(slot).isVisible()) << slot;
            seen += Box(slot).isVisible() ? u'x' : u'.';
        }
        return seen;
    }

    QString SeenPluses()
    {
        QString seen;
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(PlusLabel(i).isVisible(), Plus(i).isVisible()) << i;
            seen += Plus(i).isVisible() ? u'+' : u'.';
        }
        return seen;
    }
};

const QByteArray kWater = "H2+O2=H2O/2,1,2\n";
const QByteArray kSixLong = "Al2(SO4)3(H2O)18{4-}+(NH4)2Al2(SO4)4{2-}+Fe2(SO4)3(OH)2{3+}"
                            "=Al2(SO4)3(H2O)18{4-}+(NH4)2Al2(SO4)4{2-}+Fe2(SO4)3(OH)2{3+}/1,1,1,1,1,1\n";
const QByteArray kProgress = "H2<g>+O2<g>=H2O<l>/2,1,2#Q1,Q2,Q0\nC+O2=CO2/1,1,1\n";

} // namespace

TEST_F(FrmEquationLayout, HidesTheBoxesOfEmptySlots)
{
    Open(kWater);
    EXPECT_EQ(SeenSlots(), u"xx.x.."_s);
    EXPECT_EQ(SeenPluses(), u"+..."_s);
}

TEST_F(FrmEquationLayout, ShowsNoPlusForOneReactantAndOneProduct)
{
    Open("O2=O3/3,2\n");
    EXPECT_EQ(SeenSlots(), u"x..x.."_s);
    EXPECT_EQ(SeenPluses(), u"...."_s);
}

TEST_F(FrmEquationLayout, ShowsAllSixBoxesAgain)
{
    Open("O2=O3/3,2\nK+Na+Li=K+Na+Li/1,1,1,1,1,1\n");
    Answer({u"3"_s, u""_s, u""_s, u"2"_s});

    EXPECT_EQ(SeenSlots(), u"xxxxxx"_s);
    EXPECT_EQ(SeenPluses(), u"++++"_s);
}

TEST_F(FrmEquationLayout, TakesEmptySlotsOutOfTheTabOrder)
{
    Open("O2=O3/3,2\nH2+O2=H2O/2,1,2\n");
    EXPECT_EQ(TabOrder(), (QStringList{u"txtCoef(0)"_s, u"txtCoef(3)"_s, u"cmdOther"_s}));

    Answer({u"3"_s, u""_s, u""_s, u"2"_s});
    Tick(Flash());
    EXPECT_EQ(TabOrder(), (QStringList{u"txtCoef(0)"_s, u"txtCoef(1)"_s, u"txtCoef(3)"_s, u"cmdOther"_s}));
}

TEST_F(FrmEquationLayout, IsLowForABalancingFile)
{
    Open(kWater);

    EXPECT_EQ(window->height(), 135); // 2025 twips
    EXPECT_TRUE(Other().isVisible());
    EXPECT_EQ(Other().y(), 56); // 840 twips
    EXPECT_EQ(Box(0).x(), 7); // 100 twips
    EXPECT_FALSE(Next().isVisible());
    EXPECT_FALSE(Instruction().isVisible());
    EXPECT_TRUE(Score().isVisible());
    EXPECT_EQ(Control<QLabel>(*window, "lblNomScore").text(), u"Score :"_s);
    EXPECT_EQ(Control<QLabel>(*window, "lblNomScore").x(), 7);
}

TEST_F(FrmEquationLayout, StandsSpeciesBehindSpecies)
{
    Open(kWater);
    const QWidget& arrow = Control<QWidget>(*window, "imgFleche");

    EXPECT_LT(Box(0).geometry().right(), Species(0).x());
    EXPECT_LE(Species(0).geometry().right(), Plus(0).x());
    EXPECT_LE(Plus(0).geometry().right(), Box(1).x());
    EXPECT_LE(Species(1).geometry().right(), arrow.x());
    EXPECT_LE(arrow.geometry().right(), Box(3).x());
    EXPECT_LE(Species(3).geometry().right() + 7, window->width());
}

TEST_F(FrmEquationLayout, HasRoomForTheWholeTextOfEachSpecies)
{
    Open("C12H22O11+KMnO4+Ca(OH)2=CO2+Fe2(SO4)3+CH3COOH/1,1,1,1,1,1\n");

    for (int slot = 0; slot < 6; ++slot) {
        auto& species = static_cast<SpeciesLabel&>(Species(slot));
        QFont small = species.font();
        small.setPointSize(8);
        const double told = 1.4 * QFontMetricsF(small).horizontalAdvance(species.text());
        // What is drawn in larger type than it is measured in finds its room too.
        EXPECT_NEAR(species.width(), std::max(told, species.DrawnWidth() + 4), 2.0) << slot;
    }
}

TEST_F(FrmEquationLayout, StandsThePlusMidway)
{
    Open("NaOH+KMnO4+HCl=Fe2O3+MnCl2+NaCl/1,1,1,1,1,1\n");

    for (const auto& [plus, before] : {std::pair(0, 0), std::pair(1, 1), std::pair(2, 3), std::pair(3, 4)}) {
        auto& species = static_cast<SpeciesLabel&>(Species(before));
        const double end = species.x() + 2 + species.DrawnWidth();
        const int middle = Plus(plus).geometry().center().x();
        const int next = Box(before + 1).x();
        EXPECT_NEAR(middle - end, next - middle, 8) << plus;
    }
}

TEST_F(FrmEquationLayout, ShowsSixLongSpeciesWholeOnANarrowScreen)
{
    for (const int across : {1366, 1024, 800}) {
        places.LargeurUtile = FromPixels(across) - 50;
        Open(kSixLong);

        EXPECT_LE(window->width(), across) << across;
        int end = 0;
        for (int slot = 0; slot < 6; ++slot) {
            auto& species = static_cast<SpeciesLabel&>(Species(slot));
            EXPECT_GE(species.width(), species.DrawnWidth() + 2) << across << ", " << slot;
            const int digits = QFontMetrics(Box(slot).font()).horizontalAdvance(u"00"_s);
            EXPECT_GE(Box(slot).width(), digits + 10) << across << ", " << slot;
            EXPECT_GE(Box(slot).x(), end) << across << ", " << slot;
            end = species.geometry().right();
        }
        EXPECT_LE(end, window->width()) << across;
    }
}

TEST_F(FrmEquationLayout, TakesTheUsualTypeAgainAfterALongEquation)
{
    places.LargeurUtile = FromPixels(800) - 50;
    Open(kSixLong + kWater);
    const QFont small = Species(0).font();
    EXPECT_EQ(Box(0).font(), small);
    Answer({}); // empty boxes count 1
    ASSERT_EQ(window->windowTitle(), u"Equation n°2"_s);

    // Formulas are two points larger than the words.
    EXPECT_LT(small.pointSizeF(), window->font().pointSizeF() + 2);
    EXPECT_EQ(Species(0).font().pointSizeF(), window->font().pointSizeF() + 2);
    EXPECT_EQ(Box(0).font().pointSizeF(), window->font().pointSizeF() + 2);
}

TEST_F(FrmEquationLayout, StandsInTheMiddleAtTheLowerEdge)
{
    Open(kWater);

    EXPECT_EQ(window->y(), 603); // 10770 - 2025 + 300 = 9045 twips
    EXPECT_NEAR(window->x() + window->width() / 2.0, 15310 / 2.0 / 15, 1.0);
    EXPECT_NEAR(Other().x() + Other().width() / 2.0, window->width() / 2.0, 1.0);
}

TEST_F(FrmEquationLayout, GivesTheCoefficientsInFreeSimulation)
{
    Open(kProgress, RunKind::FreeSimulation);

    EXPECT_EQ(Boxes(), u"2|1||2||"_s);
    for (const int slot : {0, 1, 3})
        EXPECT_FALSE(Box(slot).isEnabled()) << slot;
    EXPECT_EQ(Totals(run.Reactants()), u"H4 O2"_s);
    EXPECT_FALSE(Other().isVisible());
}

TEST_F(FrmEquationLayout, ShowsNoScoreInFreeSimulation)
{
    Open(kProgress, RunKind::FreeSimulation);

    EXPECT_FALSE(Score().isVisible());
    EXPECT_FALSE(Control<QLabel>(*window, "lblNomScore").isVisible());
    EXPECT_EQ(Instruction().text(), u"Faites varier les quantités de matière"_s);
    EXPECT_TRUE(Instruction().isVisible());
}

TEST_F(FrmEquationLayout, IsHighForAProgressFile)
{
    Open(kProgress, RunKind::FreeSimulation);

    EXPECT_EQ(window->height(), 442); // 6630 twips
    EXPECT_EQ(window->y(), 296); // 10770 - 6630 + 300 = 4440 twips
    EXPECT_EQ(Box(0).x(), 104); // 1560 twips
    EXPECT_EQ(Next().y(), 372); // 5580 twips
}

TEST_F(FrmEquationLayout, IsHighForALineWithoutDataInAProgressFileToo)
{
    Open(kProgress, RunKind::FreeSimulation);
    Click(Next());

    EXPECT_EQ(window->windowTitle(), u"Equation n°2"_s);
    EXPECT_EQ(window->height(), 442);
    EXPECT_EQ(Boxes(), u"1|1||1||"_s);
    EXPECT_FALSE(Box(0).isEnabled());
}

TEST_F(FrmEquationLayout, LeadsOnInFreeSimulationByTheButton)
{
    Open(kProgress, RunKind::FreeSimulation);
    EXPECT_TRUE(Next().isVisible());
    EXPECT_EQ(Next().text(), u"Equation suivante"_s);
    EXPECT_EQ(Next().toolTip(), u"Pour passer à l'équation suivante"_s);

    Click(Next());
    EXPECT_EQ(ends, 0);
    Click(Next());

    EXPECT_EQ(ends, 1);
    EXPECT_EQ(run.State().Score, 0);
    EXPECT_TRUE(Journal().isEmpty());
}

TEST_F(FrmEquationLayout, GivesTheCoefficientsInASeriesAndShowsTheScore)
{
    Open(kProgress, RunKind::Series);

    EXPECT_EQ(Boxes(), u"2|1||2||"_s);
    EXPECT_FALSE(Box(0).isEnabled());
    EXPECT_EQ(window->height(), 442);
    EXPECT_TRUE(Score().isVisible());
    EXPECT_EQ(Score().text(), u"0"_s);
    EXPECT_EQ(Instruction().text(), u"Calculez les masses molaires moléculaires"_s);
    EXPECT_FALSE(Next().isVisible());
    EXPECT_FALSE(Other().isVisible());
    EXPECT_EQ(run.State().MaxScore, 10); // coefficients and data
}

TEST_F(FrmEquationLayout, CentresTheInstructionRightOfTheScore)
{
    Open(kProgress, RunKind::Series);

    const QRect score = Score().geometry();
    EXPECT_GT(Instruction().x(), score.right());
    EXPECT_LE(Instruction().geometry().right(), window->width());
    EXPECT_TRUE(Instruction().alignment().testFlag(Qt::AlignHCenter));
}

TEST_F(FrmEquationLayout, ShowsTheStatesInAProgressFileOnly)
{
    Open(kProgress, RunKind::Series);
    EXPECT_EQ(Species(0).text(), u"H2 (g)"_s);
    EXPECT_EQ(Species(3).text(), u"H2O (l)"_s);

    Open("H2<g>+O2<g>=H2O<l>/2,1,2\n");
    EXPECT_EQ(Species(0).text(), u"H2"_s);
}

TEST_F(FrmEquationLayout, ReadsTheEquationForTheClipboard)
{
    Open(kWater);
    Fill({u"2"_s, u""_s, u""_s, u"4"_s});

    EXPECT_EQ(window->EquationText(), u"2H2 + O2---->4H2O"_s);
}

TEST_F(FrmEquationLayout, ReadsAllSixSpeciesForTheClipboard)
{
    Open("K+Na+Li=K+Na{+}+Li/1,1,1,1,1,1\n");
    Fill({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s});

    EXPECT_EQ(window->EquationText(), u"1K + 2Na + 3Li---->4K + 5Na+ + 6Li"_s);
}

TEST_F(FrmEquationLayout, ReadsAnEmptySecondReactantForTheClipboard)
{
    Open("CaCO3=CaO+CO2/1,1,1\n");
    Fill({u"3"_s});

    EXPECT_EQ(window->EquationText(), u"3CaCO3 + ---->CaO + CO2"_s);
}

TEST_F(FrmEquationLayout, TellsOfItsBoxes)
{
    Open(kWater);

    for (int slot = 0; slot < 6; ++slot) {
        EXPECT_EQ(Box(slot).toolTip(),
                  u"Saisir les coefficients corrects afin d'équilibrer l'équation chimique"_s);
        EXPECT_EQ(Box(slot).maxLength(), 2);
    }
}

TEST_F(FrmEquationLayout, NamesItsControlsForReaders)
{
    Open("Fe{3+}+Cu=Fe{2+}+Cu{2+}/2,1,2,1\n");

    EXPECT_EQ(window->accessibleName(), u"Equation n°1"_s);
    EXPECT_EQ(Box(0).accessibleName(), u"Coefficient du réactif 1"_s);
    EXPECT_EQ(Box(2).accessibleName(), u"Coefficient du réactif 3"_s);
    EXPECT_EQ(Box(3).accessibleName(), u"Coefficient du produit 1"_s);
    EXPECT_EQ(Box(5).accessibleName(), u"Coefficient du produit 3"_s);
    EXPECT_EQ(Species(0).accessibleName(), u"Fe3+"_s);
    EXPECT_EQ(Score().accessibleName(), u"Score : 0"_s);
    EXPECT_EQ(Other().accessibleName(), u"Valider équation"_s);
    EXPECT_EQ(PlusLabel(0).accessibleName(), u"plus"_s);
    EXPECT_EQ(Control<QWidget>(*window, "imgFleche").accessibleName(), u"donne"_s);
}

} // namespace stoikal
