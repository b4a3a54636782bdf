#include "exercise/high_score_file.h"
#include "exercise/results_journal.h"

#include "support/file_bytes.h"
#include "support/qt_printers.h"
#include "support/shared_folder.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// Another account put something in place of the class's results.
class PlantedResults : public testing::Test
{
protected:
    /// Why the victim's program cannot open its journal.
    QString JournalRefusal()
    {
        const AsOrdinaryUser victim(kVictim);
        ResultsJournal journal;
        const auto opened = journal.Open(place.Path(u"Resultat.txt"_s));
        EXPECT_FALSE(journal.WriteLines({u"alias ls='rm -rf ~'"_s}));
        return opened ? u"(opened)"_s : opened.Reason();
    }

    void ExpectNoRecord()
    {
        const AsOrdinaryUser victim(kVictim);
        const auto section = HighScoreFile(place.shared).Record(u"a.equ"_s, {u"N"_s, 20, 1}, u',');
        ASSERT_FALSE(section);
        EXPECT_TRUE(section.Reason().startsWith(u"Erreur sur le chemin d'accés des fichiers :"_s));
    }

    void ExpectPrivateFileAsItWas() const
    {
        EXPECT_EQ(BytesOfFile(profile), QByteArray("# mine\n"));
        EXPECT_EQ(SharedFolder::RightsOf(profile), 0600U);
    }

    const SharedFolder place;
    const QString profile = place.PrivateFile("# mine\n");
};

} // namespace

TEST_F(PlantedResults, LinkInPlaceOfTheJournalIsNotWrittenThrough)
{
    place.PlantLink(profile, u"Resultat.txt"_s);

    EXPECT_EQ(JournalRefusal(), u"ce nom est celui d'un lien, et non d'un fichier"_s);

    ExpectPrivateFileAsItWas();
}

TEST_F(PlantedResults, LinkThatLeadsNowhereMakesNoJournal)
{
    place.PlantLink(place.home + u"/.bash_login"_s, u"Resultat.txt"_s);

    EXPECT_EQ(JournalRefusal(), u"ce nom est celui d'un lien, et non d'un fichier"_s);

    EXPECT_FALSE(QFile::exists(place.home + u"/.bash_login"_s));
}

TEST_F(PlantedResults, SecondNameOfAFileIsNoJournal)
{
    place.PlantSecondName(profile, u"Resultat.txt"_s);

    EXPECT_EQ(JournalRefusal(), u"ce fichier porte un second nom dans un autre dossier"_s);

    ExpectPrivateFileAsItWas();
}

TEST_F(PlantedResults, WhatIsNoFileIsNoJournalAndIsNotWaitedFor)
{
    for (const SharedFolder::Kind kind : SharedFolder::Kinds()) {
        place.Plant(kind, u"Resultat.txt"_s);

        EXPECT_EQ(JournalRefusal(),
                  kind == SharedFolder::Kind::Folder ? u"c'est un dossier"_s : u"ce n'est pas un fichier"_s);

        ASSERT_EQ(::remove(qPrintable(place.Path(u"Resultat.txt"_s))), 0);
    }
}

TEST_F(PlantedResults, LinkInPlaceOfTheScoresIsNeitherReadNorWrittenThrough)
{
    place.PlantLink(profile, u"HighScore.txt"_s);

    ExpectNoRecord();

    ExpectPrivateFileAsItWas();
}

TEST_F(PlantedResults, WhatIsNoFileHoldsNoScoresAndIsNotWaitedFor)
{
    for (const SharedFolder::Kind kind : SharedFolder::Kinds()) {
        place.Plant(kind, u"HighScore.txt"_s);

        ExpectNoRecord();

        ASSERT_EQ(::remove(qPrintable(place.Path(u"HighScore.txt"_s))), 0);
    }
}

} // namespace stoikal
