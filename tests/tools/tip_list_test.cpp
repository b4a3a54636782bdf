#include "tools/tip_list.h"

#include "support/file_bytes.h"
#include "support/french_typography.h"
#include "support/qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A folder with a tips file of these bytes.
struct TipsFile {
    explicit TipsFile(const QByteArray& bytes) { WriteBytes(path, bytes); }

    QTemporaryDir folder;
    QString path = folder.filePath(u"TipOfDayEqChm.txt"_s);
};

/// The tips of such a file.
TipList TipsOf(const QByteArray& bytes)
{
    TipList tips;
    EXPECT_TRUE(tips.LoadTips(TipsFile(bytes).path));
    return tips;
}

QString TipAt(TipList& tips, double chance)
{
    tips.Choose(chance);
    return tips.Tip();
}

QStringList AllOf(TipList& tips)
{
    QStringList all;
    // (i + 1/2) / n * n + 1 = i + 3/2: the tip of number i + 1.
    for (qsizetype i = 0; i < tips.Count(); ++i)
        all << TipAt(tips, (static_cast<double>(i) + 0.5) / static_cast<double>(tips.Count()));
    return all;
}

} // namespace

TEST(TipList, HoldsOneTipALine)
{
    const TipsFile file("un\r\ndeux\ntrois");
    TipList tips;

    const auto loaded = tips.LoadTips(file.path);

    ASSERT_TRUE(loaded);
    EXPECT_EQ(*loaded, 3);
    EXPECT_EQ(TipAt(tips, 0), u"un"_s);
    EXPECT_EQ(TipAt(tips, 0.5), u"deux"_s);
    EXPECT_EQ(TipAt(tips, 0.9), u"trois"_s);
}

TEST(TipList, ChoosesEachTipWithTheSameChance)
{
    TipList tips = TipsOf("a\nb\nc\nd\n");

    // floor(u * 4 + 1): a up to 0.25, b up to 0.5, c up to 0.75, d behind.
    EXPECT_EQ(TipAt(tips, 0), u"a"_s);
    EXPECT_EQ(TipAt(tips, 0.2499), u"a"_s);
    EXPECT_EQ(TipAt(tips, 0.25), u"b"_s);
    EXPECT_EQ(TipAt(tips, 0.5), u"c"_s);
    EXPECT_EQ(TipAt(tips, 0.7499), u"c"_s);
    EXPECT_EQ(TipAt(tips, 0.75), u"d"_s);
    // The largest chance there is, 1 - 2^-53, would be rounded up to 4 + 1.
    EXPECT_EQ(TipAt(tips, 1 - 1.0 / 9007199254740992.0), u"d"_s);
}

TEST(TipList, MayChooseTheSameTipTwiceRunning)
{
    TipList tips = TipsOf("a\nb\n");

    EXPECT_EQ(TipAt(tips, 0.6), u"b"_s);
    EXPECT_EQ(TipAt(tips, 0.7), u"b"_s);
}

TEST(TipList, EmptyLineIsATipOfItsOwn)
{
    TipList tips = TipsOf("a\r\n\r\nc\r\n");

    EXPECT_EQ(tips.Count(), 3);
    EXPECT_EQ(TipAt(tips, 0.4), QString());
}

TEST(TipList, EmptyFileHasNoTipAndIsNoFailure)
{
    const TipsFile file("");
    TipList tips;

    EXPECT_TRUE(tips.LoadTips(file.path));

    EXPECT_TRUE(tips.IsEmpty());
    tips.Choose(0.5); // Nothing to choose, and nothing happens.
    EXPECT_TRUE(tips.IsEmpty());
}

TEST(TipList, LinesAreReadInTheirOwnEncoding)
{
    TipList tips = TipsOf("\xE9l\xE8ve\r\n\xC3\xA9l\xC3\xA8ve \xE2\x82\x82\r\n");

    EXPECT_EQ(TipAt(tips, 0), u"élève"_s);
    EXPECT_EQ(TipAt(tips, 0.5), u"élève ₂"_s);
}

