#pragma once

#include <QChar>
#include <QString>
#include <cstdint>

namespace stoikal {

/// The number of particles of a kind is typed with so many characters at most.
constexpr qsizetype kMostCharacters = 4;
/// More particles are refused.
constexpr std::int64_t kMostParticles = 1000;

/// What becomes of a key in a box for a number of particles.
enum class CountKey {
    NotJudged, ///< the box is full: a beep, and the key goes in
    Accepted,
    DecimalSign, ///< refused: whole numbers only
    NoDigit, ///< refused
};

CountKey JudgeCountKey(QChar key, qsizetype lengthBefore);

/// The text without the first occurrence of a refused key; "0" when nothing is left.
QString WithoutKey(const QString& text, QChar key);

/// The number at the start of a box's text, 0 or more; an empty box counts as 0.
std::int32_t TypedCount(QStringView text);

} // namespace stoikal
