#include "forms/messages.h"

#include "support/window_driver.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

QMessageBox* OpenBox()
{
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget* const widget : widgets) {
        if (auto* const box = qobject_cast<QMessageBox*>(widget); box != nullptr && box->isVisible())
            return box;
    }
    return nullptr;
}

/// What a person does in the next box, and what he sees of it.
class Reader
{
public:
    explicit Reader(std::function<void(QMessageBox&)> answer)
        : m_answer(std::move(answer))
    {
        QTimer::singleShot(0, &m_context, [this] { Look(); });
    }

    ~Reader() { EXPECT_TRUE(hasSeen) << "no box was shown"; }

    bool hasSeen = false;
    bool isModal = false;
    bool isActive = false;
    int width = 0;
    int textWidth = 0; ///< what the label of the text has
    int textNeeds = 0; ///< what the longest line of the text takes
    QString name;
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons;
    QWidget* parent = nullptr;

private:
    void Look()
    {
        QMessageBox* const box = OpenBox();
        if (box == nullptr)
            return;
        hasSeen = true;
        isModal = QApplication::activeModalWidget() == box;
        isActive = QTest::qWaitForWindowActive(box);
        name = box->objectName();
        width = box->width();
        title = box->windowTitle();
        const auto* const label = box->findChild<QLabel*>(u"qt_msgbox_label"_s);
        text = label->text();
        textWidth = label->contentsRect().width();
        const auto lines = text.split(u'\n');
        for (const QString& line : lines)
            textNeeds = std::max(textNeeds, label->fontMetrics().horizontalAdvance(line));
        icon = box->icon();
        const auto all = box->buttons();
        for (const QAbstractButton* const button : all)
            buttons << button->text();
        parent = box->parentWidget();
        m_answer(*box);
        // A box that the answer did not close would wait for ever.
        if (box->isVisible()) {
            ADD_FAILURE() << "the answer did not close the box";
            box->done(QMessageBox::Cancel);
        }
    }

    QObject m_context;
    std::function<void(QMessageBox&)> m_answer;
};

void ClickCaption(QMessageBox& box, const char* caption)
{
    Click(Control<QAbstractButton>(box, caption));
}

void ClickOk(QMessageBox& box)
{
    ClickCaption(box, "OK");
}

void PressEscape(QMessageBox& box)
{
    Press(box, Qt::Key_Escape);
}

} // namespace

TEST(Messages, InputErrorIsCriticalWithItsFixedTitle)
{
    DesktopMessages messages;
    QWidget window;
    const Reader reader(ClickOk);

    messages.InputError(&window, u"Veuillez saisir un chiffre."_s);

    EXPECT_EQ(reader.title, u"Erreur sur saisie."_s);
    EXPECT_EQ(reader.text, u"Veuillez saisir un chiffre."_s);
    EXPECT_EQ(reader.icon, QMessageBox::Critical);
    EXPECT_EQ(reader.buttons, QStringList({u"OK"_s}));
    EXPECT_EQ(reader.parent, &window);
    EXPECT_EQ(reader.name, u"MsgBox"_s);
}

TEST(Messages, KindsDifferByTheirIcon)
{
    DesktopMessages messages;
    {
        const Reader reader(ClickOk);
        messages.Critical(nullptr, u"Stoikal - Gestion erreurs"_s, u"Introuvable."_s);
        EXPECT_EQ(reader.title, u"Stoikal - Gestion erreurs"_s);
        EXPECT_EQ(reader.icon, QMessageBox::Critical);
    }
    {
        const Reader reader(ClickOk);
        messages.Warning(nullptr, u"Atome"_s, u"Inconnu."_s);
        EXPECT_EQ(reader.text, u"Inconnu."_s);
        EXPECT_EQ(reader.icon, QMessageBox::Warning);
    }
    {
        const Reader reader(ClickOk);
        messages.Information(nullptr, u"Stoikal"_s, u"Enregistré."_s);
        EXPECT_EQ(reader.icon, QMessageBox::Information);
        EXPECT_EQ(reader.buttons, QStringList({u"OK"_s}));
    }
}

TEST(Messages, TitleIsNotCutAboveAShortText)
{
    DesktopMessages messages;
    const Reader reader(ClickOk);
    const QString title = u"Une explication de titre bien plus longue que le texte"_s;

    messages.Warning(nullptr, title, u"Non !"_s);

    QFont bold = QApplication::font();
    bold.setBold(true);
    // The title bar also has an icon and three buttons, each about 20 wide.
    EXPECT_GE(reader.width, QFontMetrics(bold).horizontalAdvance(title) + 4 * 20);
}

TEST(Messages, TextIsNotCutBelowAShortTitle)
{
    DesktopMessages messages;
    const Reader reader(ClickOk);

    messages.Information(nullptr, u"Stoikal"_s,
                         u"La molécule CaCO3 est composée de :\n --> 99 atomes de calcium\n"_s);

    EXPECT_GE(reader.textWidth, reader.textNeeds);
}

TEST(Messages, BoxStandsBeforeAllOtherWindows)
{
    DesktopMessages messages;
    QWidget window;
    window.show();
    const Reader reader(ClickOk);

    messages.Information(&window, u"Stoikal"_s, u"Texte."_s);

    EXPECT_TRUE(reader.isModal);
    EXPECT_TRUE(reader.isActive);
}

