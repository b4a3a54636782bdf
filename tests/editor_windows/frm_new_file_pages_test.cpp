#include "editor_windows/editor_bench.h"

#include <QClipboard>
#include <QGroupBox>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// States, comments, data.
class FrmNewFilePages : public EditorTest
{
protected:
    bool DataIsOpen(int slot)
    {
        bool isOpen = Data(slot).isEnabled();
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(Button("optMVQ", 3 * slot + i).isEnabled(), isOpen);
        return isOpen;
    }
    QString FrameTitle(int slot)
    {
        return Control<QGroupBox>(*editor, qPrintable(ArrayName("fraMVQ", slot))).title();
    }
    /// A progress file with a first reactant, on the page of its data.
    void OpenData()
    {
        OpenNew();
        Click(Button("optType(1)"));
        Type(Box(0), u"H2"_s);
        Tab(3);
    }
    /// Stores the equation shown, which stays: the one inserted goes again.
    void Store()
    {
        Click(Button("cmdInsEqu"));
        Click(Button("cmdSupEqu"));
    }
};

} // namespace

TEST_F(FrmNewFilePages, EachClickOnTheMarkOfAStateTurnsItsOptions)
{
    OpenNew();
    Tab(1);
    EXPECT_FALSE(Button("optEtat", 3).isEnabled());

    Click(Button("chkEtat", 1));
    for (int i = 0; i < 18; ++i)
        EXPECT_EQ(Button("optEtat", i).isEnabled(), i >= 3 && i < 6) << i;

    Click(Button("chkEtat", 1));
    EXPECT_FALSE(Button("optEtat", 3).isEnabled());
}

TEST_F(FrmNewFilePages, StateIsStoredByTheOrderOfItsOptions)
{
    OpenNew();
    WriteWater();
    Tab(1);
    Click(Button("chkEtat", 0));
    Click(Button("optEtat", 2));
    Click(Button("chkEtat", 1));
    Click(Button("optEtat", 3));
    Click(Button("chkEtat", 3));
    Click(Button("optEtat", 10));

    Store();

    EXPECT_EQ(Kept(1, "Etat1"), u"g"_s);
    EXPECT_EQ(Kept(1, "Etat2"), u"s"_s);
    EXPECT_EQ(Kept(1, "Etat4"), u"l"_s);
    EXPECT_EQ(Kept(1, "Etat3"), QString());
}

TEST_F(FrmNewFilePages, UntickedStateIsEmptied)
{
    OpenFile("A<g>=A<l>/1,1\r\n");
    Tab(1);
    EXPECT_TRUE(Button("chkEtat", 0).isChecked());
    EXPECT_TRUE(Button("optEtat", 2).isChecked());

    Click(Button("chkEtat", 0));
    Store();

    EXPECT_EQ(Kept(1, "Etat1"), QString());
    EXPECT_EQ(Kept(1, "Etat4"), u"l"_s);
}

TEST_F(FrmNewFilePages, StoredStateWithoutAButtonIsKept)
{
    OpenFile("C<aq>+O2=CO2/1,1,1\r\n");
    EXPECT_TRUE(Button("chkEtat", 0).isChecked());
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(Button("optEtat", i).isChecked());

    Store();

    EXPECT_EQ(Kept(1, "Etat1"), u"aq"_s);
}

TEST_F(FrmNewFilePages, StatesOfOneEquationDoNotStayForTheNext)
{
    OpenFile("C<s>+O2<g>=CO2/1,1,1\r\nH2+O2=H2O<l>/2,1,2\r\n");

    MoveTo(2);

    EXPECT_FALSE(Button("chkEtat", 0).isChecked());
    EXPECT_FALSE(Button("optEtat", 0).isChecked());
    EXPECT_FALSE(Button("optEtat", 0).isEnabled());
    EXPECT_TRUE(Button("chkEtat", 3).isChecked());
    EXPECT_TRUE(Button("optEtat", 10).isChecked());
}

