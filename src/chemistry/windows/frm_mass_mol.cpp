#include "chemistry/windows/frm_mass_mol.h"

#include "base/fatal_fault.h"
#include "base/number_text.h"
#include "base/settings_store.h"
#include "base/twips.h"
#include "chemistry/element_table.h"
#include "forms/messages.h"
#include "forms/place.h"
#include "forms/selecting_edit.h"
#include "platform/doors.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace stoikal {
namespace {

constexpr Twips kBelowList = 400;

struct RowTexts {
    const char* label;
    QString caption;
    QString box; ///< accessible names
    QString tick;
};

/// The three rows, in the order of the values.
const std::array<RowTexts, 3>& Rows()
{
    static const std::array<RowTexts, 3> kRows{
        {{"Label3", QStringLiteral("Pression (en hPa) : "), QStringLiteral("Pression (en hPa)"),
          QStringLiteral("La pression est donnée")},
         {"Label4", QStringLiteral("Température   (en °C) : "), QStringLiteral("Température (en °C)"),
          QStringLiteral("La température est donnée")},
         {"Label5", QStringLiteral("Volume molaire (en L/mol)  :"),
          QStringLiteral("Volume molaire (en L/mol)"), QStringLiteral("Le volume molaire est donné")}}};
    return kRows;
}

QString PlaceSection()
{
    return QStringLiteral("MassMol Window");
}

/// The keys of the values, in the section of the data.
const std::array<QString, 3>& Keys()
{
    static const std::array<QString, 3> kKeys{QStringLiteral("Pression"), QStringLiteral("Température"),
                                              QStringLiteral("Volume molaire")};
    return kKeys;
}

QString DataSection()
{
    return QStringLiteral("Données");
}

QLabel* Heading(const QString& name, const QString& text, QWidget* parent)
{
    auto* const label = Named(new QLabel(text, parent), name);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

} // namespace

frmMassMol::frmMassMol(const Doors& doors, QPoint otherwise, QWidget* parent)
    : Form(QStringLiteral("frmMassMol"), QStringLiteral("Masses molaires"), Kind::Tool, parent)
    , m_doors(doors)
    , m_otherwise(otherwise)
{
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(12, 12, 12, ToPixels(kBelowList));
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    BuildGas(*grid);
    auto* const line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    grid->addWidget(line, 6, 0, 1, 3);
    grid->addWidget(Heading(QStringLiteral("Label2"), QStringLiteral("Masses molaires :"), this), 7, 0, 1, 3);
    lblMassMol = Named(new QLabel(this), QStringLiteral("lblMassMol"),
                       QStringLiteral("Masses molaires des atomes de l'équation"));
    lblMassMol->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblMassMol->setTextFormat(Qt::PlainText);
    grid->addWidget(lblMassMol, 8, 0, 1, 3);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    setMouseTracking(true);
}

void frmMassMol::BuildGas(QGridLayout& grid)
{
    grid.addWidget(Heading(QStringLiteral("Label1"), QStringLiteral("Volume molaire  :"), this), 0, 0, 1, 3);
    for (int value = 0; value < 3; ++value)
        BuildRow(grid, value);
    auto* const advice
        = Named(new QLabel(QStringLiteral("Cochez deux grandeurs\u00A0: la troisième est calculée."), this),
                QStringLiteral("lblConseil"));
    QPalette faded = advice->palette();
    QColor ink = faded.color(QPalette::WindowText);
    ink.setAlphaF(0.75F);
    faded.setColor(QPalette::WindowText, ink);
    advice->setPalette(faded);
    grid.addWidget(advice, 4, 0, 1, 3);
    cmdCalcul = Named(new QPushButton(QStringLiteral("Calcul"), this), QStringLiteral("cmdCalcul"),
                      QStringLiteral("Calculer la troisième grandeur"));
    grid.addWidget(cmdCalcul, 5, 2);
    connect(cmdCalcul, &QPushButton::clicked, this, &frmMassMol::cmdCalcul_Click);
    // Pressure and temperature are what one knows of a room.
    chkData[Pressure]->setChecked(true);
    chkData[Temperature]->setChecked(true);
}

void frmMassMol::BuildRow(QGridLayout& grid, int value)
{
    const auto place = static_cast<size_t>(value);
    const RowTexts& texts = Rows().at(place);
    auto* const tick = Named(new QCheckBox(this), ArrayName("chkData", value), texts.tick);
    tick->setToolTip(texts.tick);
    auto* const label = Named(new QLabel(texts.caption, this), QLatin1String(texts.label));
    auto* const box = Named(new SelectingEdit(this), ArrayName("txtData", value), texts.box);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(96);
    box->setEnabled(false);
    chkData.at(place) = tick;
    txtData.at(place) = box;
    grid.addWidget(tick, value + 1, 0);
    grid.addWidget(label, value + 1, 1);
    grid.addWidget(box, value + 1, 2);
    connect(tick, &QCheckBox::toggled, this, [this, value] { chkData_Click(value); });
    connect(box, &QLineEdit::textChanged, this, &frmMassMol::ShowWhatCanBeDone);
}

void frmMassMol::Open(const QStringList& symbols)
{
    const auto kept = [this](GasValue value, QStringView mask) {
        const QString text = m_doors.settings.Read(DataSection(), Keys().at(value));
        return FormatMask(ReadFileNumber(text), mask, m_doors.separator);
    };
    const QString pressure = kept(Pressure, u"0");
    txtData[Pressure]->setText(pressure == QLatin1String("0") ? QStringLiteral("1013") : pressure);
    txtData[Temperature]->setText(kept(Temperature, u"0.0"));
    ListAtomMasses(symbols);
    show();
    ComputeAndShow();
}

void frmMassMol::ListAtomMasses(const QStringList& symbols)
{
    QStringList lines;
    for (const QString& symbol : symbols) {
        const int index = ElementIndex(symbol);
        lines << (index < 0
                      ? QStringLiteral("%1 : inconnu").arg(symbol)
                      : QStringLiteral("%1 : %2").arg(symbol, ElementDataText(index, 5, m_doors.separator)));
    }
    lblMassMol->setText(lines.join(QLatin1Char('\n')));
    // Where the user moved it is where it stays.
    if (isVisible())
        KeepPlace(*this, m_doors.screen, m_doors.settings, PlaceSection());
    layout()->activate();
    adjustSize();
    Place();
}

void frmMassMol::Place()
{
    RestorePlace(*this, m_doors.screen, m_doors.settings, PlaceSection(), m_otherwise);
    const QWidget* const mainWindow = parentWidget();
    if (mainWindow == nullptr)
        return;
    const int lowest = mainWindow->mapToGlobal(mainWindow->rect().bottomLeft()).y();
    const int below = y() + height() + FrameAround(*this).height() - 1 - lowest;
    if (below > 0)
        move(x(), std::max(m_doors.screen.WorkArea().top(), y() - below));
}

void frmMassMol::chkData_Click(int value)
{
    const auto place = static_cast<size_t>(value);
    txtData.at(place)->setEnabled(chkData.at(place)->isChecked());
    ShowWhatCanBeDone();
}

void frmMassMol::ShowWhatCanBeDone()
{
    const auto isTicked = [](const QCheckBox* tick) { return tick->isChecked(); };
    cmdCalcul->setEnabled(std::ranges::count_if(chkData, isTicked) == 2);
}

void frmMassMol::cmdCalcul_Click()
{
    if (ComputeAndShow())
        cmdCalcul->setEnabled(false);
}

bool frmMassMol::ComputeAndShow()
{
    GasTexts texts;
    std::array<bool, 3> given{};
    for (size_t value = 0; value < 3; ++value) {
        texts.at(value) = txtData.at(value)->text();
        given.at(value) = chkData.at(value)->isChecked();
    }
    try {
        const GasData result = ComputeGasData(texts, given, m_doors.separator);
        for (size_t value = 0; value < 3; ++value)
            txtData.at(value)->setText(result.texts.at(value));
        m_inForce = result.numbers;
    } catch (const FatalFault& fault) {
        // The operation is over without a result; what was typed stays.
        m_doors.messages.OperationFault(this, fault.OperationText());
        return false;
    }
    // The molar volume in force is the stored one.
    const auto written = m_doors.settings.Write(GasSettings());
    if (!written) {
        m_doors.messages.Critical(this, QStringLiteral("Stoikal"),
                                  QStringLiteral("Le volume molaire calculé n'est pas pris en compte.\n\n%1")
                                      .arg(written.Reason()));
        return false;
    }
    Q_EMIT GasDataChanged();
    return true;
}

QList<SettingValue> frmMassMol::GasSettings() const
{
    QList<SettingValue> values;
    for (size_t value = 0; m_inForce && value < 3; ++value)
        values << SettingValue{DataSection(), Keys().at(value), PlainNumber(m_inForce->at(value))};
    return values;
}

void frmMassMol::Release()
{
    if (m_inForce)
        m_doors.settings.Remember(GasSettings());
    KeepPlace(*this, m_doors.screen, m_doors.settings, PlaceSection());
    Form::Release();
}

} // namespace stoikal
