#include "chemistry/windows/frm_data_atomes.h"
#include "forms/window_events.h"

#include "chemistry/element_table.h"
#include "forms/colours.h"
#include "support/window_driver.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class FrmDataAtomes : public testing::Test
{
protected:
    void SetUp() override { Open(u','); }

    void Open(QChar separator)
    {
        window = std::make_unique<frmDataAtomes>(separator, nullptr);
        window->show();
        window->activateWindow();
        Settle();
    }

    void ShowElement(const char* symbol)
    {
        window->ShowElementData(ElementIndex(QString::fromLatin1(symbol)));
    }

    QStringList Texts(const char* array)
    {
        QStringList texts;
        for (int line = 0; line < 13; ++line)
            texts << Control<QLabel>(*window, qPrintable(ArrayName(array, line))).text();
        return texts;
    }

    QString Name() { return Texts("lblData").at(0); }
    QColor BallColour()
    {
        const QImage picture = Control<QWidget>(*window, "shpAtome").grab().toImage();
        return picture.pixelColor(picture.rect().center());
    }
    void Push(const char* button) { Click(Control<QPushButton>(*window, button)); }

    std::unique_ptr<frmDataAtomes> window;
};

} // namespace

TEST_F(FrmDataAtomes, NamesTheThirteenData)
{
    EXPECT_EQ(window->windowTitle(), u"Données de l'élément"_s);
    EXPECT_EQ(
        Texts("lblLabel"),
        (QStringList{u"Nom : "_s, u"Symbole : "_s, u"Configuration électronique : "_s, u"Numéro atomique :"_s,
                     u"Masse atomique relative : "_s, u"Electronégativité : "_s, u"Masse volumique : "_s,
                     u"Température de fusion : "_s, u"Température d'ébullition : "_s,
                     u"Rayon atomique (Van der Waals) : "_s, u"Rayon ionique : "_s, u"Nombre d'isotopes : "_s,
                     u"Energie de première ionisation : "_s}));
}

TEST_F(FrmDataAtomes, ShowsAllOfIron)
{
    ShowElement("Fe");

    EXPECT_EQ(Texts("lblData"),
              (QStringList{u"Fer"_s, u"Fe"_s, u"[Ar]3d6 4s2"_s, u"26"_s, u"55,845 g/mol"_s, u"1,8"_s,
                           u"7,80 g/cm3"_s, u"1538,0 °C"_s, u"2861,0 °C"_s, u"0,126 nm"_s, u"0,076 nm"_s,
                           u"0"_s, u"761,0 kJ/mol"_s}));
}

TEST_F(FrmDataAtomes, ShowsAllOfHydrogen)
{
    Open(u'.');

    // 8.99e-05 is 0.09 times 0.001; -252.87 is -252.9.
    EXPECT_EQ(Texts("lblData"),
              (QStringList{u"Hydrogène"_s, u"H"_s, u"1s1"_s, u"1"_s, u"1.00794 g/mol"_s, u"2.1"_s,
                           u"0.09.001 g/cm3"_s, u"-259.2 °C"_s, u"-252.9 °C"_s, u"0.120 nm"_s, u"0.208 nm"_s,
                           u"2"_s, u"1311.0 kJ/mol"_s}));
}

TEST_F(FrmDataAtomes, ShowsAThinGasInThousandths)
{
    Open(u'.');

    ShowElement("He");
    EXPECT_EQ(Texts("lblData").at(6), u"0.18.001 g/cm3"_s);
    ShowElement("Rn");
    EXPECT_EQ(Texts("lblData").at(6), u"0.01 g/cm3"_s);
}

TEST_F(FrmDataAtomes, ShowsADashWhereTheTableHasNothing)
{
    ShowElement("Uuo");

    EXPECT_EQ(
        Texts("lblData"),
        (QStringList{u"Ununoctium"_s, u"Uuo"_s, u"[Rn]5f14 6d10 7s2 7p6"_s, u"118"_s, u"294 g/mol"_s, u"-"_s,
                     u"- g/cm3"_s, u"- °C"_s, u"- °C"_s, u"- nm"_s, u"- nm"_s, u"-"_s, u"- kJ/mol"_s}));
}

