#pragma once

#include "base/file_lock.h"
#include "base/outcome.h"
#include "editor/loaded_version.h"
#include "editor/work_equation.h"

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace stoikal {

class ProfileText;
class SettingsStore;

/// What the editor knows beside the equations.
struct WorkDesk {
    QString name; ///< of the file that is written, without its extension
    FileType type = FileType::Equ;
    QString head; ///< the comment at the file's head, lines parted by "\n"
    int count = 1; ///< equations, from 1
    int number = 1; ///< the one shown, 1 to count
    LoadedVersion loaded; ///< the file that is being changed; empty for a new one
    bool isUnfinished = false; ///< something was entered that is in no equation file yet

    /// Whether a file that was there before is being changed.
    bool IsExisting() const { return !loaded.fileName.isEmpty(); }
    bool operator==(const WorkDesk&) const = default;
};

/// The editor's work file: a section for each equation, named by its number
/// ("1" the first), and a section "Fichier" for the rest. Everything that the
/// teacher enters is in it, so that an editor whose process was killed can be
/// taken up again. Each change is one write: it is in the file whole, or not at
/// all. Changes return the file, or fail with the reason in French words. Sections
/// that are not its own stay. It shows nothing and judges nothing.
class WorkFile
{
public:
    WorkFile(SettingsStore& store, QString path);

    const QString& Path() const { return m_path; }

    /// Empties the file and makes equation 1, blank.
    Outcome<QString> Begin(const WorkDesk& desk);
    /// Empties the file and enters these equations, at least one.
    Outcome<QString> BeginWith(const WorkDesk& desk, const std::vector<WorkEquation>& equations);

    /// The equation of that number; a blank one where there is none.
    WorkEquation Equation(int number) const;
    /// Equations 1 to `count`.
    std::vector<WorkEquation> Equations(int count) const;
    /// The numbers, 1 to `count`, of the equations that could not be balanced.
    std::vector<int> FailedEquations(int count) const;

    /// Enters an equation, with the state of the desk.
    Outcome<QString> Store(int number, const WorkEquation& equation, const WorkDesk& desk);
    /// Moves the equations `number` to `last` one up, which leaves a blank place;
    /// `desk` is the state afterwards.
    Outcome<QString> InsertEquation(int number, int last, const WorkDesk& desk);
    /// Moves the equations behind `number` up to `last` one down over it;
    /// `desk` is the state afterwards.
    Outcome<QString> DeleteEquation(int number, int last, const WorkDesk& desk);

    /// The work is over: the equation file was written, or the editor is closed. A
    /// file that cannot be written is taken away, so that it is never offered.
    void Finish();

    /// The desk of the work of an editor whose program ended while it was open, when
    /// something was entered in it.
    std::optional<WorkDesk> LeftBehind() const;
    /// Takes the file away.
    void Remove();

private:
    Outcome<QString> Change(const std::function<void(ProfileText&)>& change);

    SettingsStore& m_store;
    QString m_path;
};

/// A work file that this editor alone uses, as long as this lives.
struct WorkPlace {
    QString path;
    std::shared_ptr<FileLock> lock;
};

/// The first of FileTemp.txt, FileTemp_2.txt ... in the folder, which is made when
/// missing, that no other running editor uses. Fails with a French sentence.
Outcome<WorkPlace> FreeWorkPlace(const QString& folder);

/// Those of them that no running editor uses and that hold unfinished work.
std::vector<WorkPlace> PlacesWithLeftWork(const QString& folder, SettingsStore& store);

} // namespace stoikal
