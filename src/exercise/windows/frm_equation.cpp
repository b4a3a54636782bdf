#include "exercise/windows/frm_equation.h"

#include "base/number_text.h"
#include "base/places.h"
#include "exercise/equation_text.h"
#include "exercise/species_text.h"
#include "exercise/windows/journal_messages.h"
#include "exercise/windows/reaction_arrow.h"
#include "forms/colours.h"
#include "forms/filter_edit.h"
#include "forms/lower_pane.h"
#include "forms/messages.h"
#include "forms/place.h"
#include "forms/species_label.h"
#include "forms/style.h"
#include "platform/doors.h"

#include <QFontMetrics>
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
constexpr int kPaneGap = 4; ///< pixels between the row of the score and what stands below

} // namespace

frmEquation::frmEquation(ExerciseRun& run, const Doors& doors, QWidget* parent)
    : Form(QStringLiteral("frmEquation"), QStringLiteral("Equation n°"), Kind::Tool, parent)
    , m_run(run)
    , m_doors(doors)
    , m_band(MakeBand(*this))
    , Timer1(Named(new QTimer(this), QStringLiteral("Timer1")))
{
    StayOnPaper(*this);
    setAutoFillBackground(true);
    setMouseTracking(true);
    ConnectBand();
    BuildScoreRow();
    PaintBand(m_band, *this, colours::kInfoTip);
    Timer1->setInterval(kFlashMs);
    connect(Timer1, &QTimer::timeout, this, &frmEquation::Timer1_Timer);
}

void frmEquation::ConnectBand()
{
    for (int slot = 0; slot < 6; ++slot) {
        FilterEdit* const box = m_band.txtCoef.at(static_cast<size_t>(slot));
        connect(box, &FilterEdit::KeyPressed, this, [this, slot](QChar key) { txtCoef_KeyPress(slot, key); });
        connect(box, &QLineEdit::textChanged, this, [this, slot] { txtCoef_Change(slot); });
    }
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
    std::transform(m_band.txtCoef.begin(), m_band.txtCoef.end(), texts.begin(),
                   [](const FilterEdit* box) { return box->text(); });
    return texts;
}

void frmEquation::Open()
{
    lblNomScore->setVisible(m_run.State().IsScored());
    lblScore->setVisible(m_run.State().IsScored());
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
    case ExerciseRun::Step::RunIsOver:
        return;
    case ExerciseRun::Step::EndOfFile:
        // Presses that are still waiting find nothing to press.
        setEnabled(false);
        Q_EMIT EndOfFileReached();
        return;
    case ExerciseRun::Step::Equation:
        break;
    }
    setWindowTitle(QStringLiteral("Equation n°%1").arg(m_run.State().NumEquation));
    setAccessibleName(windowTitle());
    Q_EMIT EquationRead();
    ShowRecord();
    Recompose();
    PlaceInWorkArea();
    // A series begins its next equation without the button that led on to it.
    if (isVisible() && m_run.State().SerieExercices())
        FocusFirstBox();
    Q_EMIT EquationShown();
}

void frmEquation::ShowRecord()
{
    const bool showsCharges = m_run.State().ChargesPresentes;
    for (size_t slot = 0; slot < 6; ++slot) {
        const SpeciesText species
            = FormatSpecies(m_run.Record().Slots.at(slot), showsCharges, m_run.State().FichierAvancement());
        m_band.rtbCorp.at(slot)->SetSpecies(species.text, species.heights);
        m_band.rtbCorp.at(slot)->setAccessibleName(species.text);
    }
    FillBoxes();
    PlaceControls();
}

void frmEquation::FillBoxes()
{
    const bool isGiven = m_run.State().FichierAvancement();
    for (size_t slot = 0; slot < 6; ++slot) {
        const SpeciesSlot& species = m_run.Record().Slots.at(slot);
        // The boxes are emptied one after the other: the atoms are counted once, at the end.
        const QSignalBlocker quiet(m_band.txtCoef.at(slot));
        m_band.txtCoef.at(slot)->clear();
        m_band.txtCoef.at(slot)->setEnabled(true);
        if (isGiven && !species.Molecule.isEmpty()) {
            m_band.txtCoef.at(slot)->setText(QString::number(species.Coeff));
            m_band.txtCoef.at(slot)->setEnabled(false);
        }
    }
    if (isGiven) {
        lblInstruction->setText(m_run.State().SerieExercices()
                                    ? QStringLiteral("Calculez les masses molaires moléculaires")
                                    : QStringLiteral("Faites varier les quantités de matière"));
    }
}