TEST_F(FrmDataAtomes, FillsItsShapeWithTheElementsColour)
{
    for (const char* const symbol : {"H", "O", "Cl", "Fe", "Uuo"}) {
        ShowElement(symbol);
        EXPECT_EQ(BallColour(), FromBgr(ElementBySymbol(QString::fromLatin1(symbol)).colour)) << symbol;
    }
}

TEST_F(FrmDataAtomes, GoesOnByNext)
{
    ShowElement("Fe");

    Push("cmdNext");

    EXPECT_EQ(Name(), u"Cobalt"_s);
    EXPECT_EQ(window->CurrentElement(), 26);
}

TEST_F(FrmDataAtomes, GoesBackByPrevious)
{
    ShowElement("Fe");

    Push("cmdPrevious");

    EXPECT_EQ(Name(), u"Manganèse"_s);
}

TEST_F(FrmDataAtomes, ComesRoundToTheFirstBehindTheLast)
{
    ShowElement("Uuo");

    Push("cmdNext");

    EXPECT_EQ(Name(), u"Hydrogène"_s);
    EXPECT_EQ(window->CurrentElement(), 0);
}

TEST_F(FrmDataAtomes, ComesRoundToTheLastBeforeTheFirst)
{
    ShowElement("H");

    Push("cmdPrevious");

    EXPECT_EQ(Name(), u"Ununoctium"_s);
    EXPECT_EQ(window->CurrentElement(), 117);
}

TEST_F(FrmDataAtomes, WalksThroughAllElements)
{
    for (int step = 0; step < 118; ++step)
        Push("cmdNext");

    EXPECT_EQ(Name(), u"Hydrogène"_s);
}

TEST_F(FrmDataAtomes, KeepsItsButtonsInPlaceForEveryElement)
{
    const QSize size = window->size();
    const QPoint button = Control<QPushButton>(*window, "cmdNext").pos();

    for (int index = 0; index < kElementCount; ++index) {
        window->ShowElementData(index);
        Settle();
        ASSERT_EQ(window->size(), size) << index;
        ASSERT_EQ(Control<QPushButton>(*window, "cmdNext").pos(), button) << index;
        for (int line = 0; line < 13; ++line) {
            const QLabel& data = Control<QLabel>(*window, qPrintable(ArrayName("lblData", line)));
            ASSERT_GE(data.width(), data.sizeHint().width()) << index << " line " << line;
        }
    }
}

TEST_F(FrmDataAtomes, TellsWhatItsButtonsDo)
{
    const QPushButton& previous = Control<QPushButton>(*window, "cmdPrevious");
    const QPushButton& next = Control<QPushButton>(*window, "cmdNext");

    EXPECT_EQ(previous.text(), u"Précédent"_s);
    EXPECT_EQ(previous.toolTip(), u"Elément précédent"_s);
    EXPECT_EQ(next.text(), u"Suivant"_s);
    EXPECT_EQ(next.toolTip(), u"Elément suivant"_s);
}

TEST_F(FrmDataAtomes, TellsEachDatumToAScreenReader)
{
    EXPECT_EQ(Control<QLabel>(*window, "lblData(4)").accessibleName(), u"Masse atomique relative"_s);
    EXPECT_FALSE(Control<QWidget>(*window, "shpAtome").accessibleName().isEmpty());
}

TEST_F(FrmDataAtomes, GoesOnByEnterOnItsButtons)
{
    QPushButton& next = Control<QPushButton>(*window, "cmdNext");
    next.setFocus();

    Press(next, Qt::Key_Return);
    EXPECT_EQ(Name(), u"Hélium"_s);
    Press(next, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Name(), u"Lithium"_s);
}

TEST_F(FrmDataAtomes, GoesByEscapeAsItHoldsNothingToLose)
{
    QSignalSpy closes(window.get(), &Form::CloseAsked);

    Press(Control<QPushButton>(*window, "cmdNext"), Qt::Key_Escape);

    EXPECT_EQ(closes.size(), 1);
}

TEST_F(FrmDataAtomes, AsksForHelpByF1)
{
    const WindowEvents events;
    QSignalSpy asked(&events, &WindowEvents::HelpRequested);

    Press(*window, Qt::Key_F1);

    EXPECT_EQ(asked.size(), 1);
}

} // namespace stoikal
