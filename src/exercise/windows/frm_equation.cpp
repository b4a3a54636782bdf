#include "exercise/windows/frm_equation.h"

#include "base/number_text.h"
#include "exercise/equation_layout.h"
#include "exercise/journal_lines.h"
#include "exercise/species_text.h"
#include "exercise/windows/journal_messages.h"
#include "exercise/windows/reaction_arrow.h"
#include "forms/colours.h"
#include "forms/filter_edit.h"
#include "forms/menu_state.h"
#include "forms/messages.h"
#include "forms/place.h"
#include "forms/species_label.h"
#include "forms/style.h"
#include "platform/doors.h"

#include <QFontMetricsF>
#include <QPushButton>
#include <QTimer>
#include <algorithm>

namespace stoikal {
namespace {

constexpr int kFlashMs = 1500;
constexpr int kMostDigits = 2;
constexpr Twips kBandTop = 180;
constexpr int kVerdictGap = 6; ///< pixels between the button and the words about an answer
constexpr int kButtonPadding = 16; ///< pixels beside a button's words
constexpr Twips kPlusWidth = 330;
constexpr Twips kArrowWidth = 720;

} // namespace

frmEquation::frmEquation(ExerciseRun& run, const Doors& doors, QWidget* parent)
    : Form(QStringLiteral("frmEquation"), QStringLiteral("Equation n°"), Kind::Tool, parent)
    , m_run(run)
    , m_doors(doors)
    , Timer1(Named(new QTimer(this), QStringLiteral("Timer1")))
{
    StayOnPaper(*this);
    setAutoFillBackground(true);
    setMouseTracking(true);
    BuildBand();
    BuildScoreRow();
    SetBandColour(colours::kInfoTip);
    Timer1->setInterval(kFlashMs);
    connect(Timer1, &QTimer::timeout, this, &frmEquation::Timer1_Timer);
}

void frmEquation::BuildBand()
{
    QFont formulaFont = font();
    formulaFont.setPointSizeF(font().pointSizeF() + 2);
    for (int slot = 0; slot < 6; ++slot) {
        const auto place = static_cast<size_t>(slot);
        const QString side = slot < 3 ? QStringLiteral("réactif %1").arg(slot + 1)
                                      : QStringLiteral("produit %1").arg(slot - 2);
        auto* const box = Named(new FilterEdit(this), ArrayName("txtCoef", slot),
                                QStringLiteral("Coefficient du %1").arg(side));
        box->setToolTip(
            QStringLiteral("Saisir les coefficients corrects afin d'équilibrer l'équation chimique"));
        box->setMaxLength(kMostDigits);
        box->setAlignment(Qt::AlignCenter);
        box->setFont(formulaFont);
        // Given coefficients and a shown solution are there to be read.
        QPalette palette = box->palette();
        palette.setColor(QPalette::Disabled, QPalette::Text, colours::kInk);
        box->setPalette(palette);
        connect(box, &FilterEdit::KeyPressed, this, [this, slot](QChar key) { txtCoef_KeyPress(slot, key); });
        connect(box, &QLineEdit::textChanged, this, [this, slot] { txtCoef_Change(slot); });
        connect(box, &FilterEdit::FocusGained, box, &QLineEdit::selectAll);
        txtCoef.at(place) = box;

        rtbCorp.at(place) = Named(new SpeciesLabel(this), ArrayName("rtbCorp", slot));
        rtbCorp.at(place)->setFont(formulaFont);
    }
    for (int i = 0; i < 4; ++i) {
        const auto place = static_cast<size_t>(i);
        picPlus.at(place) = Named(new QFrame(this), ArrayName("picPlus", i));
        picPlus.at(place)->setAutoFillBackground(true);
        lblPlus.at(place) = Named(new QLabel(QStringLiteral("+"), picPlus.at(place)), ArrayName("lblPlus", i),
                                  QStringLiteral("plus"));
        lblPlus.at(place)->setAutoFillBackground(true);
        lblPlus.at(place)->setAlignment(Qt::AlignCenter);
        lblPlus.at(place)->setFont(formulaFont);
    }
    imgFleche = Named(new ReactionArrow(this), QStringLiteral("imgFleche"), QStringLiteral("donne"));
}

void frmEquation::BuildScoreRow()
{
    lblNomScore = Named(new QLabel(QStringLiteral("Score :"), this), QStringLiteral("lblNomScore"));
    lblScore
        = Named(new QLabel(QStringLiteral("0"), this), QStringLiteral("lblScore"), QStringLiteral("Score"));
    QFont bold = lblScore->font();
    bold.setBold(true);
    lblScore->setFont(bold);
    cmdOther = Named(new QPushButton(QStringLiteral("Valider équation"), this), QStringLiteral("cmdOther"),
                     QStringLiteral("Valider équation"));
    cmdNext = Named(new QPushButton(QStringLiteral("Equation suivante"), this), QStringLiteral("cmdNext"),
                    QStringLiteral("Equation suivante"));
    cmdNext->setToolTip(QStringLiteral("Pour passer à l'équation suivante"));
    lblInstruction = Named(new QLabel(this), QStringLiteral("lblInstruction"));
    lblInstruction->setAlignment(Qt::AlignCenter);
    // The flash said in words, for those who do not tell red from green.
    lblVerdict = Named(new QLabel(this), QStringLiteral("lblVerdict"));
    lblVerdict->setAttribute(Qt::WA_TransparentForMouseEvents);
    lblVerdict->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    lblVerdict->setWordWrap(true);
    connect(cmdOther, &QPushButton::clicked, this, &frmEquation::cmdOther_Click);
    connect(cmdNext, &QPushButton::clicked, this, &frmEquation::ReadNextEquation);
}

ExerciseRun::Texts frmEquation::Coefficients() const
{
    ExerciseRun::Texts texts;
    std::transform(txtCoef.begin(), txtCoef.end(), texts.begin(),
                   [](const FilterEdit* box) { return box->text(); });
    return texts;
}

void frmEquation::Open()
{
    lblNomScore->setVisible(m_doors.session.IsScored());
    lblScore->setVisible(m_doors.session.IsScored());
    ShowScore();
    show();
    PlaceInWorkArea();
    raise();
    activateWindow();
    FocusFirstBox();
}

void frmEquation::ReadNextEquation()
{
    switch (m_run.ReadNextEquation()) {
    case ExerciseRun::Step::NoFile:
        return;
    case ExerciseRun::Step::EndOfFile:
        Q_EMIT EndOfFileReached();
        return;
    case ExerciseRun::Step::Equation:
        break;
    }
    setWindowTitle(QStringLiteral("Equation n°%1").arg(m_doors.session.NumEquation));
    setAccessibleName(windowTitle());
    Q_EMIT EquationRead();
    ShowRecord();
    Recompose();
    PlaceInWorkArea();
    Q_EMIT EquationShown();
}

void frmEquation::ShowRecord()
{
    const bool showsCharges = m_doors.menu.IsEnabled("Mnu_Charge");
    for (size_t slot = 0; slot < 6; ++slot) {
        const SpeciesText species
            = FormatSpecies(m_run.Record().Slots.at(slot), showsCharges, m_doors.session.FichierAvancement);
        rtbCorp.at(slot)->SetSpecies(species.text, species.heights);
        rtbCorp.at(slot)->setAccessibleName(species.text);
    }
    FillBoxes();
    PlaceControls();
}

void frmEquation::FillBoxes()
{
    const bool isGiven = m_doors.session.FichierAvancement;
    for (size_t slot = 0; slot < 6; ++slot) {
        const SpeciesSlot& species = m_run.Record().Slots.at(slot);
        // The boxes are emptied one after the other: the atoms are counted once, at the end.
        const QSignalBlocker quiet(txtCoef.at(slot));
        txtCoef.at(slot)->clear();
        txtCoef.at(slot)->setEnabled(true);
        if (isGiven && !species.Molecule.isEmpty()) {
            txtCoef.at(slot)->setText(QString::number(species.Coeff));
            txtCoef.at(slot)->setEnabled(false);
        }
    }
    if (isGiven) {
        lblInstruction->setText(m_doors.session.SerieExercices
                                    ? QStringLiteral("Calculez les masses molaires moléculaires")
                                    : QStringLiteral("Faites varier les quantités de matière"));
    }
}

void frmEquation::PlaceControls()
{
    EquationWidths widths;
    widths.isProgressFile = m_doors.session.FichierAvancement;
    widths.coefficient
        = FromPixels(QFontMetrics(txtCoef[0]->font()).horizontalAdvance(QStringLiteral("00")) + 18);
    widths.plus = kPlusWidth;
    widths.arrow = kArrowWidth;
    const int scoreWidth = lblNomScore->sizeHint().width()
        + QFontMetrics(lblScore->font()).horizontalAdvance(QStringLiteral("0000"));
    widths.scoreRow
        = 2 * FromPixels(scoreWidth + 16) + FromPixels(cmdOther->sizeHint().width() + kButtonPadding);
    for (size_t slot = 0; slot < 6; ++slot) {
        widths.present.at(slot) = !m_run.Record().Slots.at(slot).Molecule.isEmpty();
        widths.species.at(slot) = SpeciesWidth(
            QFontMetricsF(rtbCorp.at(slot)->font()).horizontalAdvance(rtbCorp.at(slot)->text()));
    }
    const EquationLayout layout = LayoutEquation(widths);

    const int top = ToPixels(kBandTop);
    const int height = txtCoef[0]->sizeHint().height();
    for (size_t slot = 0; slot < 6; ++slot) {
        txtCoef.at(slot)->setGeometry(ToPixels(layout.coefficientLeft.at(slot)), top,
                                      ToPixels(widths.coefficient), height);
        rtbCorp.at(slot)->setGeometry(ToPixels(layout.speciesLeft.at(slot)), top,
                                      ToPixels(widths.species.at(slot)), height);
        txtCoef.at(slot)->setVisible(layout.shown.at(slot));
        rtbCorp.at(slot)->setVisible(layout.shown.at(slot));
    }
    for (size_t i = 0; i < 4; ++i) {
        picPlus.at(i)->setGeometry(ToPixels(layout.plusLeft.at(i)), top, ToPixels(widths.plus), height);
        lblPlus.at(i)->setGeometry(0, 0, ToPixels(widths.plus), height);
        picPlus.at(i)->setVisible(layout.plusShown.at(i));
    }
    imgFleche->setGeometry(ToPixels(layout.arrowLeft), top, ToPixels(widths.arrow), height);
    // Small letters of a larger type may need more than the height told.
    const int least = RowTop(top + height) + ButtonHeight() + kVerdictGap + VerdictHeight() + 2;
    setFixedSize(ToPixels(layout.width), std::max(ToPixels(layout.height), least));
    PlaceScoreRow(top + height);
}

int frmEquation::RowTop(int bandBottom)
{
    return std::max(ToPixels(kValidateTop), bandBottom + 4);
}

int frmEquation::ButtonHeight() const
{
    return cmdOther->sizeHint().height();
}

int frmEquation::VerdictHeight() const
{
    return 2 * lblVerdict->fontMetrics().lineSpacing() + 2;
}

void frmEquation::PlaceScoreRow(int bandBottom)
{
    const bool isProgress = m_doors.session.FichierAvancement;
    const int rowTop = RowTop(bandBottom);
    const int rowHeight = cmdOther->sizeHint().height();
    const int margin = ToPixels(kBandMargin);
    lblNomScore->setGeometry(margin, rowTop, lblNomScore->sizeHint().width(), rowHeight);
    const int scoreLeft = margin + lblNomScore->width() + 2;
    const int scoreWidth = QFontMetrics(lblScore->font()).horizontalAdvance(QStringLiteral("0000"));
    lblScore->setGeometry(scoreLeft, rowTop, scoreWidth, rowHeight);

    cmdOther->setVisible(!isProgress);
    const int buttonWidth = cmdOther->sizeHint().width() + kButtonPadding;
    cmdOther->setGeometry((width() - buttonWidth) / 2, rowTop, buttonWidth, rowHeight);
    const int free = scoreLeft + scoreWidth;
    lblInstruction->setVisible(isProgress);
    lblInstruction->setGeometry(free, rowTop, width() - free - margin, rowHeight);
    // In free simulation the button leads on; a balancing file goes on by its answers.
    cmdNext->setVisible(isProgress && !m_doors.session.SerieExercices);
    cmdNext->setGeometry((width() - cmdNext->sizeHint().width()) / 2, ToPixels(kTableButtonsTop),
                         cmdNext->sizeHint().width(), rowHeight);
    const int verdictTop = rowTop + rowHeight + kVerdictGap;
    lblVerdict->setGeometry(margin, verdictTop, width() - 2 * margin, VerdictHeight());
}

void frmEquation::PlaceInWorkArea()
{
    const Twips left = (m_doors.session.LargeurUtile - FromPixels(width())) / 2;
    const Twips top = m_doors.session.HauteurUtile - FromPixels(height()) + 300;
    PlaceWindow(*this, m_doors.screen, left, top);
}

void frmEquation::FocusFirstBox()
{
    if (txtCoef[0]->isEnabled())
        txtCoef[0]->setFocus();
    else if (cmdOther->isVisible() && cmdOther->isEnabled())
        cmdOther->setFocus();
}

void frmEquation::txtCoef_KeyPress(int index, QChar key)
{
    FilterEdit* const box = txtCoef.at(static_cast<size_t>(index));
    if (box->LengthBeforeKey() == kMostDigits) {
        // The box's own limit keeps the key out.
        m_doors.sound.Beep();
        return;
    }
    m_run.State().BadKey = false;
    if (key >= QLatin1Char('0') && key <= QLatin1Char('9'))
        return;
    m_run.State().BadKey = true;
    if (box->RefusalIsTold())
        return;
    box->NoteRefusal();
    const bool isDecimal = key == QLatin1Char(',') || key == QLatin1Char('.');
    m_doors.messages.InputError(this,
                                isDecimal ? QStringLiteral("Les nombres décimaux ne sont pas autorisés.")
                                          : QStringLiteral("Veuillez saisir un chiffre."));
}

void frmEquation::RemoveLastCharacter(int index)
{
    FilterEdit* const box = txtCoef.at(static_cast<size_t>(index));
    box->setText(box->text().chopped(1));
}

void frmEquation::txtCoef_Change(int index)
{
    const FilterEdit* const box = txtCoef.at(static_cast<size_t>(index));
    const QString text = box->text();
    if (m_run.State().BadKey && !text.isEmpty()) {
        m_run.State().BadKey = false;
        RemoveLastCharacter(index);
        return;
    }
    if (box->isHidden())
        return;
    if (!text.isEmpty() && text.front() >= QLatin1Char('0') && text.front() <= QLatin1Char('9')
        && ReadNumber(text) == 0) {
        m_doors.messages.InputError(this, QStringLiteral("Le coefficient ne peut pas être nul."));
        RemoveLastCharacter(index);
        return;
    }
    Recompose();
}

void frmEquation::Recompose()
{
    const QStringList unknown = m_run.Compose(Coefficients());
    Q_EMIT Recomposed();
    for (const QString& symbol : unknown) {
        const QString& file = m_doors.session.TitreFichier;
        m_doors.messages.Critical(this, UnknownSymbolTitle(file), UnknownSymbolText(file, symbol));
    }
}

void frmEquation::cmdOther_Click()
{
    cmdOther->setEnabled(false);
    for (FilterEdit* const box : txtCoef)
        box->setEnabled(true);
    switch (m_run.Judge(Coefficients())) {
    case ExerciseRun::Verdict::SolutionWasShown:
        lblVerdict->clear();
        cmdOther->setEnabled(true);
        txtCoef[0]->setFocus();
        break;
    case ExerciseRun::Verdict::Wrong:
        ShowWrong(false);
        return;
    case ExerciseRun::Verdict::WrongAndSolved:
        ShowWrong(true);
        return;
    case ExerciseRun::Verdict::Reducible:
        FillEmptyBoxes();
        m_doors.messages.Information(
            this, QStringLiteral("Stoikal"),
            QStringLiteral("Votre résultat est correct,\n mais il y a plus simple !"));
        WriteResultLine();
        cmdOther->setEnabled(true);
        txtCoef[0]->setFocus();
        return;
    case ExerciseRun::Verdict::Right:
        FillEmptyBoxes();
        ShowRight();
        break;
    }
    WriteResultLine();
    m_run.MoveOn();
    ReadNextEquation();
}

void frmEquation::FillEmptyBoxes()
{
    for (FilterEdit* const box : txtCoef) {
        if (box->text().isEmpty())
            box->setText(QStringLiteral("1"));
    }
}

void frmEquation::ShowScore()
{
    lblScore->setText(QString::number(m_run.State().Score));
    lblScore->setAccessibleName(QStringLiteral("Score : %1").arg(lblScore->text()));
}

void frmEquation::ShowWrong(bool solutionIsShown)
{
    ShowScore();
    StartFlash(colours::kFlashWrong,
               solutionIsShown
                   ? QStringLiteral("Réponse fausse. Voici la solution\u00A0: validez pour continuer.")
                   : QStringLiteral("Réponse fausse\u00A0: 2 points de moins."));
    WriteResultLine();
    if (!solutionIsShown) {
        EmptyCoefficients();
        return;
    }
    ShowSolution();
    for (FilterEdit* const box : txtCoef)
        box->setEnabled(false);
}

void frmEquation::ShowRight()
{
    ShowScore();
    StartFlash(colours::kFlashRight, QStringLiteral("Bonne réponse\u00A0: 5 points de plus."));
}

void frmEquation::StartFlash(const QColor& colour, const QString& words)
{
    SetBandColour(colour);
    lblVerdict->setText(words);
    Timer1->start();
}

void frmEquation::SetBandColour(const QColor& colour)
{
    const auto paint = [&colour](QWidget* widget) {
        QPalette palette = widget->palette();
        palette.setColor(QPalette::Window, colour);
        widget->setPalette(palette);
    };
    paint(this);
    for (SpeciesLabel* const species : rtbCorp)
        paint(species);
    for (QFrame* const plus : picPlus)
        paint(plus);
    for (QLabel* const plus : lblPlus)
        paint(plus);
}

void frmEquation::Timer1_Timer()
{
    SetBandColour(colours::kInfoTip);
    Timer1->stop();
    cmdOther->setEnabled(true);
    // The words about a shown solution stay until the pupil goes on.
    if (m_run.State().AnswerOpen)
        lblVerdict->clear();
    FocusFirstBox();
}

void frmEquation::EmptyCoefficients()
{
    for (FilterEdit* const box : txtCoef)
        box->clear();
}

void frmEquation::ShowSolution()
{
    for (size_t slot = 0; slot < 6; ++slot)
        txtCoef.at(slot)->setText(QString::number(m_run.Record().Slots.at(slot).Coeff));
}

QString frmEquation::Term(int slot) const
{
    const auto place = static_cast<size_t>(slot);
    return txtCoef.at(place)->text() + rtbCorp.at(place)->text();
}

QString frmEquation::EquationText() const
{
    const auto inUse = [this](size_t slot) { return !m_run.Record().Slots.at(slot).Molecule.isEmpty(); };
    const QString plus = QStringLiteral(" + ");
    QString text = Term(0) + plus + Term(1);
    if (inUse(2))
        text += plus + Term(2);
    text += QStringLiteral("---->") + Term(3);
    if (inUse(4))
        text += plus + Term(4);
    if (inUse(5))
        text += plus + Term(5);
    return text;
}

void frmEquation::WriteResultLine()
{
    std::array<JournalTerm, 6> terms;
    for (size_t slot = 0; slot < 6; ++slot)
        terms.at(slot)
            = {txtCoef.at(slot)->text(), rtbCorp.at(slot)->text(), m_run.Record().Slots.at(slot).Coeff};
    WriteToJournal(m_doors.journal, m_doors.messages, this,
                   AnswerLines(m_doors.session.NumEquation, terms, m_run.State().Score));
}

void frmEquation::mouseMoveEvent(QMouseEvent* event)
{
    Q_EMIT MouseMovedOver();
    Form::mouseMoveEvent(event);
}

} // namespace stoikal
