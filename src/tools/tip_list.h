#pragma once

#include "base/outcome.h"

#include <QString>
#include <QStringList>

namespace stoikal {

/// The tips of the day, and the one that is shown. Chance is the caller's: it
/// is given as a number.
class TipList
{
public:
    /// Adds the lines of a text file, one a tip, an empty line being a tip too,
    /// and returns how many there were. Without the file, or when it cannot be
    /// read, the list stays as it is and the reason is the French text to show.
    Outcome<qsizetype> LoadTips(const QString& path);

    /// Chooses a tip by a number in [0, 1); nothing happens without any tip. The
    /// same tip may be chosen twice running.
    void Choose(double chance);

    bool IsEmpty() const { return m_tips.isEmpty(); }
    qsizetype Count() const { return m_tips.size(); }
    /// The chosen tip; must not be called without any.
    const QString& Tip() const { return m_tips.at(m_current - 1); }

private:
    QStringList m_tips;
    qsizetype m_current = 1; ///< from 1
};

} // namespace stoikal
