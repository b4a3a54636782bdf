#include "forms/window_events.h"

#include "forms/form.h"

#include "support/window_driver.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// The names that a signal brought, in order.
QStringList Names(const QSignalSpy& spy)
{
    QStringList names;
    for (const QList<QVariant>& arguments : spy)
        names << arguments.at(0).toString();
    return names;
}

class WindowEventsTest : public testing::Test
{
protected:
    WindowEvents events;
    QSignalSpy help{&events, &WindowEvents::HelpRequested};
    QSignalSpy moves{&events, &WindowEvents::PointerMoved};
};

} // namespace

TEST_F(WindowEventsTest, F1NamesTheWindowAroundTheControl)
{
    Form form(u"frmChrono"_s, u"C"_s, Form::Kind::Tool, nullptr);
    QLineEdit edit(&form);
    form.show();

    Press(edit, Qt::Key_F1);
    Press(edit, Qt::Key_F2);

    EXPECT_EQ(Names(help), QStringList{u"frmChrono"_s});
}

TEST_F(WindowEventsTest, F1NamesTheNearestOfTwoWindows)
{
    ModalForm editor(u"frmNewFile"_s, u"E"_s, nullptr);
    Form preview(u"frmPreview"_s, u"P"_s, Form::Kind::Tool, &editor);
    editor.show();
    preview.show();

    QTest::keyClick(&preview, Qt::Key_F1);

    EXPECT_EQ(Names(help), QStringList{u"frmPreview"_s});
}

TEST_F(WindowEventsTest, F1InTheMainWindowNamesTheChildInFront)
{
    QMainWindow main;
    main.setObjectName(u"frmStoikal"_s);
    auto* const area = new QMdiArea(&main);
    main.setCentralWidget(area);
    main.show();
    Press(main, Qt::Key_F1);
    auto* const child = area->addSubWindow(new Form(u"frmProduit"_s, u"A"_s, Form::Kind::Child, nullptr));
    child->show();
    area->setActiveSubWindow(child);

    Press(main, Qt::Key_F1);
    child->hide();
    Press(main, Qt::Key_F1);

    EXPECT_EQ(Names(help), QStringList({u"frmStoikal"_s, u"frmProduit"_s, u"frmStoikal"_s}));
}

TEST_F(WindowEventsTest, MessageBoxOverAWindowIsNoneOfOurs)
{
    Form form(u"frmChrono"_s, u"C"_s, Form::Kind::Tool, nullptr);
    form.show();
    QMessageBox box(&form);
    box.show();

    QTest::keyClick(&box, Qt::Key_F1);

    EXPECT_EQ(Names(help), QStringList());
}

TEST_F(WindowEventsTest, MoveThatAControlLeavesAloneIsOneMove)
{
    Form form(u"frmCalMol"_s, u"C"_s, Form::Kind::Tool, nullptr);
    form.resize(200, 100);
    QWidget frame(&form);
    frame.setGeometry(0, 0, 100, 100);
    for (QWidget* const widget : {static_cast<QWidget*>(&form), &frame})
        widget->setMouseTracking(true);
    form.show();
    QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), frame.mapToGlobal(QPointF(5, 5)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);

    QCoreApplication::sendEvent(&frame, &move);

    EXPECT_EQ(Names(moves), QStringList{u"frmCalMol"_s});
}

TEST_F(WindowEventsTest, NothingIsReportedOnceItIsGone)
{
    Form form(u"frmChrono"_s, u"C"_s, Form::Kind::Tool, nullptr);
    form.show();
    {
        const WindowEvents shortLived;
        QSignalSpy shortHelp(&shortLived, &WindowEvents::HelpRequested);
        Press(form, Qt::Key_F1);
        // The one that came last is asked first, and takes the key.
        EXPECT_EQ(Names(shortHelp), QStringList{u"frmChrono"_s});
    }

    Press(form, Qt::Key_F1);

    EXPECT_EQ(Names(help), QStringList{u"frmChrono"_s});
}

} // namespace stoikal