TEST(TipList, MissingFileFailsWithItsTextAndKeepsTheTips)
{
    const TipsFile file("a\n");
    TipList tips;
    ASSERT_TRUE(tips.LoadTips(file.path));
    ASSERT_TRUE(QFile::remove(file.path));

    const auto loaded = tips.LoadTips(file.path);

    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.Reason(),
              u"Le fichier TipOfDayEqChm.txt n'a pas été trouvé? \n"
              "Créez un fichier texte nommé TipOfDayEqChm.txt en utilisant le Bloc-notes avec une astuce "
              "par ligne. Puis placez le dans le même dossier que l'application."_s);
    EXPECT_EQ(tips.Count(), 1);
}

TEST(TipList, EmptyNameFails)
{
    TipList tips;

    EXPECT_FALSE(tips.LoadTips(QString()));
    EXPECT_TRUE(tips.IsEmpty());
}

TEST(TipList, FolderInPlaceOfTheFileIsToldAsUnreadable)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"TipOfDayEqChm.txt"_s);
    ASSERT_TRUE(QDir().mkdir(path));
    TipList tips;

    const auto loaded = tips.LoadTips(path);

    ASSERT_FALSE(loaded);
    EXPECT_TRUE(loaded.Reason().startsWith(u"Le fichier TipOfDayEqChm.txt ne peut pas être lu."_s));
}

TEST(TipList, WhatIsNoFileIsToldAndNotWaitedFor)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"TipOfDayEqChm.txt"_s);
    ASSERT_EQ(::mkfifo(qPrintable(path), 0666), 0);

    const auto loaded = TipList().LoadTips(path);

    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.Reason(),
              u"Le fichier TipOfDayEqChm.txt ne peut pas être lu.\nce n'est pas un fichier"_s);
}

TEST(TipList, ReadsTheTipsThatShip)
{
    TipList tips;

    ASSERT_TRUE(tips.LoadTips(QStringLiteral(STOIKAL_DATA_DIR "/tips/TipOfDayEqChm.txt")));

    EXPECT_GE(tips.Count(), 30);
    for (const QString& tip : AllOf(tips)) {
        EXPECT_FALSE(tip.trimmed().isEmpty());
        EXPECT_FALSE(tip.contains(QChar(QChar::ReplacementCharacter))) << tip.toStdString();
    }
}

TEST(TipList, TipsThatShipAreSetAsFrenchIs)
{
    TipList tips;
    ASSERT_TRUE(tips.LoadTips(QStringLiteral(STOIKAL_DATA_DIR "/tips/TipOfDayEqChm.txt")));

    for (const QString& tip : AllOf(tips)) {
        const QStringList faults = TypographyFaults(tip);
        EXPECT_TRUE(faults.isEmpty()) << faults.join(u'\n').toStdString();
    }
}

/// A pupil who is sent to a command would only meet the question for the password.
TEST(TipList, TipsAboutGuardedCommandsAddressTeachers)
{
    const QStringList guarded{u"Équilibrage automatique"_s,
                              u"Recherche d’équations"_s,
                              u"Calcul de masse molaire"_s,
                              u"journal"_s,
                              u"Resultat.txt"_s,
                              u"Créer"_s,
                              u"Modifier un fichier"_s,
                              u"Supprimer un fichier"_s,
                              u"Vider le fichier"_s,
                              u"Rajouter une astuce"_s,
                              u"Obtenir la solution"_s};
    TipList tips;
    ASSERT_TRUE(tips.LoadTips(QStringLiteral(STOIKAL_DATA_DIR "/tips/TipOfDayEqChm.txt")));

    qsizetype toTeachers = 0;
    for (const QString& tip : AllOf(tips)) {
        const bool isGuarded = std::any_of(guarded.begin(), guarded.end(), [&tip](const QString& command) {
            return tip.contains(command, Qt::CaseInsensitive);
        });
        const bool addressesTeachers = tip.startsWith(u"Enseignants\u00A0:"_s);
        EXPECT_TRUE(!isGuarded || addressesTeachers) << tip.toStdString();
        toTeachers += isGuarded ? 1 : 0;
    }
    EXPECT_GE(toTeachers, 4);
}

} // namespace stoikal
