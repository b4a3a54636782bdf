#pragma once

#include <QByteArray>
#include <QString>

namespace stoikal {

/// The end of the name of a file that grows beside another, "HighScore.txt.a4k0z7":
/// letters and digits by turns, as no word or number of a person's would be. What a
/// program that was killed left under such a name may be taken away.
QByteArray TemporaryLetters();

/// The name that a name of that kind begins with, "HighScore.txt"; empty for others.
QString NameBeforeTemporaryLetters(const QString& name);

} // namespace stoikal
