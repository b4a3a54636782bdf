#include "editor/windows/frm_preview.h"

#include "forms/place.h"
#include "platform/doors.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>

namespace stoikal {
namespace {

QString Section()
{
    return QStringLiteral("Preview Window");
}

/// The last line of the equation of that number, which begins at `line`.
QTextBlock LastLineOf(QTextBlock line, int number)
{
    const QString next = QStringLiteral("%1) ").arg(number + 1);
    while (line.next().isValid() && !line.next().text().isEmpty() && !line.next().text().startsWith(next))
        line = line.next();
    return line;
}

constexpr int kSmallestWidth = 280;
constexpr int kSmallestHeight = 120;

} // namespace

frmPreview::frmPreview(const Screen& screen, Settings& settings, QWidget* editor)
    : Form(QStringLiteral("frmPreview"), QStringLiteral("Prévisualisation fichier d'équations"), Kind::Tool,
           editor)
    , m_screen(screen)
    , m_settings(settings)
    , m_editor(editor)
    , lblListing(Named(new QLabel(QStringLiteral("Liste des équations saisies :"), this),
                       QStringLiteral("lblListing"), QStringLiteral("Liste des équations saisies")))
    , txtResult(Named(new QPlainTextEdit(this), QStringLiteral("txtResult"),
                      QStringLiteral("Liste des équations saisies")))
{
    txtResult->setReadOnly(true);
    txtResult->setTabChangesFocus(true);
    txtResult->setUndoRedoEnabled(false);
    txtResult->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    rows->addWidget(lblListing);
    rows->addWidget(txtResult, 1);
    setMinimumSize(kSmallestWidth, kSmallestHeight);
}

QRect frmPreview::BesideEditor() const
{
    constexpr int kGap = 8;
    constexpr int kTitleBar = 32;
    constexpr int kWidth = 480;
    const QRect area = m_screen.WorkArea();
    const QRect editor = m_editor->frameGeometry();
    const int roomRight = area.right() - editor.right() - kGap;
    if (roomRight >= kSmallestWidth)
        return {editor.right() + 1 + kGap, editor.top(), std::min(roomRight, kWidth), m_editor->height()};
    const int roomBelow = area.bottom() - editor.bottom() - kGap - kTitleBar;
    const int height = std::max(roomBelow, kSmallestHeight);
    return {editor.left(), editor.bottom() + 1 + kGap, m_editor->width(), height};
}

void frmPreview::RestorePlaceAndSize()
{
    const QRect beside = BesideEditor();
    const QRect area = m_screen.WorkArea();
    resize(RememberedSize(*this, m_settings, Section(), beside.size())
               .boundedTo(area.size())
               .expandedTo(minimumSize()));
    const QPoint corner = beside.topLeft() - area.topLeft();
    RestorePlace(*this, m_screen, m_settings, Section(),
                 QPoint(FromPixels(corner.x()), FromPixels(corner.y())));
}

void frmPreview::KeepPlaceAndSize() const
{
    stoikal::KeepPlaceAndSize(*this, m_screen, m_settings, Section());
}

void frmPreview::Append(const QString& text)
{
    txtResult->moveCursor(QTextCursor::End);
    txtResult->insertPlainText(text);
    txtResult->moveCursor(QTextCursor::End);
}

void frmPreview::ShowListing(const QString& text, int number)
{
    txtResult->setPlainText(text);
    PointAt(number);
}

void frmPreview::PointAt(int number)
{
    const QString start = QStringLiteral("%1) ").arg(number);
    // The last line that begins so: the head stands before and may hold anything.
    for (QTextBlock line = txtResult->document()->lastBlock(); line.isValid(); line = line.previous()) {
        if (line.text().startsWith(start)) {
            // Its last line first: the cause of a failure stands below it.
            for (const QTextBlock& place : {LastLineOf(line, number), line}) {
                txtResult->setTextCursor(QTextCursor(place));
                txtResult->ensureCursorVisible();
            }
            return;
        }
    }
}

} // namespace stoikal
