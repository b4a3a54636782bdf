#pragma once

#include "editor/windows/frm_new_file.h"

#include <QObject>
#include <optional>

namespace stoikal {

class Dialogs;
class Folders;
class frmStoikal;
struct Places;

/// Opens the editor of equation files once the password was right, clean. Only where the
/// program ended while an editor was open, killed or by a power cut, it first offers that
/// work: taken up, it is what opens; refused, it is gone and the command goes on. It
/// writes no equation itself.
class EditorController final : public QObject
{
    Q_OBJECT

public:
    struct Services {
        Clock& clock;
        const Folders& folders;
        const Screen& screen;
        Dialogs& dialogs;
        Messages& messages;
        Settings& settings;
        SettingsStore& store;
        const Places& places;
    };

    EditorController(const Services& services, frmStoikal& mainWindow);

    /// The editor for a new file, modally: returns once it is closed.
    void OpenNew();

    /// Asks for an existing file and opens it in the editor, modally. A cancelled
    /// dialog, a file outside the folder of equation files and one whose name
    /// holds a point before its extension end it quietly.
    void OpenExisting();

Q_SIGNALS:
    /// The help button of the editor was pressed.
    void HelpRequested(int topic);

private:
    QString EquationFolder() const;
    frmNewFile::Doors DoorsFor(const QString& workFile);
    bool OfferLeftWork();
    std::optional<WorkPlace> FreePlace();
    void Run(frmNewFile& window);

    Services m_services;
    frmStoikal& m_mainWindow;
};

} // namespace stoikal
