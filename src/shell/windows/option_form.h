#pragma once

#include "forms/form.h"

class QRadioButton;

namespace stoikal {

/// A small modal question with two options and one button. The first option is
/// preset; closing by the title bar takes the option chosen.
class OptionForm : public ModalForm
{
    Q_OBJECT

public:
    struct Texts {
        QString name;
        QString caption;
        QString labelName;
        QString question;
        const char* optionArray;
        QString options[2];
        QString buttonName;
        QString button;
    };

    OptionForm(const Texts& texts, QWidget* parent);

    /// 0 or 1.
    int Chosen() const;

private:
    QRadioButton* m_options[2];
};

/// Balancing or progress? Asked when the settings do not tell which files the
/// user works with.
class frmEtude final : public OptionForm
{
    Q_OBJECT

public:
    explicit frmEtude(QWidget* parent);
};

/// A series of exercises, or free simulation? Asked for a file with progress data.
class frmChoixSimul final : public OptionForm
{
    Q_OBJECT

public:
    explicit frmChoixSimul(QWidget* parent);
};

} // namespace stoikal
