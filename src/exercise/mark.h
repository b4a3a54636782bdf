#pragma once

#include <QChar>
#include <QString>
#include <cstdint>

namespace stoikal {

/// The mark out of 20: score * 20 / maxScore. Time takes no part in it.
/// Where no point could be won (maxScore 0) the mark is 0.
double Mark(std::int64_t score, std::int64_t maxScore);

/// What the pupil reads: "Votre note est de : 9,3/20". A mark without a
/// fraction has no decimal, any other at most one, with the separator given.
QString MarkText(double mark, QChar separator);

/// The time taken in seconds, one decimal always: "Temps mis : 12,3 s".
QString TimeText(double seconds, QChar separator);

} // namespace stoikal