void frmEquation::PlaceControls()
{
    const bool isProgress = m_run.State().FichierAvancement();
    const LowerPane::Needs needs = isProgress && m_lowerPane != nullptr
        ? m_lowerPane->FitTo(ToPixels(kProgressBandLeft), *cmdNext)
        : LowerPane::Needs{};
    EquationWidths widths;
    widths.isProgressFile = isProgress;
    widths.titles = FromPixels(needs.titles);
    widths.column = FromPixels(needs.column);
    const int scoreWidth = lblNomScore->sizeHint().width()
        + QFontMetrics(lblScore->font()).horizontalAdvance(QStringLiteral("0000"));
    widths.scoreRow = std::max(2 * FromPixels(scoreWidth + 16)
                                   + FromPixels(cmdOther->sizeHint().width() + kButtonPadding),
                               FromPixels(needs.width));
    for (size_t slot = 0; slot < 6; ++slot)
        widths.present.at(slot) = !m_run.Record().Slots.at(slot).Molecule.isEmpty();
    const EquationLayout layout = FitBand(m_band, widths, m_doors.places.LargeurUtile);

    const int top = ToPixels(kBandTop);
    const int height = m_band.txtCoef[0]->sizeHint().height();
    PlaceBand(m_band, layout, widths, top, height);
    // Small letters of a larger type may need more than the height told.
    const int rowBottom = RowTop(top + height) + ButtonHeight();
    const int below = kVerdictGap + VerdictHeight() + 2;
    const int least = rowBottom + below + (isProgress ? kPaneGap + needs.height : 0);
    setFixedSize(ToPixels(layout.width), std::max(ToPixels(layout.height), least));
    PlaceScoreRow(top + height);
    PlaceLowerPane(layout, rowBottom + kPaneGap, needs.height);
}

void frmEquation::PlaceLowerPane(const EquationLayout& layout, int top, int leastHeight)
{
    if (m_lowerPane == nullptr)
        return;
    m_lowerPane->setVisible(m_run.State().FichierAvancement());
    if (!m_run.State().FichierAvancement())
        return;
    LowerPane::Columns columns;
    for (size_t slot = 0; slot < 6; ++slot) {
        columns.left.at(slot) = ToPixels(layout.coefficientLeft.at(slot));
        columns.width.at(slot) = ToPixels(layout.columnWidth.at(slot));
        columns.shown.at(slot) = !m_run.Record().Slots.at(slot).Molecule.isEmpty();
    }
    columns.firstLeft = columns.left.front();
    columns.arrowMiddle = m_band.imgFleche->geometry().center().x();
    columns.bandEnd = ToPixels(layout.bandEnd);
    columns.buttonsTop = std::max(ToPixels(kTableButtonsTop), top + leastHeight - ButtonHeight());
    m_lowerPane->setGeometry(0, top, width(), columns.buttonsTop + ButtonHeight() - top);
    m_lowerPane->PlaceUnder(columns, *cmdNext);
    const int verdictTop = columns.buttonsTop + ButtonHeight() + kVerdictGap;
    lblVerdict->setGeometry(ToPixels(kBandMargin), verdictTop, width() - 2 * ToPixels(kBandMargin),
                            VerdictHeight());
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
    const bool isProgress = m_run.State().FichierAvancement();
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
    lblInstruction->setGeometry(free, rowTop, width() - free, rowHeight);
    // In free simulation the button leads on, in a series once the equation is
    // done; a balancing file goes on by its answers.
    cmdNext->setVisible(isProgress && !m_run.State().SerieExercices());
    cmdNext->setGeometry((width() - cmdNext->sizeHint().width()) / 2, ToPixels(kTableButtonsTop),
                         cmdNext->sizeHint().width(), rowHeight);
    const int verdictTop = rowTop + rowHeight + kVerdictGap;
    lblVerdict->setGeometry(margin, verdictTop, width() - 2 * margin, VerdictHeight());
}

void frmEquation::PlaceInWorkArea()
{
    const Twips left = (m_doors.places.LargeurUtile - FromPixels(width())) / 2;
    const Twips top = m_doors.places.HauteurUtile - FromPixels(height()) + 300;
    PlaceWindow(*this, m_doors.screen, left, top);
}

void frmEquation::FocusFirstBox()
{
    if (m_band.txtCoef[0]->isEnabled())
        m_band.txtCoef[0]->setFocus();
    else if (m_lowerPane != nullptr && m_lowerPane->isVisible())
        m_lowerPane->FocusFirstBox();
    else if (cmdOther->isVisible() && cmdOther->isEnabled())
        cmdOther->setFocus();
}

