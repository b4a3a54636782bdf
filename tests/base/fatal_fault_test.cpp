#include "base/fatal_fault.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

const QString kLeaveTaking
    = u"\n\nL'application va se fermer. Tout ce qui a été enregistré jusqu'ici est conservé."_s;

} // namespace

TEST(FatalFault, TellsTheCause)
{
    const FatalFault fault(u"une masse est nulle."_s);

    EXPECT_EQ(fault.MessageText(), u"Erreur d'exécution\u00A0: une masse est nulle."_s + kLeaveTaking);
    EXPECT_EQ(fault.Cause(), u"une masse est nulle."_s);
    EXPECT_TRUE(fault.File().isEmpty());
    EXPECT_EQ(fault.Line(), 0);
}

TEST(FatalFault, NamesTheFileAndTheLineAtFault)
{
    const FatalFault fault(u"trop de signes."_s, u"/depot/chimie1.Equ"_s, 12, u"A=B=C/1,1"_s);

    EXPECT_EQ(fault.MessageText(),
              u"Erreur d'exécution\u00A0: trop de signes.\n\nFichier\u00A0: /depot/chimie1.Equ\n"
              "Ligne 12\u00A0: A=B=C/1,1"_s
                  + kLeaveTaking);
}

TEST(FatalFault, FileWithoutALineNamesTheFileOnly)
{
    const FatalFault fault(u"illisible."_s, u"/depot/a.Equ"_s, 0, QString());

    EXPECT_EQ(fault.MessageText(),
              u"Erreur d'exécution\u00A0: illisible.\n\nFichier\u00A0: /depot/a.Equ"_s + kLeaveTaking);
}

TEST(FatalFault, QuotesTwoHundredCharactersOfALineAtMost)
{
    const FatalFault fault(u"trop de signes."_s, u"/depot/a.Equ"_s, 3, QString(300'000, u'A'));

    EXPECT_TRUE(fault.OperationText().endsWith(u"Ligne 3\u00A0: "_s + QString(199, u'A') + u"…"_s));
    EXPECT_EQ(fault.LineText().size(), 300'000);
}

TEST(FatalFault, TextOfTheLineIsShownAsItStands)
{
    // Place holders in what a teacher wrote are no place holders of the message.
    const FatalFault fault(u"%1 et %2."_s, u"/depot/100%1.Equ"_s, 3, u"%1=%2"_s);

    EXPECT_EQ(
        fault.MessageText(),
        u"Erreur d'exécution\u00A0: %1 et %2.\n\nFichier\u00A0: /depot/100%1.Equ\nLigne 3\u00A0: %1=%2"_s
            + kLeaveTaking);
}

TEST(FatalFault, GetsAPlaceLaterButNeverLosesItsOwn)
{
    const FatalFault bare(u"cause."_s);

    const FatalFault placed = bare.At(u"a.Equ"_s, 4, u"A=B"_s);
    const FatalFault again = placed.At(u"b.Equ"_s, 9, u"C=D"_s);

    EXPECT_EQ(placed.Cause(), u"cause."_s);
    EXPECT_EQ(placed.File(), u"a.Equ"_s);
    EXPECT_EQ(placed.Line(), 4);
    EXPECT_EQ(placed.LineText(), u"A=B"_s);
    EXPECT_EQ(again.File(), u"a.Equ"_s);
    EXPECT_EQ(again.Line(), 4);
    EXPECT_EQ(again.LineText(), u"A=B"_s);
}

TEST(FatalFault, TakesNoPlaceWhereNoFileIsAtFault)
{
    const FatalFault fault = FatalFault::WithoutFile(u"division par zéro."_s);

    const FatalFault placed = fault.At(u"a.Equ"_s, 4, u"A=B"_s);

    EXPECT_EQ(placed.Cause(), u"division par zéro."_s);
    EXPECT_EQ(placed.File(), QString());
    EXPECT_EQ(placed.Line(), 0);
    EXPECT_FALSE(placed.MessageText().contains(u"Ligne"_s));
}

TEST(FatalFault, IsAnExceptionThatTellsItsCauseInUtf8)
{
    try {
        throw FatalFault(u"élément inconnu."_s);
    } catch (const std::exception& exception) {
        EXPECT_STREQ(exception.what(), "\xC3\xA9l\xC3\xA9ment inconnu.");
    }
}

} // namespace stoikal
