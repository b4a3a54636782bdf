#include "editor/windows/frm_new_file.h"

#include "base/fatal_fault.h"
#include "base/settings_store.h"
#include "chemistry/formula.h"
#include "editor/equation_file_io.h"
#include "editor/windows/comment_page.h"
#include "editor/windows/data_page.h"
#include "editor/windows/formula_page.h"
#include "editor/windows/frm_preview.h"
#include "editor/windows/state_page.h"
#include "forms/messages.h"
#include "forms/place.h"
#include "platform/doors.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace stoikal {
namespace {

QString ReadyMadeHead()
{
    const QString stars(65, QLatin1Char('*'));
    return stars + QStringLiteral("\n       Equations chimiques pour le logiciel Stoikal\n") + stars;
}

} // namespace

frmNewFile::frmNewFile(const Doors& doors, QWidget* parent)
    : ModalForm(QStringLiteral("frmNewFile"), QStringLiteral("Stoikal - Editeur d'équations chimiques"),
                parent)
    // The window paints; keys and clicks wait, as the equation must not change then.
    , BalancingWatch(*this, doors.messages, doors.clock, QEventLoop::ExcludeUserInputEvents)
    , m_doors(doors)
    , m_work(doors.store, doors.workFile)
{
    Build();
    Connect();
    RefreshMVQCaptions();
}

frmNewFile::~frmNewFile() = default;

void frmNewFile::Connect()
{
    connect(txtNameFile, &QLineEdit::textChanged, this, &frmNewFile::txtNameFile_Change);
    connect(txtNameFile, &QLineEdit::editingFinished, this, [this] { m_nameBeforePoint.reset(); });
    for (QRadioButton* const option : optType) {
        connect(option, &QRadioButton::toggled, this, [this](bool isChosen) {
            if (!isChosen)
                return;
            ShowUse();
            Edited();
        });
    }
    connect(m_formulas, &FormulaPage::Edited, this, &frmNewFile::Edited);
    connect(m_formulas, &FormulaPage::FormulaChanged, this, [this] {
        ShowUse();
        RefreshMVQCaptions();
    });
    connect(m_formulas, &FormulaPage::BoxLeft, this, [this](const QString& formula) {
        m_leftFormulas << formula;
        QMetaObject::invokeMethod(this, &frmNewFile::CheckLeftFormulas, Qt::QueuedConnection);
    });
    connect(m_states, &StatePage::Edited, this, &frmNewFile::Edited);
    connect(m_comments, &CommentPage::Edited, this, &frmNewFile::Edited);
    connect(m_data, &DataPage::Edited, this, &frmNewFile::Edited);
    connect(tmrDraft, &QTimer::timeout, this, &frmNewFile::SaveDraft);
    connect(hscNumEqu, &QScrollBar::valueChanged, this, &frmNewFile::hscNumEqu_Change);
    connect(cmdInsEqu, &QPushButton::clicked, this, &frmNewFile::cmdInsEqu_Click);
    connect(cmdSupEqu, &QPushButton::clicked, this, &frmNewFile::cmdSupEqu_Click);
    connect(chkPreview, &QCheckBox::toggled, this, &frmNewFile::chkPreview_Click);
    connect(cmdValid, &QPushButton::clicked, this, &frmNewFile::cmdValid_Click);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { Unload(Rejected); });
    connect(cmdHelp, &QPushButton::clicked, this, &frmNewFile::HelpRequested);
    const auto move = [this](Qt::Key key, int step) {
        auto* const keys = new QShortcut(QKeySequence(key), this);
        connect(keys, &QShortcut::activated, this,
                [this, step] { hscNumEqu->setValue(hscNumEqu->value() + step); });
    };
    move(Qt::Key_PageUp, -1);
    move(Qt::Key_PageDown, 1);
}

bool frmNewFile::StartNew()
{
    WorkDesk desk;
    desk.head = ReadyMadeHead();
    if (!Kept(m_work.Begin(desk)))
        return false;
    ShowDesk(desk, false);
    return true;
}

