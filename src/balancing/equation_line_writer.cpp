#include "balancing/equation_line_writer.h"

#include "base/number_text.h"

#include <QStringList>

namespace stoikal {

QString BalancedEquationLine(const std::array<QString, 6>& molecules,
                             const std::array<double, 6>& coefficients)
{
    QStringList sides[2];
    QStringList numbers;
    for (size_t position = 0; position < molecules.size(); ++position) {
        if (molecules.at(position).isEmpty())
            continue;
        sides[position < 3 ? 0 : 1] << molecules.at(position);
        numbers << PlainNumber(coefficients.at(position));
    }
    const QString plus = QStringLiteral("+");
    return sides[0].join(plus) + QLatin1Char('=') + sides[1].join(plus) + QLatin1Char('/')
        + numbers.join(QLatin1Char(','));
}

} // namespace stoikal
