#include "base/quote.h"

#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(Quote, IsTheWholeTextUpToTwoHundredCharacters)
{
    EXPECT_EQ(Quoted(u"H2+O2=H2O/2,1,2"), u"H2+O2=H2O/2,1,2"_s);
    EXPECT_EQ(Quoted(QString(200, u'x')), QString(200, u'x'));
    EXPECT_EQ(Quoted(QString(201, u'x')), QString(199, u'x') + u"…"_s);
}

TEST(Quote, CutsNoCharacterInTwo)
{
    // U+1D11E, beyond the first plane, takes two units: the 199th and the 200th.
    const QString text = QString(198, u'x') + u"\U0001D11E"_s + QString(10, u'x');

    EXPECT_EQ(Quoted(text), QString(198, u'x') + u"…"_s);
}

} // namespace stoikal
