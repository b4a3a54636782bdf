#include "chemistry/formula_field.h"

#include "chemistry/formula.h"

using namespace Qt::StringLiterals;

namespace stoikal {
namespace {

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

} // namespace

bool FormulaKeyAllowed(FormulaField field, QChar key, QStringView textBefore)
{
    switch (key.unicode()) {
    case u'\b':
    case u'(':
    case u')':
    case u'+':
    case u',':
    case u'-':
        return true;
    case u'{':
    case u'}':
        return field == FormulaField::Search || !textBefore.contains(key);
    case u'=':
        return field == FormulaField::CalMol || field == FormulaField::NewFile;
    default:
        return IsDigit(key) || IsCapital(key) || IsSmallLetter(key);
    }
}

std::optional<FormulaRepair> FormulaFieldCheck(const QString& text, std::optional<QChar> refusedKey)
{
    if (refusedKey) {
        const qsizetype position = text.indexOf(*refusedKey);
        if (position >= 0)
            return FormulaRepair{u"Le caractère saisie (%1) n'est pas autorisé."_s.arg(*refusedKey),
                                 position};
    }
    if (text.startsWith(u'0'))
        return FormulaRepair{u"Le chiffre 0 ne peut être le premier caractère\nd'une formule moléculaire."_s,
                             0};
    for (qsizetype zero = text.indexOf(u'0'); zero >= 0; zero = text.indexOf(u'0', zero + 1)) {
        if (!IsDigit(text[zero - 1]))
            return FormulaRepair{u"Un atome ne peut avoir un indice de zéro."_s, zero};
    }
    return std::nullopt;
}

} // namespace stoikal