bool frmNewFile::LoadFileIntoEditor(const QString& fileName, FileType type)
{
    const auto loaded = stoikal::LoadFileIntoEditor(m_doors.equationFolder + QLatin1Char('/') + fileName);
    if (!loaded) {
        m_doors.messages.Critical(this, QStringLiteral("Stoikal"), loaded.Reason());
        return false;
    }
    WorkDesk desk;
    desk.name = fileName.section(QLatin1Char('.'), 0, 0);
    desk.type = type;
    desk.head = loaded->head;
    desk.count = std::max(1, static_cast<int>(loaded->equations.size()));
    desk.loaded = loaded->version;
    if (!Kept(m_work.BeginWith(desk, loaded->equations)))
        return false;
    const bool hasComments = std::any_of(loaded->equations.begin(), loaded->equations.end(),
                                         [](const WorkEquation& each) { return !each.Comment.isEmpty(); });
    ShowDesk(desk, hasComments);
    return true;
}

void frmNewFile::TakeUp(const WorkDesk& desk)
{
    const auto equations = m_work.Equations(desk.count);
    ShowDesk(desk, std::any_of(equations.begin(), equations.end(), [](const WorkEquation& each) {
                 return !each.Comment.isEmpty();
             }));
    RefreshPreview(desk.count);
}

void frmNewFile::ShowDesk(const WorkDesk& desk, bool takesComments)
{
    m_isShowing = true;
    m_desk = desk;
    txtNameFile->setText(desk.name);
    optType[desk.type == FileType::Avt ? 1 : 0]->setChecked(true);
    m_comments->ShowHead(desk.head);
    m_comments->TakeComments(takesComments);
    cmdValid->setText(desk.IsExisting() ? QStringLiteral("Enregistrement") : QStringLiteral("Création"));
    m_isShowing = false;
    GoTo(desk.number);
    if (desk.IsExisting())
        m_formulas->FocusFirst();
}

FileType frmNewFile::Type() const
{
    return optType[1]->isChecked() ? FileType::Avt : FileType::Equ;
}

WorkDesk frmNewFile::DeskNow() const
{
    WorkDesk desk = m_desk;
    desk.name = txtNameFile->text();
    desk.type = Type();
    desk.head = m_comments->Head();
    return desk;
}

void frmNewFile::SetBar()
{
    const QSignalBlocker blocker(hscNumEqu);
    hscNumEqu->setRange(1, m_desk.count);
    hscNumEqu->setValue(m_desk.number);
}

void frmNewFile::GoTo(int number)
{
    m_desk.number = number;
    txtNumEqu->setText(QString::number(number));
    lblCount->setText(QStringLiteral("sur %1").arg(m_desk.count));
    SetBar();
    ShowEquation(number);
    RefreshMVQCaptions();
    if (m_preview != nullptr)
        m_preview->PointAt(number);
}

void frmNewFile::FocusFirstFormula()
{
    sstEdit->setCurrentIndex(0);
    m_formulas->FocusFirst();
}

/// Behind the keys of a tab the keyboard is at the start of its page.
void frmNewFile::FocusPage()
{
    const QWidget* const page = sstEdit->currentWidget();
    for (QWidget* next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain()) {
        const bool isReached = (next->focusPolicy() & Qt::TabFocus) != 0 && next->isEnabled();
        if (page->isAncestorOf(next) && next->isVisible() && isReached) {
            next->setFocus(Qt::ShortcutFocusReason);
            return;
        }
    }
    sstEdit->setFocus(Qt::ShortcutFocusReason);
}

void frmNewFile::Edited()
{
    if (m_isShowing)
        return;
    m_desk.isUnfinished = true;
    tmrDraft->start();
}

/// What stands in the boxes goes to the work file as it is, unjudged.
void frmNewFile::SaveDraft()
{
    if (m_isBusy) {
        tmrDraft->start();
        return;
    }
    const auto written = m_work.Store(m_desk.number, Entered(), DeskNow());
    // The same trouble is not told at each key.
    if (written || !m_draftFailed)
        m_draftFailed = !Kept(written);
}

