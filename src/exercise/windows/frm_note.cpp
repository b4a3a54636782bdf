#include "exercise/windows/frm_note.h"

#include "base/places.h"
#include "exercise/mark.h"
#include "forms/colours.h"
#include "forms/picture_surface.h"
#include "forms/place.h"
#include "forms/style.h"
#include "platform/doors.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace stoikal {
namespace {

constexpr Twips kHeight = 5100;
constexpr Twips kHeightWithScores = 8800;
constexpr int kWidth = 470;
constexpr int kTitleBar = 32;
constexpr int kTextGap = 7; ///< 100 twips between mark, time and choices
constexpr QPointF kScaleEnd(100, 13); ///< a row of the table is one unit high

} // namespace

frmNote::frmNote(const Places& places, QChar separator, const QString& fileTitle,
                 std::optional<Earned> earned, QWidget* parent)
    : ModalForm(QStringLiteral("frmNote"), QStringLiteral("Stoikal"), parent)
    , m_places(places)
    , m_separator(separator)
    , m_upper(new QWidget(this))
    , lblInfo(Named(new QLabel(this), QStringLiteral("lblInfo")))
    , lblNote(Named(new QLabel(this), QStringLiteral("lblNote")))
    , lblTemps(Named(new QLabel(this), QStringLiteral("lblTemps")))
    , fraChoix(Named(new QGroupBox(QStringLiteral("Voulez-vous .... "), this), QStringLiteral("fraChoix")))
    , cmdAgain(Named(new QPushButton(QStringLiteral("Recommencer"), fraChoix), QStringLiteral("cmdAgain"),
                     QStringLiteral("Recommencer")))
    , cmdStay(Named(new QPushButton(QStringLiteral("Accueil"), fraChoix), QStringLiteral("cmdStay"),
                    QStringLiteral("Accueil")))
    , cmdEnd(Named(new QPushButton(QStringLiteral("Quitter"), fraChoix), QStringLiteral("cmdEnd"),
                   QStringLiteral("Quitter")))
    , chkHighScore(Named(new QCheckBox(QStringLiteral("Les 10 meilleurs scores"), this),
                         QStringLiteral("chkHighScore"), QStringLiteral("Les 10 meilleurs scores")))
    , picHighSCore(Named(new PictureSurface(this), QStringLiteral("picHighSCore"),
                         QStringLiteral("Tableau des 10 meilleurs scores")))
{
    StayOnPaper(*this);
    lblInfo->setText(QStringLiteral("Il n'y a plus d'équations dans le fichier %1").arg(fileTitle));
    lblInfo->setWordWrap(true);
    lblInfo->setTextFormat(Qt::PlainText);
    lblInfo->setAlignment(Qt::AlignCenter);
    lblTemps->setAlignment(Qt::AlignCenter);
    lblNote->setAlignment(Qt::AlignCenter);
    QFont large = lblNote->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    lblNote->setFont(large);
    BuildChoices();

    chkHighScore->setToolTip(
        QStringLiteral("Pour afficher les 10 meilleurs scores pour le fichier en cours."));
    picHighSCore->setToolTip(QStringLiteral(
        "Si vous êtes classés parmi les 10 meilleurs scores, votre résultat doit apparaître en rouge."));
    picHighSCore->SetScale({0, 0}, kScaleEnd);
    picHighSCore->SetBackColour(colours::kPaper);

    auto* const rows = new QVBoxLayout(m_upper);
    rows->setContentsMargins(16, 16, 16, 8);
    rows->setSpacing(kTextGap);
    rows->addWidget(lblInfo);
    rows->addStretch();
    rows->addWidget(lblNote);
    rows->addWidget(lblTemps);
    rows->addWidget(fraChoix);
    rows->addStretch();
    rows->addWidget(chkHighScore);
    // A larger type may need more than the sizes told.
    m_height = std::max(ToPixels(kHeight), m_upper->sizeHint().height());
    m_width = std::max(kWidth, m_upper->sizeHint().width());
    m_heightWithScores
        = m_height + std::max(ToPixels(kHeightWithScores - kHeight), 13 * QFontMetrics(TableFont()).height());
    m_upper->setFixedHeight(m_height);
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(m_upper);
    all->addWidget(picHighSCore, 1);
    picHighSCore->setContentsMargins(16, 0, 16, 16);

    if (earned) {
        lblNote->setText(MarkText(earned->mark, separator));
        lblTemps->setText(TimeText(earned->seconds, separator));
    }
    m_leastHeight = std::min(m_height, rows->totalHeightForWidth(m_width));
    lblNote->setVisible(earned.has_value());
    lblTemps->setVisible(earned.has_value());
    chkHighScore->setEnabled(earned.has_value());
    chkHighScore->setChecked(false);
    connect(chkHighScore, &QCheckBox::toggled, this, &frmNote::chkHighScore_Click);
    setFixedSize(m_width, m_height);
    picHighSCore->hide();
}

