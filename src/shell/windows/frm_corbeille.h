#pragma once

#include "forms/form.h"

#include <QStringList>

class QListWidget;

namespace stoikal {

class Messages;
class Trash;

/// Lets the teacher put equation files into the desktop's trash. Only where a
/// volume has none, and after a question, are they deleted for good.
class frmCorbeille final : public ModalForm
{
    Q_OBJECT

public:
    /// The names of the files of a folder that can be chosen.
    frmCorbeille(const QString& folder, const QStringList& names, Trash& trash, Messages& messages,
                 QWidget* parent);

protected:
    void EscapePressed() override { done(Rejected); }

private:
    void cmdKill_Click();
    void DeleteForGood(const QStringList& names);
    QString PathOf(const QString& name) const;

    QString m_folder;
    Trash& m_trash;
    Messages& m_messages;
    QListWidget* flbEQU;
};

} // namespace stoikal
