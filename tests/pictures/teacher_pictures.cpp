#include "picture_fixture.h"

#include <QScrollBar>
#include <QTabWidget>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

class TeacherPictures : public PictureTest
{
protected:
    /// Draws one page of the editor.
    void KeepPage(QWidget& editor, int page, const char* name)
    {
        Control<QTabWidget>(editor, "sstEdit").setCurrentIndex(page);
        Keep(editor, QLatin1String(name));
    }

    void KeepPreviewAndLeave(QWidget& editor, const QString& name)
    {
        Click(Button(editor, "chkPreview"));
        Settle();
        Keep(Shown("frmPreview"), name);
        Click(Button(editor, "cmdCancel"));
    }
};

/// The first start on a share of the school's network.
class NetworkPictures : public PictureTest
{
protected:
    void SetUp() override
    {
        desktop.folders.networkRoot = MadeFolder("share");
        QDir().mkpath(desktop.folders.networkRoot + u"/Dépôt"_s);
        KeepWhenItComes("frmDepot", "cmdOK");
        PictureTest::SetUp();
    }
};

} // namespace

TEST_F(NetworkPictures, OfTheFirstStart)
{
    EXPECT_EQ(Setting("Réseau", "Dossier Dépôt"), u"Dépôt"_s);
}

TEST_F(TeacherPictures, OfThePassword)
{
    KeepWhenItComes("frmPassWord", "cmdCancel");
    Choose("Mnu_Password");
    KeepWhenItComes("frmMotPasse", "cmdCancel");
    Choose("Mnu_Create");
}

TEST_F(TeacherPictures, OfTheEditor)
{
    GiveThePassword();
    script.On("frmNewFile", [this](QWidget& window) {
        Type(Control<QLineEdit>(window, "txtNameFile"), u"Flammes"_s);
        Fill(window, "txtMolecule", {u"CH4"_s, u"O2"_s, {}, u"CO2"_s, u"H2O"_s});
        Keep(window, u"frmNewFile"_s);
        KeepPreviewAndLeave(window, u"frmPreview"_s);
    });
    Choose("Mnu_Create");
}

TEST_F(TeacherPictures, OfAFileThatIsChanged)
{
    GiveThePassword();
    AnswerDialog(Shipped("Avancement_2_Combustions.Avt"), 1);
    script.On("frmNewFile", [this](QWidget& window) {
        Control<QScrollBar>(window, "hscNumEqu").setValue(2);
        KeepPage(window, 0, "editor");
        KeepPage(window, 1, "editor_states");
        KeepPage(window, 2, "editor_comments");
        KeepPage(window, 3, "editor_data");
        KeepPreviewAndLeave(window, u"editor_preview"_s);
    });
    Choose("Mnu_Modify");
}

TEST_F(TeacherPictures, OfTheFiles)
{
    GiveThePassword();
    script.On("frmCorbeille", [this](QWidget& window) {
        Keep(window, u"frmCorbeille"_s);
        window.close();
    });
    Choose("Mnu_Kill");
    OpenFile({u"H2+O2=H2O/2,1,2"_s, u"N2+H2=NH3/1,3,2"_s}, u"Gaz.Equ"_s);
    Choose("Mnu_Chrono");
    ClockReaches(83);
    Answer({u"2"_s, u"1"_s, {}, u"2"_s});
    ClockReaches(214);
    Answer({u"1"_s, u"2"_s, {}, u"2"_s});
    PressInNote("cmdStay");
    Answer({u"1"_s, u"3"_s, {}, u"2"_s});
    Settle();
    GiveThePassword();
    Choose("Mnu_Answer");
    Keep(Shown("frmTexte"), u"results"_s);
}

TEST_F(TeacherPictures, OfTheTips)
{
    GiveThePassword();
    Choose("Mnu_MoreTip");
    Keep(Shown("frmTexte"), u"tips"_s);
}

} // namespace stoikal
