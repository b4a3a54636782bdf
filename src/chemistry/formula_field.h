#pragma once

#include <QChar>
#include <QString>
#include <QStringView>
#include <optional>

namespace stoikal {

/// The windows with a box for a formula; they differ in the keys accepted.
enum class FormulaField { Expert, CalMol, NewFile, Search };

/// Whether a formula box accepts this key: Backspace, letters without accents,
/// digits, "(", ")", "+", "," and "-"; "=" in CalMol and NewFile; "{" and "}"
/// once each, in Search always. The text is what the box holds before the key,
/// without the selection that the key replaces.
bool FormulaKeyAllowed(FormulaField field, QChar key, QStringView textBefore);

/// A fault in a formula box: what is said, and the position (from 0) of the one
/// character to be selected and removed.
struct FormulaRepair {
    QString message;
    qsizetype position;
};

/// Looks at the new text of a formula box, with the key that was refused just
/// before, if any. The first fault found: the refused character, at its first
/// place in the text (of a doubled brace the older one); a leading 0; a 0 behind
/// something else than a digit. After its removal the caller asks again, without
/// a refused key. Nothing when there is no fault, nor for a refused character
/// that did not reach the text.
std::optional<FormulaRepair> FormulaFieldCheck(const QString& text, std::optional<QChar> refusedKey);

} // namespace stoikal