void frmNewFile::txtNameFile_Change()
{
    const QString text = txtNameFile->text();
    const qsizetype point = text.indexOf(QLatin1Char('.'));
    if (point >= 0) {
        const QString name = text.first(point);
        m_extensionTyped.clear();
        m_nameBeforePoint = point + 1 == text.size() ? std::optional(name) : std::nullopt;
        txtNameFile->setText(name);
        return;
    }
    if (!m_nameBeforePoint || text == *m_nameBeforePoint || !TakesAsExtension(text))
        Edited();
}

/// Behind a point the keys of "equ" or "avt" go the way of the point; what turns
/// out to be no extension comes back. True when the text was set anew.
bool frmNewFile::TakesAsExtension(const QString& text)
{
    const QString name = *m_nameBeforePoint;
    if (text.size() != name.size() + 1 || !text.startsWith(name)) {
        m_nameBeforePoint.reset();
        return false;
    }
    const QString typed = m_extensionTyped + text.back();
    for (const QString& extension : {QStringLiteral("equ"), QStringLiteral("avt")}) {
        if (extension.startsWith(typed, Qt::CaseInsensitive)) {
            m_extensionTyped = typed;
            txtNameFile->setText(name);
            return true;
        }
    }
    m_nameBeforePoint.reset();
    txtNameFile->setText(name + typed);
    return typed.size() > 1;
}

void frmNewFile::hscNumEqu_Change()
{
    m_focusWaits = false;
    const int wanted = hscNumEqu->value();
    if (wanted == m_desk.number)
        return;
    if (CheckAndStore())
        GoTo(wanted);
    else
        SetBar();
}

void frmNewFile::hscNumEqu_GotFocus()
{
    // The click that brought the focus may have moved the bar, and that was all.
    if (!std::exchange(m_focusWaits, false) || m_isUnloaded)
        return;
    if (CheckAndStore())
        GoTo(m_desk.number);
}

bool frmNewFile::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == hscNumEqu && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        // Behind a message the focus merely comes back.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            m_focusWaits = true;
            QMetaObject::invokeMethod(this, &frmNewFile::hscNumEqu_GotFocus, Qt::QueuedConnection);
        }
    }
    if (watched == sstEdit->tabBar() && event->type() == QEvent::Shortcut)
        QMetaObject::invokeMethod(this, &frmNewFile::FocusPage, Qt::QueuedConnection);
    return ModalForm::eventFilter(watched, event);
}

void frmNewFile::cmdInsEqu_Click()
{
    if (!MayStore() || !StoreEquation(m_desk.number))
        return;
    InsertEquation(m_desk.number + 1);
}

void frmNewFile::InsertEquation(int number)
{
    const int last = m_desk.count;
    WorkDesk desk = DeskNow();
    desk.isUnfinished = true;
    desk.count = last + 1;
    desk.number = number;
    if (!Kept(m_work.InsertEquation(number, last, desk)))
        return;
    m_desk = desk;
    GoTo(number);
    RefreshPreview(desk.count);
    FocusFirstFormula();
}

void frmNewFile::cmdSupEqu_Click()
{
    if (!m_isBusy)
        DeleteEquation(m_desk.number);
}

void frmNewFile::DeleteEquation(int number)
{
    tmrDraft->stop();
    const int last = m_desk.count;
    WorkDesk desk = DeskNow();
    desk.isUnfinished = true;
    desk.count = std::max(1, last - 1);
    desk.number = std::min(number, desk.count);
    if (!Kept(m_work.DeleteEquation(number, last, desk)))
        return;
    m_desk = desk;
    GoTo(desk.number);
    RefreshPreview(desk.count);
    FocusFirstFormula();
}

