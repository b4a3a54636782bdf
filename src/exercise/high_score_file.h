#pragma once

#include "base/outcome.h"
#include "exercise/high_scores.h"

#include <QString>
#include <vector>

namespace stoikal {

/// HighScore.txt: the ten best of each equation file, shared by all pupils of a
/// folder. Each update reads the file anew and replaces it whole or not at all,
/// under a lock against the other programs of the folder. Where an account may write
/// the file and not replace it, it is written over, and the next update mends what a
/// power cut left of that. Shows nothing.
class HighScoreFile
{
public:
    /// The folder that holds the file; it must be there.
    explicit HighScoreFile(const QString& folder);

    /// Ranks a result in the section of an equation file (its title, with the
    /// extension), writes the file and returns the section as it now stands.
    /// The separator is the decimal sign of the numbers written. Waits two
    /// seconds for another program, five at most for several. On any error of the files
    /// nothing is changed, and the reason is the French text to show.
    Outcome<std::vector<HighScore>> Record(const QString& fileTitle, const NewResult& result,
                                           QChar separator);

    /// Whether the last record was refused only because other programs wrote the file
    /// all the time: it may go well at once.
    bool WasBusy() const { return m_wasBusy; }

    /// The full path of HighScore.txt.
    const QString& Path() const { return m_path; }

private:
    Failure PathFailure() const;

    QString m_folder;
    QString m_path;
    QString m_temporaryPath; ///< the copy by which a file that is written over is mended
    bool m_wasBusy = false;
};

} // namespace stoikal