TEST(Messages, WindowsBehindABoxTakeNoClicks)
{
    DesktopMessages messages;
    QWidget window;
    QPushButton behind(u"Autre"_s, &window);
    window.show();
    int clicks = 0;
    QObject::connect(&behind, &QPushButton::clicked, &window, [&clicks] { ++clicks; });
    // As the windowing system delivers it: to the window behind.
    const auto clickBehind = [&] {
        const QPoint place = behind.mapTo(&window, behind.rect().center());
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    };
    clickBehind();
    ASSERT_EQ(clicks, 1);
    const Reader reader([&](QMessageBox& box) {
        clickBehind();
        ClickOk(box);
    });

    messages.Information(&window, u"Stoikal"_s, u"Texte."_s);

    EXPECT_EQ(clicks, 1);
}

TEST(Messages, TextIsNoMarkUp)
{
    DesktopMessages messages;
    const Reader reader([&](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.findChild<QLabel*>(u"qt_msgbox_label"_s)->textFormat(), Qt::PlainText);
        ClickOk(box);
    });

    messages.Information(nullptr, u"Stoikal"_s, u"<b>H2<g></b> & <O2>"_s);

    EXPECT_EQ(reader.text, u"<b>H2<g></b> & <O2>"_s);
}

TEST(Messages, QuestionHasOuiAndNon)
{
    DesktopMessages messages;
    const Reader reader([](QMessageBox& box) { ClickCaption(box, "Oui"); });

    EXPECT_TRUE(messages.Ask(nullptr, u"Enregistrement"_s, u"Remplacer ?"_s));

    EXPECT_EQ(reader.title, u"Enregistrement"_s);
    EXPECT_EQ(reader.text, u"Remplacer ?"_s);
    EXPECT_EQ(reader.icon, QMessageBox::Question);
    QStringList buttons = reader.buttons;
    buttons.sort();
    EXPECT_EQ(buttons, QStringList({u"Non"_s, u"Oui"_s}));
}

TEST(Messages, NonSaysNo)
{
    DesktopMessages messages;
    const Reader reader([](QMessageBox& box) { ClickCaption(box, "Non"); });

    EXPECT_FALSE(messages.Ask(nullptr, u"Enregistrement"_s, u"Remplacer ?"_s));
}

TEST(Messages, EscapeOnAQuestionSaysNo)
{
    DesktopMessages messages;
    const Reader reader(PressEscape);

    EXPECT_FALSE(messages.Ask(nullptr, u"Enregistrement"_s, u"Remplacer ?"_s));
}

TEST(Messages, TitleBarOnAQuestionSaysNo)
{
    DesktopMessages messages;
    const Reader reader([](QMessageBox& box) { box.close(); });

    EXPECT_FALSE(messages.Ask(nullptr, u"Enregistrement"_s, u"Remplacer ?"_s));
}

TEST(Messages, QuestionCanHaveNonPreset)
{
    DesktopMessages messages;
    QString preset;
    const Reader reader([&preset](QMessageBox& box) {
        preset = box.defaultButton() == nullptr ? u"-"_s : box.defaultButton()->text();
        ClickCaption(box, "Oui");
    });

    EXPECT_TRUE(messages.AskPresetNo(nullptr, u"Stoikal"_s, u"Recommencer ?"_s));

    EXPECT_EQ(preset, u"Non"_s);
    EXPECT_EQ(reader.icon, QMessageBox::Question);
}

TEST(Messages, EnterOnAQuestionWithNonPresetSaysNo)
{
    DesktopMessages messages;
    const Reader reader([](QMessageBox& box) { Press(box, Qt::Key_Return); });

    EXPECT_FALSE(messages.AskPresetNo(nullptr, u"Stoikal"_s, u"Recommencer ?"_s));
}

TEST(Messages, WhatFailedCanBeTriedAgain)
{
    DesktopMessages messages;
    const Reader reader([](QMessageBox& box) { Click(*box.button(QMessageBox::Retry)); });

    EXPECT_TRUE(messages.AskRetry(nullptr, u"Stoikal"_s, u"Occupé."_s));

    EXPECT_EQ(reader.icon, QMessageBox::Critical);
    QStringList buttons = reader.buttons;
    buttons.sort();
    EXPECT_EQ(buttons, QStringList({u"Annuler"_s, u"Réessayer"_s}));
}

TEST(Messages, EscapeOnWhatFailedTriesNoMore)
{
    DesktopMessages messages;
    const Reader reader(PressEscape);

    EXPECT_FALSE(messages.AskRetry(nullptr, u"Stoikal"_s, u"Occupé."_s));
}

TEST(Messages, EscapeClosesAnInformation)
{
    DesktopMessages messages;
    const Reader reader(PressEscape);

    messages.Information(nullptr, u"Stoikal"_s, u"Texte."_s);

    EXPECT_TRUE(reader.hasSeen);
    EXPECT_EQ(OpenBox(), nullptr);
}

TEST(Messages, GivesTheKeyboardBackToTheWindowThatHadIt)
{
    QWidget mainWindow;
    mainWindow.show();
    QWidget floating(&mainWindow, Qt::Tool);
    floating.show();
    floating.activateWindow();
    Settle();
    ASSERT_TRUE(floating.isActiveWindow());
    Reader reader([&mainWindow](QMessageBox& box) {
        box.button(QMessageBox::Ok)->click();
        mainWindow.activateWindow(); // As some desktops do.
    });

    DesktopMessages messages;
    messages.Warning(&floating, u"Titre"_s, u"Texte"_s);
    Settle();

    EXPECT_TRUE(floating.isActiveWindow());
}

} // namespace stoikal