QFont frmNote::TableFont() const
{
    QFont table = font();
    table.setPointSize(10);
    return table;
}

void frmNote::BuildChoices()
{
    struct Row {
        QString question;
        QPushButton* button;
        Choice choice;
    };
    const Row choices[]{
        {QStringLiteral("... recommencer une nouvelle série d'équations ?"), cmdAgain, Again},
        {QStringLiteral("... revenir à la page d'accueil ?"), cmdStay, Stay},
        {QStringLiteral("... quitter Stoikal ?"), cmdEnd, End},
    };
    auto* const grid = new QGridLayout(fraChoix);
    grid->setContentsMargins(12, 8, 12, 12);
    grid->setSpacing(8);
    grid->setColumnStretch(0, 1);
    int row = 0;
    for (const Row& choice : choices) {
        choice.button->setAutoDefault(false);
        choice.button->setAccessibleDescription(choice.question);
        choice.button->setMinimumWidth(choice.button->sizeHint().width() + 16);
        grid->addWidget(Named(new QLabel(choice.question, fraChoix), ArrayName("lblChoix", row)), row, 0);
        grid->addWidget(choice.button, row, 1);
        const int result = choice.choice;
        connect(choice.button, &QPushButton::clicked, this, [this, result] { done(result); });
        ++row;
    }
}

void frmNote::Place(const Screen& screen)
{
    m_screen = &screen;
    PlaceWindow(*this, screen, (m_places.LargeurUtile - FromPixels(width())) / 2,
                (m_places.HauteurUtile - FromPixels(height())) / 2);
}

bool frmNote::event(QEvent* event)
{
    // Whoever comes back to the window finds it as it opened.
    if (event->type() == QEvent::WindowActivate)
        chkHighScore->setChecked(false);
    return ModalForm::event(event);
}

void frmNote::chkHighScore_Click()
{
    const bool isShown = chkHighScore->isChecked();
    picHighSCore->setVisible(isShown);
    const int room = m_screen == nullptr ? m_heightWithScores : m_screen->WorkArea().height() - kTitleBar;
    const int missing = isShown ? std::max(0, m_heightWithScores - room) : 0;
    // On a low screen the room between the words gives way, then the table, never the choices.
    const int upperHeight = std::max(m_leastHeight, m_height - missing);
    m_upper->setFixedHeight(upperHeight);
    setFixedHeight(isShown ? std::max(upperHeight, m_heightWithScores - missing) : m_height);
    if (m_screen != nullptr)
        Place(*m_screen);
}

void frmNote::ShowHighScores(const std::vector<HighScore>& section, const NewResult& own)
{
    constexpr double kNameLeft = 2;
    constexpr double kMarkRight = 52;
    constexpr double kTimeRight = 90;
    const QFont font = TableFont();
    QFont bold = font;
    bold.setBold(true);

    // Measured at the size that the table will have once it is shown.
    picHighSCore->resize(m_width, m_heightWithScores - m_height);
    picHighSCore->Clear();
    picHighSCore->DrawText({5, 0}, QStringLiteral("Nom élèves"), Qt::black, bold);
    picHighSCore->DrawText({40, 0}, QStringLiteral("Note (/20)"), Qt::black, bold);
    picHighSCore->DrawText({75, 0}, QStringLiteral("Temps (en s)"), Qt::black, bold);
    QString rule(60, QLatin1Char('='));
    picHighSCore->DrawText({0, picHighSCore->TextHeight(bold)}, rule, Qt::black, bold);

    QStringList words;
    double row = 2;
    for (const HighScoreRow& score : HighScoreRows(section, own, m_separator)) {
        const QFont& face = score.isPupil ? bold : font;
        const QColor colour = score.isPupil ? QColor(Qt::red) : QColor(Qt::black);
        picHighSCore->DrawText({kNameLeft, row}, score.name, colour, face);
        picHighSCore->DrawText({kMarkRight - picHighSCore->TextWidth(score.mark, face), row}, score.mark,
                               colour, face);
        picHighSCore->DrawText({kTimeRight - picHighSCore->TextWidth(score.time, face), row}, score.time,
                               colour, face);
        words << QStringLiteral("%1 : %2 sur 20 en %3 secondes").arg(score.name, score.mark, score.time);
        row += 1;
    }
    picHighSCore->setAccessibleDescription(words.join(QStringLiteral(" ; ")));
}

} // namespace stoikal
