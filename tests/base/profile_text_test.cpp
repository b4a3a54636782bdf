#include "base/profile_text.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// What another text made from the bytes of this one reads.
QString AfterSaving(const ProfileText& text, const QString& section, const QString& key)
{
    return ProfileText(text.ToBytes()).Read(section, key);
}

} // namespace

TEST(ProfileText, ReadsAValueBySectionAndKey)
{
    const ProfileText text("[Options]\r\nPassWord=secret\r\n[Donn\xE9"
                           "es]\r\nPression=1013\r\n");

    EXPECT_EQ(text.Read(u"Options"_s, u"PassWord"_s), u"secret"_s);
    EXPECT_EQ(text.Read(u"Données"_s, u"Pression"_s), u"1013"_s);
}

TEST(ProfileText, WhatIsNotThereIsEmpty)
{
    const ProfileText text("[Options]\r\nPassWord=secret\r\nFiles by default=\r\n");

    EXPECT_TRUE(text.Read(u"Options"_s, u"Left"_s).isEmpty());
    EXPECT_TRUE(text.Read(u"Options"_s, u"Files by default"_s).isEmpty());
    EXPECT_TRUE(text.Read(u"Charge Window"_s, u"PassWord"_s).isEmpty());
    EXPECT_TRUE(text.Read(QString(), QString()).isEmpty());
    EXPECT_TRUE(ProfileText().Read(u"Options"_s, u"PassWord"_s).isEmpty());
}

TEST(ProfileText, NamesCompareWithoutCase)
{
    const ProfileText text("[R\xC9SEAU]\r\ndossier D\xC9P\xD4T=//serveur\r\n");

    EXPECT_EQ(text.Read(u"Réseau"_s, u"Dossier Dépôt"_s), u"//serveur"_s);
    EXPECT_EQ(text.Read(u"réseau"_s, u"DOSSIER DÉPÔT"_s), u"//serveur"_s);
}

TEST(ProfileText, BlanksAroundNamesAndValuesAreCut)
{
    const ProfileText text("  [ Options ]  \r\n  Left \t=  120 \t\r\n");

    EXPECT_EQ(text.Read(u"Options"_s, u"Left"_s), u"120"_s);
}

TEST(ProfileText, OnePairOfQuotesIsTakenOff)
{
    const ProfileText text("[S]\r\n"
                           "double=\"  a b \"\r\n"
                           "single=' c '\r\n"
                           "twice=\"\"d\"\"\r\n"
                           "mixed=\"e'\r\n"
                           "alone=\"\r\n"
                           "empty=\"\"\r\n");

    EXPECT_EQ(text.Read(u"S"_s, u"double"_s), u"  a b "_s);
    EXPECT_EQ(text.Read(u"S"_s, u"single"_s), u" c "_s);
    EXPECT_EQ(text.Read(u"S"_s, u"twice"_s), u"\"d\""_s);
    EXPECT_EQ(text.Read(u"S"_s, u"mixed"_s), u"\"e'"_s);
    EXPECT_EQ(text.Read(u"S"_s, u"alone"_s), u"\""_s);
    EXPECT_EQ(text.Read(u"S"_s, u"empty"_s), QString());
}

TEST(ProfileText, ValueHasAtMost254Characters)
{
    const QByteArray line("k=" + QByteArray(300, '\xE9') + "\r\n");
    const QByteArray quoted("q=\"" + QByteArray(254, 'x') + "y\"\r\n");
    const QByteArray fitting("f=" + QByteArray(254, 'z') + "\r\n");
    const ProfileText text("[S]\r\n" + line + quoted + fitting);

    EXPECT_EQ(text.Read(u"S"_s, u"k"_s), QString(254, u'é'));
    EXPECT_EQ(text.Read(u"S"_s, u"q"_s), QString(254, u'x'));
    EXPECT_EQ(text.Read(u"S"_s, u"f"_s), QString(254, u'z'));
}

TEST(ProfileText, ValueGoesOnBehindFurtherEqualsSigns)
{
    const ProfileText text("[S]\r\nequation=H2+O2=H2O\r\n");

    EXPECT_EQ(text.Read(u"S"_s, u"equation"_s), u"H2+O2=H2O"_s);
}

TEST(ProfileText, FirstOfTwoEqualKeysCounts)
{
    const ProfileText text("[S]\r\nk=1\r\nK=2\r\n[T]\r\nk=3\r\n[s]\r\nk=4\r\nm=5\r\n");

    EXPECT_EQ(text.Read(u"S"_s, u"k"_s), u"1"_s);
    EXPECT_EQ(text.Read(u"T"_s, u"k"_s), u"3"_s);
}

TEST(ProfileText, KeysBeforeTheFirstSectionAndCommentsAreNoKeys)
{
    const ProfileText text("k=1\r\n[S]\r\n;k=2\r\n=3\r\nk\r\n");

    EXPECT_TRUE(text.Read(u"S"_s, u"k"_s).isEmpty());
    EXPECT_TRUE(text.Read(QString(), u"k"_s).isEmpty());
    EXPECT_TRUE(text.Read(u"S"_s, u";k"_s).isEmpty());
    EXPECT_TRUE(text.Read(u"S"_s, QString()).isEmpty());
}

