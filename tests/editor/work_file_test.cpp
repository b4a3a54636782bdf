#include "editor/work_file.h"

#include "base/settings_store.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

WorkEquation Simple(const QString& left, const QString& right)
{
    WorkEquation equation;
    equation.Molecule[0] = left;
    equation.Molecule[3] = right;
    return equation;
}

/// An equation with a text under every key.
WorkEquation Full()
{
    WorkEquation equation;
    for (std::size_t slot = 0; slot < WorkEquation::kSlots; ++slot) {
        equation.Molecule.at(slot) = u"Fe%1{3+}"_s.arg(slot + 1);
        equation.Etat.at(slot) = u"s"_s;
        equation.Coeff.at(slot) = QString::number(slot + 2);
        equation.MVQ.at(slot) = u"Q0.%1"_s.arg(slot);
    }
    equation.Comment = u" « Un café » à 100 % "_s;
    equation.ECHEC = u"0"_s;
    return equation;
}

class WorkFileTest : public testing::Test
{
protected:
    /// Equations named by their first reactant.
    void Enter(const QStringList& names)
    {
        std::vector<WorkEquation> equations;
        for (const QString& name : names)
            equations.push_back(Simple(name, u"O2"_s));
        desk.count = static_cast<int>(names.size());
        ASSERT_TRUE(work.BeginWith(desk, equations));
    }

    QStringList Names(int count) const
    {
        QStringList names;
        for (const WorkEquation& equation : work.Equations(count))
            names << equation.Molecule[0];
        return names;
    }

    QString Raw(const QString& section, const QString& key) const
    {
        return store.ReadSetting(path, section, key);
    }

    WorkDesk WithCount(int count) const
    {
        WorkDesk changed = desk;
        changed.count = count;
        return changed;
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"FileTemp.txt"_s);
    SettingsStore store;
    WorkFile work{store, path};
    WorkDesk desk;
};

} // namespace

TEST_F(WorkFileTest, BeginsWithEquationOneBlankAndNothingOfBefore)
{
    Enter({u"H2"_s, u"C"_s});

    ASSERT_TRUE(work.Begin(desk));

    EXPECT_EQ(work.Equation(1), WorkEquation());
    EXPECT_EQ(work.Equation(2), WorkEquation());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("[1]\r\n"));
}

TEST_F(WorkFileTest, KeepsAnEquationUnderTheNamesOfItsKeys)
{
    Enter({u"H2"_s, u"C"_s});
    WorkEquation equation = Full();

    ASSERT_TRUE(work.Store(2, equation, desk));

    EXPECT_EQ(Raw(u"2"_s, u"Molecule1"_s), u"Fe1{3+}"_s);
    EXPECT_EQ(Raw(u"2"_s, u"Molecule6"_s), u"Fe6{3+}"_s);
    EXPECT_EQ(Raw(u"2"_s, u"Etat4"_s), u"s"_s);
    EXPECT_EQ(Raw(u"2"_s, u"Coeff6"_s), u"7"_s);
    EXPECT_EQ(Raw(u"2"_s, u"MVQ2"_s), u"Q0.1"_s);
    EXPECT_EQ(Raw(u"2"_s, u"Comment"_s), u" « Un café » à 100 % "_s);
    EXPECT_EQ(Raw(u"2"_s, u"ECHEC"_s), u"0"_s);
    EXPECT_EQ(work.Equation(2), equation);
    EXPECT_EQ(work.Equation(1).Molecule[0], u"H2"_s);
}

TEST_F(WorkFileTest, StoringReplacesWhatWasThere)
{
    Enter({u"H2"_s});
    ASSERT_TRUE(work.Store(1, Full(), desk));

    ASSERT_TRUE(work.Store(1, Simple(u"C"_s, u"CO2"_s), desk));

    EXPECT_EQ(work.Equation(1), Simple(u"C"_s, u"CO2"_s));
}

TEST_F(WorkFileTest, TextsLongerThanAValueComeBackWhole)
{
    Enter({u"H2"_s});
    // Three pieces, with a blank and a pair of surrogates at the seams.
    WorkEquation equation = Simple(u"H2"_s, u"H"_s);
    equation.Comment = QString(253, u'a') + u"𝄞 "_s + QString(252, u'b') + u" é"_s + QString(200, u'c');
    desk.head = QString(300, u'*') + u"\nligne \\n 2\n"_s + QString(600, u'x');
    ASSERT_TRUE(work.Store(1, equation, desk));
    EXPECT_EQ(work.Equation(1), equation);

    equation.Comment = u"court"_s;
    desk.isUnfinished = true;
    ASSERT_TRUE(work.Store(1, equation, desk));
    EXPECT_EQ(work.Equation(1).Comment, u"court"_s);
    EXPECT_EQ(work.LeftBehind()->head, desk.head);
}