TEST_F(FrmNewFilePages, DataOpenOnAProgressFileForTheSpeciesThatAreThere)
{
    OpenNew();
    WriteWater();
    for (int slot = 0; slot < 6; ++slot)
        EXPECT_FALSE(DataIsOpen(slot)) << "a balancing file has none";

    Click(Button("optType(1)"));
    for (int slot = 0; slot < 6; ++slot)
        EXPECT_EQ(DataIsOpen(slot), slot < 2 || slot == 3) << slot;

    Type(Box(2), u"C"_s);
    EXPECT_TRUE(DataIsOpen(2));
    Press(Box(2), Qt::Key_Backspace);
    EXPECT_FALSE(DataIsOpen(2));

    Click(Button("optType(0)"));
    for (int slot = 0; slot < 6; ++slot)
        EXPECT_FALSE(DataIsOpen(slot)) << slot;
}

TEST_F(FrmNewFilePages, DatumIsTheLetterOfItsKindAndTheNumber)
{
    OpenNew();
    Click(Button("optType(1)"));
    WriteWater();
    Tab(3);
    Click(Button("optMVQ", 2));
    Type(Data(0), u"7"_s);
    ClickInto(Data(1));
    ClickInto(Data(0));
    EXPECT_EQ(Data(0).selectedText(), u"7"_s);
    Type(Data(0), u"0,5"_s);
    Click(Button("optMVQ", 4));
    Type(Data(1), u"1.2"_s);
    Click(Button("optMVQ", 9));
    Type(Data(3), u"0"_s);

    Store();

    EXPECT_EQ(Kept(1, "MVQ1"), u"Q0.5"_s) << "a comma becomes a point";
    EXPECT_EQ(Kept(1, "MVQ2"), u"V1.2"_s);
    EXPECT_EQ(Kept(1, "MVQ4"), u"M0"_s);
    EXPECT_EQ(Kept(1, "MVQ3"), QString());
}

TEST_F(FrmNewFilePages, FirstKindIsChosenForANewDatum)
{
    OpenNew();
    Click(Button("optType(1)"));
    Type(Box(0), u"H2"_s);

    EXPECT_TRUE(Button("optMVQ", 0).isChecked());
    EXPECT_FALSE(Button("optMVQ", 3).isChecked());
}

TEST_F(FrmNewFilePages, RefusedCharacterOfADatumIsTold)
{
    OpenData();

    Type(Data(0), u"-"_s);
    ExpectBox(QMessageBox::Critical, u"Erreur sur saisie."_s, u"Une donnée ne peut pas être négative."_s);

    // A second comma would cut the datum in two in the file.
    Type(Data(0), u"1,2,"_s);
    ExpectBox(QMessageBox::Critical, u"Erreur sur saisie."_s, u"Ce nombre a déjà une virgule ou un point."_s);

    Type(Data(0), u"3x"_s);
    ExpectBox(QMessageBox::Critical, u"Erreur sur saisie."_s, u"Veuillez saisir un chiffre."_s);
    EXPECT_EQ(messages.shown.size(), 3U);
    EXPECT_EQ(Data(0).text(), u"1,23"_s);
}