void frmEquation::txtCoef_KeyPress(int index, QChar key)
{
    FilterEdit* const box = m_band.txtCoef.at(static_cast<size_t>(index));
    if (box->LengthBeforeKey() == kMostDigits) {
        // The box's own limit keeps the key out.
        m_doors.sound.Beep();
        return;
    }
    m_run.NoteKey(false);
    if (key >= QLatin1Char('0') && key <= QLatin1Char('9'))
        return;
    m_run.NoteKey(true);
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
    FilterEdit* const box = m_band.txtCoef.at(static_cast<size_t>(index));
    box->setText(box->text().chopped(1));
}

void frmEquation::txtCoef_Change(int index)
{
    const FilterEdit* const box = m_band.txtCoef.at(static_cast<size_t>(index));
    const QString text = box->text();
    if (m_run.State().BadKey && !text.isEmpty()) {
        m_run.NoteKey(false);
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
        const QString& file = m_run.State().TitreFichier;
        m_doors.messages.Critical(this, UnknownSymbolTitle(file), UnknownSymbolText(file, symbol));
    }
}

void frmEquation::cmdOther_Click()
{
    cmdOther->setEnabled(false);
    for (FilterEdit* const box : m_band.txtCoef)
        box->setEnabled(true);
    switch (m_run.Judge(Coefficients())) {
    case ExerciseRun::Verdict::RunIsOver:
        return;
    case ExerciseRun::Verdict::SolutionWasShown:
        lblVerdict->clear();
        cmdOther->setEnabled(true);
        m_band.txtCoef[0]->setFocus();
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
        m_band.txtCoef[0]->setFocus();
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
    for (FilterEdit* const box : m_band.txtCoef) {
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
    for (FilterEdit* const box : m_band.txtCoef)
        box->setEnabled(false);
}

void frmEquation::ShowRight()
{
    ShowScore();
    StartFlash(colours::kFlashRight, QStringLiteral("Bonne réponse\u00A0: 5 points de plus."));
}

void frmEquation::PassStep()
{
    m_run.PassStep();
    ShowRight();
}

bool frmEquation::FailStep()
{
    const bool isExhausted = m_run.FailStep();
    ShowScore();
    StartFlash(colours::kFlashWrong,
               isExhausted ? QStringLiteral("Réponse fausse. Voici les valeurs justes.")
                           : QStringLiteral("Réponse fausse\u00A0: 2 points de moins."));
    return isExhausted;
}

void frmEquation::SetInstruction(const QString& words)
{
    lblInstruction->setText(words);
}

void frmEquation::ShowNext()
{
    cmdNext->show();
    cmdNext->setFocus();
}

void frmEquation::SetLowerPane(LowerPane* pane)
{
    m_lowerPane = pane;
    pane->setParent(this);
    pane->lower();
}

void frmEquation::StartFlash(const QColor& colour, const QString& words)
{
    PaintBand(m_band, *this, colour);
    lblVerdict->setText(words);
    Timer1->start();
}

void frmEquation::Timer1_Timer()
{
    PaintBand(m_band, *this, colours::kInfoTip);
    Timer1->stop();
    cmdOther->setEnabled(true);
    // The words about a shown solution stay until the pupil goes on.
    if (m_run.State().AnswerOpen)
        lblVerdict->clear();
    if (m_band.txtCoef[0]->isEnabled() || cmdOther->isVisible())
        FocusFirstBox();
}

void frmEquation::EmptyCoefficients()
{
    for (FilterEdit* const box : m_band.txtCoef)
        box->clear();
}

void frmEquation::ShowSolution()
{
    for (size_t slot = 0; slot < 6; ++slot)
        m_band.txtCoef.at(slot)->setText(QString::number(m_run.Record().Slots.at(slot).Coeff));
}

std::array<JournalTerm, 6> frmEquation::Terms() const
{
    std::array<JournalTerm, 6> terms;
    for (size_t slot = 0; slot < 6; ++slot)
        terms.at(slot) = {m_band.txtCoef.at(slot)->text(), m_band.rtbCorp.at(slot)->text(),
                          m_run.Record().Slots.at(slot).Coeff};
    return terms;
}

QString frmEquation::EquationText() const
{
    return stoikal::EquationText(m_run.Record(), Terms());
}

void frmEquation::WriteResultLine()
{
    WriteToJournal(m_doors.journal, m_doors.messages, this,
                   AnswerLines(m_run.State().NumEquation, Terms(), m_run.State().Score));
}

} // namespace stoikal
