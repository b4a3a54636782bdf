#include "base/unix/temporary_name.h"

#include <QRandomGenerator>
#include <QRegularExpression>

namespace stoikal {

QByteArray TemporaryLetters()
{
    constexpr int kPairs = 3;
    QByteArray letters;
    for (int i = 0; i < kPairs; ++i) {
        letters += static_cast<char>('a' + QRandomGenerator::system()->bounded('z' - 'a' + 1));
        letters += static_cast<char>('0' + QRandomGenerator::system()->bounded('9' - '0' + 1));
    }
    return letters;
}

QString NameBeforeTemporaryLetters(const QString& name)
{
    static const QRegularExpression kPattern(QStringLiteral("^(.+)\\.(?:[a-z][0-9]){3}$"),
                                             QRegularExpression::DotMatchesEverythingOption);
    return kPattern.match(name).captured(1);
}

} // namespace stoikal
