#pragma once

#include <QString>
#include <exception>

namespace stoikal {

/// A failure that ends what was going on: in a run or at start-up the program,
/// in a tool window the one operation. It carries what a teacher needs to find
/// the spot: the cause in French and, where a file is at fault, its name, the
/// line's number (from 1, 0 when there is none) and the line itself.
/// It is thrown by value and caught in one place only.
class FatalFault final : public std::exception
{
public:
    explicit FatalFault(QString cause);
    FatalFault(QString cause, QString file, int line, QString lineText);

    /// A failure of something that reads no file: it takes no place, though an
    /// exercise may be open beside it.
    static FatalFault WithoutFile(QString cause);

    const char* what() const noexcept override { return m_utf8.constData(); }
    const QString& Cause() const { return m_cause; }
    const QString& File() const { return m_file; }
    int Line() const { return m_line; }
    const QString& LineText() const { return m_lineText; }

    /// The same fault with a place, unless it has one already or no file is at fault.
    FatalFault At(const QString& file, int line, const QString& lineText) const;

    /// The text of the box when only an operation ends and the program goes on.
    QString OperationText() const;

    /// The text of the closing message box: begins with "Erreur d'exécution".
    QString MessageText() const;

private:
    QString m_cause;
    QString m_file;
    int m_line = 0;
    bool m_takesPlace = true;
    QString m_lineText;
    QByteArray m_utf8;
};

} // namespace stoikal