void frmNewFile::chkPreview_Click()
{
    if (!chkPreview->isChecked()) {
        UnloadPreview();
        return;
    }
    m_preview = new frmPreview(m_doors.screen, m_doors.settings, this);
    connect(m_preview, &Form::CloseAsked, chkPreview, [this] { chkPreview->setChecked(false); });
    // Stored or not, what is there is shown; a failure is told by its own box.
    (void)StoreEquation(m_desk.number);
    RefreshPreview(m_desk.count);
    // A long search lets the desktop's events in: the preview may be gone again.
    if (m_preview == nullptr)
        return;
    m_preview->RestorePlaceAndSize();
    m_preview->show();
    // The teacher goes on writing.
    activateWindow();
}

void frmNewFile::UnloadPreview()
{
    if (m_preview == nullptr)
        return;
    m_preview->KeepPlaceAndSize();
    m_preview->hide();
    m_preview->deleteLater();
    m_preview = nullptr;
}

void frmNewFile::EscapePressed()
{
    CloseUnlessWorkIsKept();
}

void frmNewFile::TitleBarClosed()
{
    CloseUnlessWorkIsKept();
}

/// A stray key or click on the title bar costs no work.
void frmNewFile::CloseUnlessWorkIsKept()
{
    if (m_isBusy)
        return;
    if (m_desk.isUnfinished
        && !m_doors.messages.Ask(this, QStringLiteral("Stoikal"),
                                 QStringLiteral("Abandonner les équations non enregistrées ?")))
        return;
    Unload(Rejected);
}

void frmNewFile::Unload(int result)
{
    if (m_isBusy)
        return;
    tmrDraft->stop();
    m_work.Finish();
    m_isUnloaded = true;
    UnloadPreview();
    done(result);
}

/// The symbols of a formula are checked when its box is left. The check waits while a
/// button is pressed or the engine works: its box would swallow the click.
void frmNewFile::CheckLeftFormulas()
{
    constexpr int kPauseMs = 30;
    if (m_leftFormulas.isEmpty() || m_isUnloaded || !isVisible())
        return;
    const QWidget* const modal = QApplication::activeModalWidget();
    if (m_isBusy || AButtonIsDown() || (modal != nullptr && modal != this)) {
        QTimer::singleShot(kPauseMs, this, &frmNewFile::CheckLeftFormulas);
        return;
    }
    ReportUnknownSymbols();
}

/// Of the mouse, or one of the window's that a key presses.
bool frmNewFile::AButtonIsDown() const
{
    const auto buttons = findChildren<QAbstractButton*>();
    return QApplication::mouseButtons() != Qt::NoButton
        || std::any_of(buttons.begin(), buttons.end(),
                       [](const QAbstractButton* button) { return button->isDown(); });
}

void frmNewFile::ReportUnknownSymbols()
{
    const QStringList formulas = std::exchange(m_leftFormulas, {});
    try {
        for (const QString& formula : formulas) {
            CheckFormulaAtoms(formula, [this](const QString& symbol) {
                m_doors.messages.Warning(this, QStringLiteral("Symbole d'atome inconnu"),
                                         UnknownAtomMessage(symbol));
            });
        }
    } catch (const FatalFault& fault) {
        m_doors.messages.OperationFault(this, fault.OperationText());
    }
}

void frmNewFile::setVisible(bool visible)
{
    // High on the screen, so that the preview finds room below, yet with the title
    // bar on it: a desktop may take the place as that of what is inside the frame.
    if (visible && !isVisible()) {
        const QRect area = m_doors.screen.WorkArea();
        const QSize frame = FrameAround(*this);
        // A screen of 1024 pixels holds it, frame and all.
        constexpr int kWidth = 960;
        m_sheet->widget()->ensurePolished();
        m_sheet->widget()->layout()->activate();
        resize(m_sheet->widget()->minimumSizeHint().expandedTo({kWidth, 0}).boundedTo(area.size() - frame));
        const int left = std::max(0, (area.width() - width() - frame.width()) / 2);
        move(area.topLeft()
             + QPoint(left, std::min(frame.height(), area.height() - height() - frame.height())));
    }
    ModalForm::setVisible(visible);
}

} // namespace stoikal
