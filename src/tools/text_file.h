#pragma once

#include "base/outcome.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace stoikal {

/// A text file that is shown and may be changed: its lines and the state in
/// which it was found. It asks nobody and shows nothing.
class TextFile
{
public:
    explicit TextFile(QString path)
        : m_path(std::move(path))
    {
    }

    const QString& Path() const { return m_path; }

    /// Reads all lines, each in its own encoding. A missing file has none. Fails
    /// with the system's reason when it cannot be read.
    Outcome<QStringList> Load();

    /// Reads the lines at the file's end, as many as can be shown at once; what is too
    /// long of a line is left out. Fails as `Load` does.
    Outcome<QStringList> LoadEnd();

    /// Whether the last reading left out the file's beginning.
    bool IsCut() const { return m_isCut; }

    /// Replaces the file, whole or not at all, by lines ended by CRLF, and returns
    /// its path. Fails with the system's reason; the old text then stands.
    Outcome<QString> Save(const QStringList& lines);

    /// True when another program has changed, made or removed the file since it
    /// was loaded or saved here.
    bool HasChangedOutside() const;

private:
    struct State {
        bool exists = false;
        qint64 size = 0;
        QDateTime changed;

        bool operator==(const State& other) const = default;
    };
    State Now() const;

    QString m_path;
    State m_state;
    bool m_isCut = false;
};

} // namespace stoikal