TEST(ProfileText, AllLineEndsAndBothCodesAreRead)
{
    const ProfileText text("\xEF\xBB\xBF[S]\ra=\xE9\nb=\xC3\xA9\r\r\nc=3");

    EXPECT_EQ(text.Read(u"S"_s, u"a"_s), u"é"_s);
    EXPECT_EQ(text.Read(u"S"_s, u"b"_s), u"é"_s);
    EXPECT_EQ(text.Read(u"S"_s, u"c"_s), u"3"_s);
}

TEST(ProfileText, WritingMakesTheSection)
{
    ProfileText text;

    text.Write(u"Réseau"_s, u"Dossier Dépôt"_s, u"/srv/dépôt"_s);
    text.Write(u"Options"_s, u"PassWord"_s, u"x"_s);

    EXPECT_EQ(
        text.ToBytes(),
        QByteArray("[R\xE9seau]\r\nDossier D\xE9p\xF4t=/srv/d\xE9p\xF4t\r\n[Options]\r\nPassWord=x\r\n"));
    EXPECT_EQ(text.Read(u"Réseau"_s, u"Dossier Dépôt"_s), u"/srv/dépôt"_s);
}

TEST(ProfileText, WritingAddsAKeyBehindTheLastLineOfItsSection)
{
    ProfileText text("[A]\r\na=1\r\n; note\r\n\r\n[B]\r\nb=1\r\n");

    text.Write(u"a"_s, u"c"_s, u"2"_s);

    // The blank line still parts the sections.
    EXPECT_EQ(text.ToBytes(), QByteArray("[A]\r\na=1\r\n; note\r\nc=2\r\n\r\n[B]\r\nb=1\r\n"));
}

TEST(ProfileText, WritingReplacesAKeyInItsPlace)
{
    ProfileText text("[A]\r\na=1\r\nLEFT = 5\r\nb=2\r\n");

    text.Write(u"A"_s, u"Left"_s, u"120"_s);

    EXPECT_EQ(text.ToBytes(), QByteArray("[A]\r\na=1\r\nLeft=120\r\nb=2\r\n"));
    EXPECT_EQ(text.Read(u"A"_s, u"left"_s), u"120"_s);
}

TEST(ProfileText, OtherLinesStayByteForByte)
{
    const QByteArray before("free text = here\r\n; caf\xE9 caf\xC3\xA9\r\n\r\n [ A ] ; why\r\n  b =\t\"2\" "
                            "\r\n\xFF\xFE\x01\r\n=\r\n");
    const QByteArray behind("[B\r\nc='3'\r\n\r\n\r\n[]\r\nlast");
    ProfileText text(before + "k=1\r\n" + behind);

    text.Write(u"A"_s, u"k"_s, u"9"_s);

    EXPECT_EQ(text.ToBytes(), before + "k=9\r\n" + behind + "\r\n");
}

TEST(ProfileText, WrittenValueIsReadBackAsItWas)
{
    for (const QString& value :
         {u""_s, u" "_s, u"  secret  "_s, u"\""_s, u"\"quoted\""_s, u"'a'"_s, u"\"a'"_s, u"a=b"_s, u"[x]"_s,
          u"; x"_s, u"Łukasz"_s, u"€ œ ’"_s, u"\u00A0"_s, u"\t"_s, QString(254, u'é'), u"%1"_s}) {
        ProfileText text;

        text.Write(u"Options"_s, u"PassWord"_s, value);

        EXPECT_EQ(text.Read(u"Options"_s, u"PassWord"_s), value);
        EXPECT_EQ(AfterSaving(text, u"Options"_s, u"PassWord"_s), value);
    }
}

TEST(ProfileText, WrittenValueStaysOnOneLine)
{
    ProfileText text;

    text.Write(u"S"_s, u"k"_s, u"a\r\n[T]\nb=2"_s);

    EXPECT_EQ(text.ToBytes().count('\n'), 2); // The section's line and the key's.
    EXPECT_EQ(AfterSaving(text, u"S"_s, u"k"_s), u"a  [T] b=2"_s);
}

TEST(ProfileText, WrittenValueIsReadAtOnceAsAfterSaving)
{
    ProfileText text;

    text.Write(u"S"_s, u"k"_s, QString(300, u'x'));

    EXPECT_EQ(text.Read(u"S"_s, u"k"_s), QString(254, u'x'));
    EXPECT_EQ(AfterSaving(text, u"S"_s, u"k"_s), QString(254, u'x'));
}

