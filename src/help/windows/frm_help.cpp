#include "help/windows/frm_help.h"

#include "base/number_text.h"
#include "base/settings_store.h"
#include "forms/messages.h"
#include "forms/place.h"
#include "forms/style.h"
#include "help/help_file.h"
#include "help/windows/help_page.h"
#include "help/windows/help_panes.h"
#include "help/windows/page_printer.h"
#include "platform/doors.h"

#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

enum Tab { ContentsTab, IndexTab, SearchTab };

QString Section()
{
    return u"Help Window"_s;
}

/// The parts of "file>window type".
std::pair<QString, QString> ParseTarget(const QString& named)
{
    const qsizetype mark = named.lastIndexOf(u'>');
    return mark < 0 ? std::pair(named, QString()) : std::pair(named.first(mark), named.sliced(mark + 1));
}

} // namespace

frmHelp::frmHelp(const Services& services, QWidget* home)
    : Form(u"frmHelp"_s, u"Aide"_s, Kind::Tool, home)
    , m_services(services)
    , m_home(home)
{
    // A reader wants it beside his work, large or small.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint
                   | Qt::WindowCloseButtonHint);
    StayOnPaper(*this);
    Build();
    ConnectPanes();
    ShowState();
}

QToolButton* frmHelp::NewTool(const QString& name, const QString& picture, const QString& words,
                              const QKeySequence& key)
{
    auto* const tool = Named(new QToolButton(this), name, words);
    tool->setAutoRaise(true);
    tool->setIcon(QIcon(u":/icons/"_s + picture + u".png"_s));
    tool->setIconSize(QSize(20, 20));
    tool->setFocusPolicy(Qt::TabFocus);
    const QString keyText = key.toString(QKeySequence::NativeText);
    tool->setToolTip(keyText.isEmpty() ? words : u"%1 (%2)"_s.arg(words, keyText));
    connect(new QShortcut(key, this), &QShortcut::activated, tool, &QToolButton::click);
    return tool;
}

QWidget* frmHelp::BuildTools()
{
    cmdBack = NewTool(u"cmdBack"_s, u"back"_s, u"Page précédente"_s, QKeySequence(Qt::ALT | Qt::Key_Left));
    cmdForward
        = NewTool(u"cmdForward"_s, u"forward"_s, u"Page suivante"_s, QKeySequence(Qt::ALT | Qt::Key_Right));
    cmdHome = NewTool(u"cmdHome"_s, u"home"_s, u"Première page"_s, QKeySequence(Qt::ALT | Qt::Key_Home));
    cmdFind
        = NewTool(u"cmdFind"_s, u"find"_s, u"Rechercher dans la page"_s, QKeySequence(Qt::CTRL | Qt::Key_F));
    cmdZoomOut = NewTool(u"cmdZoomOut"_s, u"zoom_out"_s, u"Réduire le texte"_s,
                         QKeySequence(Qt::CTRL | Qt::Key_Minus));
    cmdZoomIn = NewTool(u"cmdZoomIn"_s, u"zoom_in"_s, u"Agrandir le texte"_s,
                        QKeySequence(Qt::CTRL | Qt::Key_Plus));
    cmdPrint = NewTool(u"cmdPrint"_s, u"print"_s, u"Imprimer la page"_s, QKeySequence(Qt::CTRL | Qt::Key_P));
    lblZoom = Named(new QLabel(this), u"lblZoom"_s, u"Taille du texte"_s);
    lblZoom->setAlignment(Qt::AlignCenter);
    lblZoom->setMinimumWidth(lblZoom->fontMetrics().horizontalAdvance(u"240\u00A0%"_s) + 4);
    auto* const tools = new QWidget(this);
    auto* const row = new QHBoxLayout(tools);
    row->setContentsMargins(12, 8, 12, 8);
    row->setSpacing(4);
    row->addWidget(cmdBack);
    row->addWidget(cmdForward);
    row->addWidget(cmdHome);
    row->addStretch();
    row->addWidget(cmdFind);
    row->addSpacing(12);
    row->addWidget(cmdZoomOut);
    row->addWidget(lblZoom);
    row->addWidget(cmdZoomIn);
    row->addSpacing(12);
    row->addWidget(cmdPrint);
    return tools;
}

