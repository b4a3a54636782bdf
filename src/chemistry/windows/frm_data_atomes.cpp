#include "chemistry/windows/frm_data_atomes.h"

#include "chemistry/element_table.h"
#include "forms/colours.h"
#include "forms/disc_pictures.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace stoikal {
namespace {

constexpr int kBallSide = 56;

/// The element's disc, as the windows of atoms draw it.
class AtomShape final : public QWidget
{
public:
    explicit AtomShape(QWidget* parent)
        : QWidget(parent)
    {
        setFixedSize(kBallSide, kBallSide);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        const DiscLook look{kBallSide / 2.0 - 2, palette().color(QPalette::Window).rgb(), {}};
        PaintDisc(painter, QRectF(rect()).center(), look, true);
    }
};

} // namespace

frmDataAtomes::frmDataAtomes(QChar separator, QWidget* parent)
    : Form(QStringLiteral("frmDataAtomes"), QStringLiteral("Données de l'élément"), Kind::Tool, parent)
    , m_separator(separator)
    , shpAtome(Named(new AtomShape(this), QStringLiteral("shpAtome"), QStringLiteral("Couleur de l'atome")))
    , cmdPrevious(Named(new QPushButton(QStringLiteral("Précédent"), this), QStringLiteral("cmdPrevious"),
                        QStringLiteral("Elément précédent")))
    , cmdNext(Named(new QPushButton(QStringLiteral("Suivant"), this), QStringLiteral("cmdNext"),
                    QStringLiteral("Elément suivant")))
{
    const QString labels[13]{
        QStringLiteral("Nom : "),
        QStringLiteral("Symbole : "),
        QStringLiteral("Configuration électronique : "),
        QStringLiteral("Numéro atomique :"),
        QStringLiteral("Masse atomique relative : "),
        QStringLiteral("Electronégativité : "),
        QStringLiteral("Masse volumique : "),
        QStringLiteral("Température de fusion : "),
        QStringLiteral("Température d'ébullition : "),
        QStringLiteral("Rayon atomique (Van der Waals) : "),
        QStringLiteral("Rayon ionique : "),
        QStringLiteral("Nombre d'isotopes : "),
        QStringLiteral("Energie de première ionisation : "),
    };
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(16, 12, 16, 12);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    grid->addWidget(shpAtome, 0, 0, 1, 2, Qt::AlignCenter);
    for (int i = 0; i < 13; ++i) {
        const auto place = static_cast<size_t>(i);
        auto* const label = Named(new QLabel(labels[i], this), ArrayName("lblLabel", i));
        // The colons stand below one another.
        if (!labels[i].endsWith(QLatin1Char(' ')))
            label->setContentsMargins(0, 0, label->fontMetrics().horizontalAdvance(QLatin1Char(' ')), 0);
        lblData.at(place) = Named(new QLabel(this), ArrayName("lblData", i),
                                  QString(labels[i]).remove(QLatin1Char(':')).trimmed());
        lblData.at(place)->setTextInteractionFlags(Qt::TextSelectableByMouse);
        lblData.at(place)->setMinimumWidth(190);
        grid->addWidget(label, i + 1, 0, Qt::AlignRight);
        grid->addWidget(lblData.at(place), i + 1, 1);
    }
    QFont bold = lblData[0]->font();
    bold.setBold(true);
    lblData[0]->setFont(bold);
    lblData[1]->setFont(bold);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(cmdPrevious);
    buttons->addWidget(cmdNext);
    grid->addLayout(buttons, 14, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    cmdPrevious->setToolTip(QStringLiteral("Elément précédent"));
    cmdNext->setToolTip(QStringLiteral("Elément suivant"));
    connect(cmdPrevious, &QPushButton::clicked, this,
            [this] { ShowElementData((m_currentElement + kElementCount - 1) % kElementCount); });
    connect(cmdNext, &QPushButton::clicked, this,
            [this] { ShowElementData((m_currentElement + 1) % kElementCount); });
    ShowElementData(0);
}

void frmDataAtomes::ShowElementData(int index)
{
    m_currentElement = index;
    QPalette palette = shpAtome->palette();
    palette.setColor(QPalette::Window, FromBgr(ElementBySymbol(ElementSymbol(index)).colour));
    shpAtome->setPalette(palette);
    for (int field = 1; field <= 13; ++field)
        lblData.at(static_cast<size_t>(field - 1))->setText(ElementDataText(index, field, m_separator));
}

} // namespace stoikal