TEST(ProfileText, WriteReachesTheValueThatIsRead)
{
    // The section stands twice, its key only in the second one.
    ProfileText text("[S]\r\na=1\r\n[T]\r\nb=2\r\n[S]\r\nk=3\r\n");
    ASSERT_EQ(text.Read(u"S"_s, u"k"_s), u"3"_s);

    text.Write(u"S"_s, u"k"_s, u"4"_s);

    EXPECT_EQ(text.Read(u"S"_s, u"k"_s), u"4"_s);
    EXPECT_EQ(AfterSaving(text, u"S"_s, u"k"_s), u"4"_s);
}

TEST(ProfileText, DeletingASectionLeavesTheOthers)
{
    ProfileText text("; head\r\n[A]\r\na=1\r\n[B]\r\nb=1\r\n; gone with it\r\n[C]\r\nc=1\r\n");

    text.DeleteSection(u"b"_s);

    EXPECT_EQ(text.ToBytes(), QByteArray("; head\r\n[A]\r\na=1\r\n[C]\r\nc=1\r\n"));
    EXPECT_TRUE(text.Read(u"B"_s, u"b"_s).isEmpty());
    EXPECT_EQ(text.Read(u"C"_s, u"c"_s), u"1"_s);
}

TEST(ProfileText, DeletingWhatIsNotThereDoesNothing)
{
    const QByteArray bytes("[A]\r\na=1\r\n");
    ProfileText text(bytes);

    text.DeleteSection(u"B"_s);

    EXPECT_EQ(text.ToBytes(), bytes);
    EXPECT_EQ(text.Read(u"A"_s, u"a"_s), u"1"_s);
}

TEST(ProfileText, WritingASectionReplacesItsLines)
{
    ProfileText text("[A]\r\na=1\r\nold=2\r\n[B]\r\nb=1\r\n");

    text.WriteSection(u"a"_s, {u"a=5"_s, u"c=é"_s});

    EXPECT_EQ(text.ToBytes(), QByteArray("[A]\r\na=5\r\nc=\xE9\r\n[B]\r\nb=1\r\n"));
    EXPECT_EQ(text.Read(u"A"_s, u"a"_s), u"5"_s);
    EXPECT_EQ(text.Read(u"A"_s, u"c"_s), u"é"_s);
    EXPECT_TRUE(text.Read(u"A"_s, u"old"_s).isEmpty());
    EXPECT_EQ(text.Read(u"B"_s, u"b"_s), u"1"_s);
}

TEST(ProfileText, WritingASectionMakesIt)
{
    ProfileText text("[A]\r\na=1\r\n");

    text.WriteSection(u"B"_s, {u"b=2"_s});

    EXPECT_EQ(text.ToBytes(), QByteArray("[A]\r\na=1\r\n[B]\r\nb=2\r\n"));
    EXPECT_EQ(text.Read(u"B"_s, u"b"_s), u"2"_s);
}

TEST(ProfileText, RenamingMovesNumbersAlongAllAtOnce)
{
    ProfileText text("[1]\r\na=one\r\n[2]\r\na=two\r\n[3]\r\na=three\r\n");

    text.RenameSections({{u"2"_s, u"3"_s}, {u"3"_s, u"4"_s}});

    EXPECT_EQ(text.Read(u"1"_s, u"a"_s), u"one"_s);
    EXPECT_TRUE(text.Read(u"2"_s, u"a"_s).isEmpty());
    EXPECT_EQ(text.Read(u"3"_s, u"a"_s), u"two"_s);
    EXPECT_EQ(text.Read(u"4"_s, u"a"_s), u"three"_s);
    EXPECT_EQ(text.ToBytes(), QByteArray("[1]\r\na=one\r\n[3]\r\na=two\r\n[4]\r\na=three\r\n"));
}

TEST(ProfileText, RenamingPutsASectionInThePlaceOfAnother)
{
    ProfileText text("[1]\r\na=one\r\nb=b\r\n[2]\r\na=two\r\n");

    text.RenameSections({{u"2"_s, u"1"_s}});

    EXPECT_EQ(text.ToBytes(), QByteArray("[1]\r\na=two\r\n"));
    EXPECT_EQ(text.Read(u"1"_s, u"a"_s), u"two"_s);
    EXPECT_TRUE(text.Read(u"1"_s, u"b"_s).isEmpty());
}

TEST(ProfileText, RenamingASectionThatIsNotThereLeavesNoneOfTheNewName)
{
    ProfileText text("[1]\r\na=one\r\n");

    text.RenameSections({{u"2"_s, u"1"_s}});

    EXPECT_TRUE(text.ToBytes().isEmpty());
}

TEST(ProfileText, RenamingLeavesOtherLinesByteForByte)
{
    ProfileText text("; head\r\n[ Autre ]\r\nx = 1\r\n\r\n[Numero]\r\n;;\r\na= 1 \r\n[Fin]\r\n");

    text.RenameSections({{u"NUMERO"_s, u"7"_s}});

    EXPECT_EQ(text.ToBytes(),
              QByteArray("; head\r\n[ Autre ]\r\nx = 1\r\n\r\n[7]\r\n;;\r\na= 1 \r\n[Fin]\r\n"));
}

} // namespace stoikal