void frmHelp::Build()
{
    auto* const tools = BuildTools();
    m_contents = new ContentsPane(this);
    m_index = new IndexPane(this);
    m_search = new SearchPane(this);
    tabHelp = Named(new QTabWidget(this), u"tabHelp"_s, u"Sommaire, index et recherche"_s);
    tabHelp->setDocumentMode(true);
    tabHelp->addTab(m_contents, u"Sommaire"_s);
    tabHelp->addTab(m_index, u"Index"_s);
    tabHelp->addTab(m_search, u"Recherche"_s);
    lblNotice = Named(new QLabel(this), u"lblNotice"_s, u"Message"_s);
    lblNotice->setTextFormat(Qt::PlainText);
    lblNotice->setWordWrap(true);
    lblNotice->setContentsMargins(16, 8, 16, 8);
    lblNotice->setStyleSheet(u"background: #FFF9E5; color: #1C2430;"_s);
    lblNotice->hide();
    m_page = Named(new HelpPage(this), u"txtPage"_s, u"Page d'aide"_s);
    m_find = new FindBar(this);
    auto* const right = new QWidget(this);
    auto* const pageRows = new QVBoxLayout(right);
    pageRows->setContentsMargins(0, 0, 0, 0);
    pageRows->setSpacing(0);
    pageRows->addWidget(lblNotice);
    pageRows->addWidget(m_page, 1);
    pageRows->addWidget(m_find);
    auto* const halves = new QSplitter(this);
    halves->addWidget(tabHelp);
    halves->addWidget(right);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    halves->setHandleWidth(5);
    halves->setSizes({300, 600});
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(tools);
    rows->addWidget(halves, 1);
    setMinimumSize(560, 360);
}

void frmHelp::ConnectPanes()
{
    connect(cmdBack, &QToolButton::clicked, this, [this] {
        m_history.StoreScroll(m_page->verticalScrollBar()->value());
        GoTo(m_history.Back());
    });
    connect(cmdForward, &QToolButton::clicked, this, [this] {
        m_history.StoreScroll(m_page->verticalScrollBar()->value());
        GoTo(m_history.Forward());
    });
    connect(cmdHome, &QToolButton::clicked, this, [this] { Go({{}, m_file->StartPage(), {}}); });
    connect(cmdFind, &QToolButton::clicked, m_find, &FindBar::Open);
    connect(cmdZoomOut, &QToolButton::clicked, this, [this] { ChangeZoom(m_page->Zoom() - 10); });
    connect(cmdZoomIn, &QToolButton::clicked, this, [this] { ChangeZoom(m_page->Zoom() + 10); });
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_0), this), &QShortcut::activated, this,
            [this] { ChangeZoom(100); });
    connect(m_page, &HelpPage::ZoomRequested, this, &frmHelp::ChangeZoom);
    connect(cmdPrint, &QToolButton::clicked, this,
            [this] { m_services.printer.Print(this, m_page->Title(), *m_page->document()); });
    connect(m_contents, &ContentsPane::PageRequested, this, &frmHelp::Go);
    connect(m_index, &IndexPane::PageRequested, this, &frmHelp::Go);
    connect(m_search, &SearchPane::HitChosen, this, [this](const PageAddress& address, const QString& words) {
        m_find->Close();
        Go(address);
        m_page->MarkWords(words.simplified().split(u' '));
    });
    connect(m_page, &HelpPage::PageRequested, this, &frmHelp::Follow);
    connect(m_page, &HelpPage::LinkRefused, this, [this](const QString& link) {
        ShowNotice(u"Ce lien mène hors de l'aide, il n'est pas suivi\u00A0: %1"_s.arg(link));
    });
    connect(m_find, &FindBar::FindRequested, this, [this](bool isBackward, bool isFromStart) {
        m_find->ShowCount(m_page->FindText(m_find->Text(), isBackward, isFromStart));
    });
    connect(m_find, &FindBar::Closed, this, [this] {
        m_page->FindText({}, false, true);
        m_page->setFocus();
    });
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, m_find,
            [this] { m_find->isVisible() ? Q_EMIT m_find->FindRequested(false, false) : m_find->Open(); });
    connect(new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), this), &QShortcut::activated, m_find,
            [this] { m_find->isVisible() ? Q_EMIT m_find->FindRequested(true, false) : m_find->Open(); });
}

