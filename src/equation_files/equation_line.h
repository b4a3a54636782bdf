#pragma once

#include "equation_files/equation_record.h"

#include <QByteArray>
#include <QString>
#include <exception>

namespace stoikal {

/// What one line of an equation file says.
struct ParsedLine {
    EquationRecord record;
    bool chargesPresent = false; ///< some species has a charge
    int points = 0; ///< what the line adds to the run's maximum: 0, 5 or 10
};

/// There are at least two data more than species: most often a decimal comma,
/// which cuts a number in two. It has a message box of its own and ends the run.
class DataSyntaxError final : public std::exception
{
public:
    const char* what() const noexcept override { return "more data than species"; }

    /// Title of the message box.
    QString Title() const;
    /// Text of the message box, lines ended by "\n".
    QString Text() const;
};

/// The line announces data, but each of them reads as 0. It has a message box
/// of its own and ends the run.
class MissingDataError final : public std::exception
{
public:
    /// `line` is the line without its blanks.
    explicit MissingDataError(QString line);

    const char* what() const noexcept override { return "no datum other than 0"; }

    /// The line at fault, without its blanks.
    const QString& Line() const { return m_line; }
    /// Title of the message box.
    QString Title() const;
    /// Text of the message box, lines ended by "\n".
    QString Text() const;

private:
    QString m_line;
};

/// Reads an equation line such as `H2<g>+O2<g>=H2O<l>/2,1,2#Q0.5,Q1,Q0`. Blanks
/// (code 32) are taken out of it first, wherever they stand. Nothing is checked
/// but what cannot be read at all:
/// - FatalFault, without a place (the caller knows file and line): no "=", "/"
///   before "=", "#" before "/", "<" without ">" behind it, a side whose only
///   "+" belongs to a charge, coefficients without a comma, an excess of data
///   that is no DataSyntaxError, a number outside 16 bits;
/// - DataSyntaxError and MissingDataError as told at these classes.
ParsedLine ParseEquationLine(QString line);

} // namespace stoikal
