#include "base/shown_path.h"

#include "support/qt_printers.h"

#include <QDir>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The separator of this system in the place of each "/".
QString Here(QString path)
{
    return path.replace(u'/', QDir::separator());
}

} // namespace

TEST(ShownPath, HasOneSeparatorBetweenTwoNames)
{
    EXPECT_EQ(ShownPath(u"/partage//Classe3/./a.txt"_s), Here(u"/partage/Classe3/a.txt"_s));
    EXPECT_EQ(ShownPath(u"/partage/stoikal/../Classe3/"_s), Here(u"/partage/Classe3"_s));
}

TEST(ShownPath, LeavesAlonePathsThatAreInOrder)
{
    EXPECT_EQ(ShownPath(u"/home/eleve/Série 1 %1.Equ"_s), Here(u"/home/eleve/Série 1 %1.Equ"_s));
    EXPECT_EQ(ShownPath(u"exercices/Série.Equ"_s), Here(u"exercices/Série.Equ"_s));
    EXPECT_EQ(ShownPath(QString()), QString());
}

} // namespace stoikal