void frmHelp::DisplayTopic(const QString& file, std::int32_t topic, QWidget* caller)
{
    if (!OpenFile(file))
        return;
    Present(caller);
    const auto page = m_file->Topics().constFind(topic);
    const bool isKnown = page != m_file->Topics().constEnd();
    Go(isKnown ? *page : PageAddress{{}, m_file->StartPage(), {}});
    if (!isKnown)
        ShowNotice(
            u"Ce fichier d'aide n'a pas de page pour cette fenêtre (numéro %1)\u00A0: voici sa première page."_s
                .arg(topic));
    tabHelp->setCurrentIndex(ContentsTab);
}

void frmHelp::DisplayContents(const QString& file, QWidget* caller)
{
    if (!OpenFile(file))
        return;
    Present(caller);
    tabHelp->setCurrentIndex(ContentsTab);
    Go({{}, m_file->StartPage(), {}});
}

void frmHelp::DisplayIndex(const QString& file, QWidget* caller)
{
    if (!OpenFile(file))
        return;
    Present(caller);
    tabHelp->setCurrentIndex(IndexTab);
    Go({{}, m_file->StartPage(), {}});
    m_index->FocusField();
}

/// Opens the file unless it is the open one. A file that cannot be opened is
/// reported in a message box; what was shown stays.
bool frmHelp::OpenFile(const QString& named)
{
    const auto [path, windowType] = ParseTarget(named);
    if (m_file == nullptr || m_file->Path() != path) {
        const auto opened = HelpFile::Open(path);
        if (!opened) {
            m_services.messages.Critical(isVisible() ? this : m_home, u"Aide"_s, opened.Reason());
            return false;
        }
        m_file = *opened;
        m_page->SetFile(m_file);
        m_search->SetFile(m_file);
        m_contents->ShowContents(m_file->Contents());
        m_index->ShowIndex(m_file->Index());
    }
    const QString ofType = m_file->WindowTitle(windowType);
    setWindowTitle(ofType.isEmpty() ? m_file->Title() : ofType);
    return true;
}

/// Comes to the front. Under a modal window only that window's own children can
/// be used, so there the help becomes its child for as long as it lasts.
void frmHelp::Present(QWidget* caller)
{
    QWidget* const owner = QApplication::activeModalWidget() == nullptr ? m_home : caller;
    // The page is laid out for the width that it will have.
    if (!m_hasBeenShown)
        RestoreSize();
    m_hasBeenShown = true;
    if (owner != parentWidget()) {
        const QRect before = geometry();
        setParent(owner, windowFlags());
        setGeometry(before);
        if (auto* const dialog = qobject_cast<QDialog*>(owner))
            connect(dialog, &QDialog::finished, this, &frmHelp::ReturnHome);
    }
    if (QWidget* const front = QApplication::activeWindow(); front != nullptr && front != this)
        m_before = front;
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    m_page->setFocus();
}

void frmHelp::ReturnHome()
{
    if (parentWidget() == m_home)
        return;
    disconnect(parentWidget(), nullptr, this, nullptr);
    const bool isShown = isVisible();
    const QRect before = geometry();
    setParent(m_home, windowFlags());
    setGeometry(before);
    setVisible(isShown);
}

void frmHelp::Close()
{
    StoreSize();
    const bool isInFront = isActiveWindow();
    hide();
    ReturnHome();
    // Whoever requested help in the middle of his typing goes on there.
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const next = modal != nullptr ? modal : m_before.data();
    if (isInFront && next != nullptr && next->isVisible())
        next->activateWindow();
}

