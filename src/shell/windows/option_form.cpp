#include "shell/windows/option_form.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace stoikal {

OptionForm::OptionForm(const Texts& texts, QWidget* parent)
    : ModalForm(texts.name, texts.caption, parent)
{
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(16, 16, 16, 12);
    rows->setSpacing(8);
    auto* const question = Named(new QLabel(texts.question, this), texts.labelName);
    QFont bold = question->font();
    bold.setBold(true);
    question->setFont(bold);
    rows->addWidget(question);
    rows->addSpacing(4);
    for (int i = 0; i < 2; ++i) {
        m_options[i] = Named(new QRadioButton(texts.options[i], this), ArrayName(texts.optionArray, i),
                             texts.options[i]);
        rows->addWidget(m_options[i]);
    }
    m_options[0]->setChecked(true);
    auto* const button = Named(new QPushButton(texts.button, this), texts.buttonName, texts.button);
    button->setAutoDefault(false);
    auto* const bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(button);
    rows->addSpacing(8);
    rows->addLayout(bottom);
    connect(button, &QPushButton::clicked, this, [this] { done(Accepted); });
    rows->setSizeConstraint(QLayout::SetFixedSize);
}

int OptionForm::Chosen() const
{
    return m_options[1]->isChecked() ? 1 : 0;
}

frmEtude::frmEtude(QWidget* parent)
    : OptionForm({QStringLiteral("frmEtude"),
                  QStringLiteral("Stoikal - Equilibrage ou avancement ?"),
                  QStringLiteral("lblQuestion"),
                  QStringLiteral("Avec Stoikal, vous voulez ..."),
                  "optEtude",
                  {QStringLiteral("... équilibrer des équations chimiques"),
                   QStringLiteral("... étudier l'avancement de réactions")},
                  QStringLiteral("cmdValid"),
                  QStringLiteral("Valider")},
                 parent)
{
}

frmChoixSimul::frmChoixSimul(QWidget* parent)
    : OptionForm({QStringLiteral("frmChoixSimul"),
                  QStringLiteral("Stoikal - Avancement d'une réaction"),
                  QStringLiteral("lblQuestion"),
                  QStringLiteral("Que souhaitez-vous faire ?"),
                  "optSimul",
                  {QStringLiteral("... faire une série d'exercices sur l'avancement de réactions chimiques"),
                   QStringLiteral("... simuler librement des états d'avancement d'une réaction")},
                  QStringLiteral("cmdChoix"),
                  QStringLiteral("Valider choix")},
                 parent)
{
}

} // namespace stoikal
