#include "forms/messages.h"

#include "support/fake_messages.h"
#include "support/window_driver.h"

#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(AttendedMessages, DoSomethingBeforeTheBoxAndBehindIt)
{
    QStringList order;
    FakeMessages inner;
    inner.whileOpen = [&order](const Message&) { order << u"box"_s; };
    AttendedMessages messages(
        inner, [&order] { order << u"before"_s; }, [&order] { order << u"behind"_s; });

    messages.Warning(nullptr, u"Titre"_s, u"Texte"_s);

    EXPECT_EQ(order, (QStringList{u"before"_s, u"box"_s, u"behind"_s}));
    ASSERT_EQ(inner.shown.size(), 1U);
    EXPECT_EQ(inner.shown[0].title, u"Titre"_s);
    EXPECT_EQ(inner.shown[0].text, u"Texte"_s);
    EXPECT_EQ(inner.shown[0].icon, QMessageBox::Warning);
}

TEST(AttendedMessages, PassTheAnswerOn)
{
    FakeMessages inner;
    inner.answers = {QMessageBox::Yes, QMessageBox::No};
    AttendedMessages messages(
        inner, [] {}, [] {});

    EXPECT_TRUE(messages.Ask(nullptr, u"Titre"_s, u"Oui ou non ?"_s));
    EXPECT_FALSE(messages.Ask(nullptr, u"Titre"_s, u"Oui ou non ?"_s));
}

} // namespace stoikal