TEST_F(FrmNewFilePages, PasteIntoADatumGoesThroughTheSameFilter)
{
    OpenData();
    QApplication::clipboard()->setText(u"-1 234,5 g"_s);

    Press(Data(0), Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(Data(0).text(), u"1234,5"_s);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Une donnée ne peut pas être négative."_s);
}

TEST_F(FrmNewFilePages, RefusedKeyLeavesTextSelectionAndCaretOfADatum)
{
    OpenData();
    Type(Data(0), u"125"_s);

    Data(0).setCursorPosition(1);
    Type(Data(0), u"x"_s);
    EXPECT_EQ(Data(0).text(), u"125"_s);
    EXPECT_EQ(Data(0).cursorPosition(), 1);

    Data(0).setSelection(1, 2);
    Type(Data(0), u"-"_s);
    EXPECT_EQ(Data(0).selectedText(), u"25"_s);
    Type(Data(0), u"7"_s);
    EXPECT_EQ(Data(0).text(), u"17"_s);
}

TEST_F(FrmNewFilePages, ClickIntoADatumSelectsAllOfIt)
{
    OpenData();
    Type(Data(0), u"125"_s);
    Box(0).window()->setFocus();

    QTest::mouseClick(&Data(0), Qt::LeftButton);
    Settle();

    EXPECT_EQ(Data(0).selectedText(), u"125"_s);
}

TEST_F(FrmNewFilePages, LoadedDataAreShownWithTheirKind)
{
    OpenFile("H2+O2=H2O/2,1,2#m1.5,Q2,V0\r\n", u"Main.Avt"_s);

    EXPECT_TRUE(Button("optType(1)").isChecked());
    EXPECT_TRUE(Button("optMVQ", 0).isChecked());
    EXPECT_EQ(Data(0).text(), u"1.5"_s);
    EXPECT_TRUE(Button("optMVQ", 5).isChecked());
    EXPECT_EQ(Data(1).text(), u"2"_s);
    EXPECT_TRUE(Button("optMVQ", 10).isChecked());
    EXPECT_EQ(Data(3).text(), u"0"_s);
    EXPECT_EQ(Data(2).text(), QString());
}

TEST_F(FrmNewFilePages, FramesNameTheSpeciesWithItsFormula)
{
    OpenFile("H2+O2=H2O/2,1,2\r\nC+O2=CO2/1,1,1\r\n");
    EXPECT_EQ(FrameTitle(0), u"Réactif 1 : H2"_s);
    EXPECT_EQ(FrameTitle(2), u"Réactif 3 :"_s);
    EXPECT_EQ(FrameTitle(3), u"Produit 1 : H2O"_s);
    EXPECT_EQ(FrameTitle(5), u"Produit 3 :"_s);

    MoveTo(2);

    EXPECT_EQ(FrameTitle(3), u"Produit 1 : CO2"_s);
}

TEST_F(FrmNewFilePages, CommentIsStoredWhenItsMarkIsSet)
{
    OpenNew();
    WriteWater();
    Tab(2);
    EXPECT_FALSE(Line("txtComment(1)").isEnabled());
    Click(Button("chkComment(1)"));
    Type(Line("txtComment(1)"), u"Synthèse de l'eau"_s);

    Store();

    EXPECT_EQ(Kept(1, "Comment"), u"Synthèse de l'eau"_s);
    EXPECT_EQ(Line("txtComment(1)").text(), u"Synthèse de l'eau"_s);
}

TEST_F(FrmNewFilePages, CommentOfOneEquationIsNotThatOfTheNext)
{
    OpenNew();
    WriteWater();
    Tab(2);
    Click(Button("chkComment(1)"));
    Type(Line("txtComment(1)"), u"Eau"_s);

    Click(Button("cmdInsEqu"));
    WriteCoal();
    MoveTo(1);

    EXPECT_EQ(Kept(1, "Comment"), u"Eau"_s);
    EXPECT_EQ(Kept(2, "Comment"), QString());
}

TEST_F(FrmNewFilePages, CommentStaysAsItIsWithoutTheMark)
{
    OpenFile("A=A/1,1\r\n'Charbon\r\nC+O2=CO2/1,1,1\r\n");
    EXPECT_TRUE(Button("chkComment(1)").isChecked()) << "the file has comments";
    MoveTo(2);
    Tab(2);
    EXPECT_EQ(Line("txtComment(1)").text(), u"Charbon"_s);
    Line("txtComment(1)").clear();
    Click(Button("chkComment(1)"));

    MoveTo(1);

    EXPECT_EQ(Kept(2, "Comment"), u"Charbon"_s);
}

} // namespace stoikal