TEST_F(WorkFileTest, InsertingLeavesABlankPlaceAndMovesTheOthersUp)
{
    Enter({u"H2"_s, u"C"_s, u"S"_s});

    ASSERT_TRUE(work.InsertEquation(2, 3, WithCount(4)));

    EXPECT_EQ(Names(4), QStringList({u"H2"_s, u""_s, u"C"_s, u"S"_s}));
    EXPECT_EQ(work.Equation(2), WorkEquation());
}

TEST_F(WorkFileTest, InsertingMovesEveryKey)
{
    Enter({u"H2"_s, u"C"_s});
    const WorkEquation full = Full();
    ASSERT_TRUE(work.Store(1, full, desk));

    ASSERT_TRUE(work.InsertEquation(1, 2, WithCount(3)));

    EXPECT_EQ(work.Equation(1), WorkEquation());
    EXPECT_EQ(work.Equation(2), full);
    EXPECT_EQ(work.Equation(3), Simple(u"C"_s, u"O2"_s));
}

TEST_F(WorkFileTest, InsertingBehindTheLastClearsWhatStandsThere)
{
    Enter({u"H2"_s});
    EXPECT_TRUE(store.WriteSetting(path, u"2"_s, u"Comment"_s, u"left over"_s));

    ASSERT_TRUE(work.InsertEquation(2, 1, WithCount(2)));

    EXPECT_EQ(work.Equation(2), WorkEquation());
    EXPECT_EQ(work.Equation(1).Molecule[0], u"H2"_s);
}

TEST_F(WorkFileTest, DeletingMovesTheOthersDownAndTakesTheLastSectionAway)
{
    Enter({u"H2"_s, u"C"_s, u"S"_s});

    ASSERT_TRUE(work.DeleteEquation(1, 3, WithCount(2)));

    EXPECT_EQ(Names(3), QStringList({u"C"_s, u"S"_s, u""_s}));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readAll().contains("[3]"));
}

TEST_F(WorkFileTest, DeletingCopiesNoKeyOfTheDeletedEquation)
{
    Enter({u"H2"_s, u"C"_s});
    ASSERT_TRUE(work.Store(1, Full(), desk));

    ASSERT_TRUE(work.DeleteEquation(1, 2, WithCount(1)));

    EXPECT_EQ(work.Equation(1), Simple(u"C"_s, u"O2"_s));
}

TEST_F(WorkFileTest, DeletingTheLastOrTheOnlyOneLeavesNothingThere)
{
    Enter({u"H2"_s, u"C"_s});

    ASSERT_TRUE(work.DeleteEquation(2, 2, WithCount(1)));
    EXPECT_EQ(Names(2), QStringList({u"H2"_s, u""_s}));

    ASSERT_TRUE(work.DeleteEquation(1, 1, WithCount(1)));
    EXPECT_EQ(work.Equation(1), WorkEquation());
}

TEST_F(WorkFileTest, ForeignSectionsSurviveInsertingAndDeleting)
{
    Enter({u"H2"_s, u"C"_s});
    EXPECT_TRUE(store.WriteSetting(path, u"Notes"_s, u"Auteur"_s, u"Marie"_s));
    EXPECT_TRUE(store.WriteSetting(path, u"1bis"_s, u"Molecule1"_s, u"Xx"_s));

    ASSERT_TRUE(work.InsertEquation(1, 2, WithCount(3)));
    ASSERT_TRUE(work.DeleteEquation(2, 3, WithCount(2)));

    EXPECT_EQ(Raw(u"Notes"_s, u"Auteur"_s), u"Marie"_s);
    EXPECT_EQ(Raw(u"1bis"_s, u"Molecule1"_s), u"Xx"_s);
    EXPECT_EQ(Names(2), QStringList({u""_s, u"C"_s}));
}

TEST_F(WorkFileTest, FailuresAreCountedAndAnEmptyMarkIsNone)
{
    Enter({u"H2"_s, u"C"_s, u"S"_s, u"P"_s});
    WorkEquation failed = Simple(u"C"_s, u"S"_s);
    failed.ECHEC = u"1"_s;
    ASSERT_TRUE(work.Store(2, failed, desk));
    ASSERT_TRUE(work.Store(4, failed, desk));
    WorkEquation balanced = Simple(u"S"_s, u"S"_s);
    balanced.ECHEC = u"0"_s;
    ASSERT_TRUE(work.Store(3, balanced, desk));

    EXPECT_EQ(work.FailedEquations(4), std::vector<int>({2, 4}));
    EXPECT_EQ(work.FailedEquations(3), std::vector<int>({2}));
}

