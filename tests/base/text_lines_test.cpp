#include "base/text_lines.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(TextLines, EndInCrInLfAndInCrLf)
{
    EXPECT_EQ(DecodeLines("a\rb\nc\r\nd"), QStringList({u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
}

TEST(TextLines, CrCrLfEndsTwoLines)
{
    EXPECT_EQ(DecodeLines("a\r\r\nb"), QStringList({u"a"_s, u""_s, u"b"_s}));
}

TEST(TextLines, LfCrEndsTwoLines)
{
    EXPECT_EQ(DecodeLines("a\n\rb"), QStringList({u"a"_s, u""_s, u"b"_s}));
}

TEST(TextLines, EmptyLinesCount)
{
    EXPECT_EQ(DecodeLines("\n\na\r\n\r\n"), QStringList({u""_s, u""_s, u"a"_s, u""_s}));
    EXPECT_EQ(DecodeLines("\r\r"), QStringList({u""_s, u""_s}));
}

TEST(TextLines, BehindTheLastEndNothingIsNoLine)
{
    EXPECT_EQ(DecodeLines("a\r\n"), QStringList({u"a"_s}));
    EXPECT_EQ(DecodeLines("a"), QStringList({u"a"_s}));
    EXPECT_EQ(DecodeLines(""), QStringList());
}

TEST(TextLines, CrAsTheVeryLastByteEndsALine)
{
    EXPECT_EQ(DecodeLines("a\rb\r"), QStringList({u"a"_s, u"b"_s}));
}

TEST(TextLines, WalkerGivesTheBytesOfEachLine)
{
    const QByteArray bytes("\xE9\r\n\r\nz");
    LineWalker walker(bytes);

    ASSERT_FALSE(walker.AtEnd());
    EXPECT_EQ(walker.Next().toByteArray(), QByteArray("\xE9"));
    EXPECT_EQ(walker.Next().toByteArray(), QByteArray());
    EXPECT_FALSE(walker.AtEnd());
    EXPECT_EQ(walker.Next().toByteArray(), QByteArray("z"));
    EXPECT_TRUE(walker.AtEnd());
}

TEST(LineDecoding, ValidUtf8WithAHighByteIsUtf8)
{
    EXPECT_EQ(DecodeLine("\xC3\x89l\xC3\xA8ve \xE2\x82\xAC \xC5\x93"), u"Élève € œ"_s);
    EXPECT_EQ(DecodeLine("\xC5\x81ukasz"), u"Łukasz"_s);
}

TEST(LineDecoding, ElseItIsWindows1252)
{
    // 80 is the euro sign, 92 the apostrophe, 9C oe, E9 é.
    EXPECT_EQ(DecodeLine("\x80 l\x92\x9Cuf d\xE9j\xE0"), u"€ l’œuf déjà"_s);
    EXPECT_EQ(DecodeLine("\x85\x93\x94\x96\x97\x99\x8C\x9F"), u"…“”–—™ŒŸ"_s);
}

TEST(LineDecoding, BrokenUtf8IsWindows1252)
{
    EXPECT_EQ(DecodeLine("\xC3"), u"Ã"_s); // A beginning without its rest.
    EXPECT_EQ(DecodeLine("\xC3\xA9\xE9"), u"Ã©é"_s); // One bad byte decides for the line.
    EXPECT_EQ(DecodeLine("\xC0\xAF"), u"À¯"_s); // A longer form of "/".
    EXPECT_EQ(DecodeLine("\xED\xA0\x80"), u"í\u00A0€"_s); // Half of a pair.
}

TEST(LineDecoding, EachLineIsDecodedByItself)
{
    EXPECT_EQ(DecodeLines("\xC3\xA9\r\n\xE9\r\ne\r\n\xC3\xA8"),
              QStringList({u"é"_s, u"é"_s, u"e"_s, u"è"_s}));
}

TEST(LineDecoding, PlainBytesStayAsTheyAre)
{
    EXPECT_EQ(DecodeLine("H2+O2=H2O/2,1,2 #M4"), u"H2+O2=H2O/2,1,2 #M4"_s);
    EXPECT_EQ(DecodeLine(""), QString());
    EXPECT_EQ(DecodeLine(QByteArrayView("a\0b", 3)), QString::fromLatin1("a\0b", 3));
}

TEST(LineEncoding, IsWindows1252)
{
    EXPECT_EQ(EncodeLine(u"€ l’œuf déjà"_s), QByteArray("\x80 l\x92\x9Cuf d\xE9j\xE0"));
    EXPECT_EQ(EncodeLine(u"N°1 : 2 H2"_s),
              QByteArray("N\xB0"
                         "1 : 2 H2"));
    EXPECT_EQ(EncodeLine(QString()), QByteArray());
}

TEST(LineEncoding, CharacterOutsideThePageMakesTheWholeLineUtf8)
{
    EXPECT_EQ(EncodeLine(u"Łukasz à l'école"_s),
              QByteArray("\xC5\x81ukasz \xC3\xA0 l'\xC3\xA9"
                         "cole"));
    EXPECT_EQ(EncodeLine(u"Fe³⁺"_s), QByteArray("Fe\xC2\xB3\xE2\x81\xBA"));
}

TEST(LineEncoding, EveryByteOfThePageComesBack)
{
    // Also the five that the page leaves free: 81, 8D, 8F, 90 and 9D.
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray line(1, static_cast<char>(byte));
        EXPECT_EQ(EncodeLine(DecodeLine(line)), line) << byte;
    }
}

TEST(LineEncoding, LineThatWouldReadAsAnotherTextIsUtf8)
{
    // In Windows-1252 "Ã©" is C3 A9, which is also "é" in UTF-8.
    EXPECT_EQ(EncodeLine(u"Ã©"_s), QByteArray("\xC3\x83\xC2\xA9"));
    EXPECT_EQ(DecodeLine(EncodeLine(u"Ã©"_s)), u"Ã©"_s);
}

TEST(LineEncoding, EveryNameComesBack)
{
    for (const QString& name :
         {u"Élodie"_s, u"Zoë Œuvrard"_s, u"Łukasz"_s, u"Ştefan d’Été"_s, u"Иван"_s, u"李"_s, u"😀 é"_s})
        EXPECT_EQ(DecodeLine(EncodeLine(name)), name) << name.toStdString();
}

TEST(TextBytes, ByteOrderMarkIsDropped)
{
    EXPECT_EQ(NormaliseTextBytes("\xEF\xBB\xBF"
                                 "abc"),
              QByteArray("abc"));
    EXPECT_EQ(DecodeLines("\xEF\xBB\xBF\xC3\xA9\r\n\xE9"), QStringList({u"é"_s, u"é"_s}));
}

TEST(TextBytes, MarksInARowAreAllDropped)
{
    EXPECT_EQ(NormaliseTextBytes("\xEF\xBB\xBF\xEF\xBB\xBF"
                                 "H2"),
              QByteArray("H2"));
    // A mark, then U+FEFF once more, then "H", most significant byte first.
    EXPECT_EQ(NormaliseTextBytes(QByteArray("\xFE\xFF\xFE\xFF\0H", 6)), QByteArray("H"));
}

TEST(TextBytes, FileInUtf16IsKnownByItsMark)
{
    // "é", CR LF, "Ł" with the low byte first, then with the high byte first.
    EXPECT_EQ(DecodeLines(QByteArray("\xFF\xFE\xE9\x00\x0D\x00\x0A\x00\x41\x01", 10)),
              QStringList({u"é"_s, u"Ł"_s}));
    EXPECT_EQ(DecodeLines(QByteArray("\xFE\xFF\x00\xE9\x00\x0D\x00\x0A\x01\x41", 10)),
              QStringList({u"é"_s, u"Ł"_s}));
}

TEST(TextBytes, FilesWithoutAMarkStayAsTheyAre)
{
    const QByteArray bytes("\xE9\r\r\n\xC3\xA9\x00z", 7);

    EXPECT_EQ(NormaliseTextBytes(bytes), bytes);
}

TEST(OnOneLine, MakesABlankOfWhatBreaksALine)
{
    EXPECT_EQ(OnOneLine(u"A\r\nB\tC"_s), u"A  B C"_s);
    EXPECT_EQ(OnOneLine(u"a\u0085b\u2028c\u2029d\u007Fe\x1B[1mf"_s), u"a b c d e [1mf"_s);
}

TEST(OnOneLine, MakesABlankOfWhatTurnsTheWriting)
{
    EXPECT_EQ(OnOneLine(u"20\u202E91 eto\u2066N"_s), u"20 91 eto N"_s);
}

TEST(OnOneLine, LeavesLettersSignsAndBlanksAsTheyAre)
{
    const QString text = u" Élève\u00A02\u202F% – œuf\u2019 H₂O "_s;
    EXPECT_EQ(OnOneLine(text), text);
}

} // namespace stoikal