/// A link may lead to another help file that lies beside this one.
void frmHelp::Follow(const PageAddress& address)
{
    if (address.file.isEmpty()) {
        Go(address);
        return;
    }
    const QString path = QFileInfo(m_file->Path()).path() + u'/' + address.file;
    if (!QFileInfo(path).isFile()) {
        ShowNotice(u"Le fichier d'aide %1 n'est pas installé."_s.arg(address.file));
        return;
    }
    m_history.StoreScroll(m_page->verticalScrollBar()->value());
    if (OpenFile(path))
        Go({{}, address.path, address.anchor});
}

void frmHelp::Go(const PageAddress& address)
{
    if (!m_history.IsEmpty() && m_history.Current().file == m_file->Path())
        m_history.StoreScroll(m_page->verticalScrollBar()->value());
    m_history.Visit(m_file->Path(), address);
    ShowNotice(m_file->Remarks().join(u' '));
    m_page->ShowPage(address);
    if (m_find->isVisible())
        m_find->ShowCount(m_page->FindText(m_find->Text(), false, true));
    ShowState();
}

void frmHelp::GoTo(const PageHistory::Stop& stop)
{
    if (!OpenFile(stop.file))
        return;
    ShowNotice(m_file->Remarks().join(u' '));
    m_page->ShowPage(stop.page);
    m_page->verticalScrollBar()->setValue(stop.scroll);
    ShowState();
}

void frmHelp::ShowNotice(const QString& text)
{
    lblNotice->setText(text);
    lblNotice->setVisible(!text.isEmpty());
}

void frmHelp::ShowState()
{
    cmdBack->setEnabled(m_history.CanGoBack());
    cmdForward->setEnabled(m_history.CanGoForward());
    cmdZoomOut->setEnabled(m_page->Zoom() > HelpPage::kSmallestZoom);
    cmdZoomIn->setEnabled(m_page->Zoom() < HelpPage::kLargestZoom);
    lblZoom->setText(u"%1\u00A0%"_s.arg(m_page->Zoom()));
    if (!m_history.IsEmpty())
        m_contents->SelectPage(m_history.Current().page.path);
}

void frmHelp::ChangeZoom(int percent)
{
    m_page->SetZoom(percent);
    m_services.settings.Remember(Section(), u"Zoom"_s, QString::number(m_page->Zoom()));
    ShowState();
}

/// Earlier programs stored the size in pixels beside a position in twips. A number of
/// pixels of any screen is below the twips of the smallest window.
void frmHelp::ConvertSizeInPixels()
{
    const auto convert = [this](const QString& key, int smallest) {
        const double stored = ReadFileNumber(m_services.settings.Read(Section(), key));
        if (stored > 0 && stored < FromPixels(smallest))
            m_services.settings.Remember(Section(), key,
                                         QString::number(FromPixels(static_cast<int>(stored))));
    };
    convert(u"Width"_s, minimumWidth());
    convert(u"Height"_s, minimumHeight());
}

void frmHelp::RestoreSize()
{
    const QRect area = m_services.screen.WorkArea();
    ConvertSizeInPixels();
    const QSize wanted = RememberedSize(
        *this, m_services.settings, Section(),
        {std::clamp(area.width() * 6 / 10, 860, 1120), std::clamp(area.height() * 8 / 10, 560, 860)});
    resize(wanted.boundedTo(area.size() - QSize(20, 60)).expandedTo(minimumSize()));
    RestorePlace(*this, m_services.screen, m_services.settings, Section(),
                 {FromPixels((area.width() - width()) / 2), FromPixels((area.height() - height()) / 2)});
    const QString zoom = m_services.settings.Read(Section(), u"Zoom"_s);
    constexpr double kMaximumZoom = 10000;
    m_page->SetZoom(zoom.isEmpty() ? 100
                                   : static_cast<int>(std::clamp(ReadFileNumber(zoom), 0.0, kMaximumZoom)));
    ShowState();
}

void frmHelp::StoreSize()
{
    if (!m_hasBeenShown || isMaximized())
        return;
    KeepPlaceAndSize(*this, m_services.screen, m_services.settings, Section());
}

void frmHelp::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_find->isVisible())
        m_find->Close();
    else
        Form::keyPressEvent(event);
}

} // namespace stoikal
