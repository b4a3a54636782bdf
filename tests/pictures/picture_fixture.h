#pragma once

#include "shell/shell_fixture.h"

namespace stoikal {

/// The program on its desktop of fakes, with the exercises and the help that ship
/// and a clock, numbers of chance and letters that are the same in every run. What
/// is kept goes into two folders below the one that the variable STOIKAL_PICTURES
/// names: "plain" for the pages of the manual, "framed" for the gallery.
class PictureTest : public ShellTest
{
protected:
    void SetUp() override;

    /// Draws a window into both folders.
    void Keep(QWidget& window, const QString& name);

    /// The same for the window of that name.
    void Keep(const char* name);

    /// A window of the main area, at a size that can be read on a page.
    void KeepChild(const char* name, int width, int height);

    /// The main window with other windows and menus before it, the last one in front.
    void KeepDesk(const QString& name, const std::vector<QWidget*>& before);

    /// The modal window of that name, once it comes, is drawn and left by a button.
    void KeepWhenItComes(const char* name, const char* button, const ModalScript::Step& fill = {});

    /// Nobody set a password yet: an empty one opens what is protected.
    void GiveThePassword();

    /// The window of that name; a missing one ends the scene.
    static QWidget& Shown(const char* name);

    static QAbstractButton& Button(QWidget& window, const char* name);

    /// Types into the boxes of an array; an empty text leaves its box alone.
    static void Fill(QWidget& window, const char* array, const QStringList& texts);

    /// A file of progress is opened: as a series, or to vary its amounts.
    void OpenProgress(const QString& equation, const char* option);

    /// The path of a file of exercises that ships.
    QString Shipped(const char* name) const { return EquationFolder() + u'/' + QLatin1String(name); }

private:
    void Save(const QPixmap& picture, const char* kind, const QString& name) const;

    const QString m_target = qEnvironmentVariable("STOIKAL_PICTURES");
};

} // namespace stoikal
