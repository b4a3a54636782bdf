#pragma once

#include "forms/form.h"

class QLineEdit;
class QPushButton;

namespace stoikal {

class Messages;
class Sound;

/// Who is the pupil? It asks for surname, first name and class and stores
/// nothing itself: the end of the window tells what was decided.
class frmName final : public ModalForm
{
    Q_OBJECT

public:
    enum Decision { LeftAsItWas = 0, Identified, Cancelled, EndOfProgram };

    frmName(Messages& messages, Sound& sound, QWidget* parent);

    QString Nom() const;
    QString Prenom() const;
    QString Classe() const;

protected:
    void EscapePressed() override { cmdAnnul_Click(); }
    void TitleBarClosed() override { done(LeftAsItWas); }

private:
    void cmdOK_Click();
    void cmdAnnul_Click();
    void cmdEnd_Click();

    Messages& m_messages;
    Sound& m_sound;

    QLineEdit* txtIdent[3];
    QPushButton* cmdOK;
    QPushButton* cmdAnnul;
    QPushButton* cmdEnd;
};

} // namespace stoikal