TEST_F(WorkFileTest, FinishedWorkIsNotOffered)
{
    EXPECT_FALSE(work.LeftBehind().has_value()) << "no file";
    Enter({u"H2"_s});
    EXPECT_FALSE(work.LeftBehind().has_value()) << "nothing was entered";

    desk.isUnfinished = true;
    ASSERT_TRUE(work.Store(1, Simple(u"C"_s, u"C"_s), desk));
    EXPECT_TRUE(work.LeftBehind().has_value());

    work.Finish();
    EXPECT_FALSE(work.LeftBehind().has_value());
    EXPECT_TRUE(QFile::exists(path)) << "the file is left behind";
}

TEST_F(WorkFileTest, UnfinishedWorkTellsAllThatTheEditorNeeds)
{
    Enter({u"H2"_s, u"C"_s, u"S"_s});
    desk = {u"Série 1"_s, FileType::Avt, u"un\n\ndeux "_s, 3, 2, {u"Série.Avt"_s, u"0a1b"_s}, true};

    ASSERT_TRUE(work.Store(2, Simple(u"C"_s, u"CO2"_s), desk));

    EXPECT_EQ(work.LeftBehind(), desk);
}

TEST_F(WorkFileTest, ChangesOfAFolderWithoutRoomAreReported)
{
    // A folder stands where the file would be written.
    ASSERT_TRUE(QDir().mkpath(path + u"/x"_s));

    const auto begun = work.Begin(desk);
    ASSERT_FALSE(begun);
    EXPECT_EQ(begun.Reason(), u"c'est un dossier"_s);
    EXPECT_FALSE(work.Store(1, Full(), desk));
    EXPECT_FALSE(work.InsertEquation(1, 1, desk));
    EXPECT_FALSE(work.DeleteEquation(1, 1, desk));
}

TEST_F(WorkFileTest, WorkAboveTheLimitIsReportedAsSuch)
{
    WorkEquation equation;
    equation.Comment = QString(30'000, u'x');
    const auto begun = work.BeginWith(desk, std::vector<WorkEquation>(70, equation)); // 2.1 MB

    ASSERT_FALSE(begun);
    EXPECT_EQ(begun.Reason(), u"le fichier est trop grand\u00A0: 2048\u00A0Ko au plus"_s);
}

TEST_F(WorkFileTest, WorkThatIsOverIsNotOfferedEvenWhenThatCannotBeWritten)
{
    desk.isUnfinished = true;
    ASSERT_TRUE(work.Begin(desk));
    // Nothing can be written here any more, not even by root: the lock has no place.
    ASSERT_TRUE(QDir().mkpath(path + u".lock"_s));

    work.Finish();

    EXPECT_FALSE(work.LeftBehind().has_value());
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(WorkFileTest, ASecondEditorTakesAnotherFile)
{
    const QString cache = folder.filePath(u"cache"_s);

    const auto first = FreeWorkPlace(cache);
    const auto second = FreeWorkPlace(cache);

    ASSERT_TRUE(first.Succeeded());
    ASSERT_TRUE(second.Succeeded());
    EXPECT_EQ(first->path, cache + u"/FileTemp.txt"_s);
    EXPECT_EQ(second->path, cache + u"/FileTemp_2.txt"_s);
}

TEST_F(WorkFileTest, AFolderThatCannotBeMadeIsTold)
{
    QFile file(folder.filePath(u"cache"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));

    const auto place = FreeWorkPlace(file.fileName());

    ASSERT_FALSE(place.Succeeded());
    EXPECT_TRUE(place.Reason().contains(u"cache"_s));
}

TEST_F(WorkFileTest, LeftWorkIsFoundUnlessAnotherEditorIsAtIt)
{
    desk.isUnfinished = true;
    WorkFile second(store, folder.filePath(u"FileTemp_2.txt"_s));
    ASSERT_TRUE(work.Begin(desk));
    ASSERT_TRUE(second.Begin(desk));

    ASSERT_EQ(PlacesWithLeftWork(folder.path(), store).size(), 2U);
    const auto running = FreeWorkPlace(folder.path());
    ASSERT_TRUE(running.Succeeded());

    const auto left = PlacesWithLeftWork(folder.path(), store);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].path, second.Path());
}

} // namespace stoikal
