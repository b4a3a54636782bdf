#include "help/windows/help_page.h"

#include "forms/colours.h"
#include "forms/style.h"
#include "help/folded_text.h"
#include "help/help_file.h"

#include <QBuffer>
#include <QImageReader>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QWheelEvent>
#include <algorithm>
#include <iterator>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 kMaximumPixels = 4'000'000;
constexpr qsizetype kLargestPage = qsizetype{2} * 1024 * 1024;
constexpr int kMaximumMarks = 2000;
constexpr int kPageMargins = 100;
constexpr int kNarrowestPicture = 200;

QString Scheme()
{
    return u"aide"_s;
}

QString FaultPage(const QString& reason)
{
    return u"<html><head><title>Page illisible</title></head><body><h2>Page illisible</h2><p>%1</p></body></html>"_s
        .arg(reason.toHtmlEscaped());
}

/// A picture, unless its head promises more than a help page can need; one that
/// is wider than the page is made to fit.
QVariant ReadPicture(const QByteArray& bytes, int widest)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!size.isValid() || qint64{size.width()} * size.height() > kMaximumPixels)
        return {};
    const QImage picture = reader.read();
    return picture.width() > widest ? picture.scaledToWidth(widest, Qt::SmoothTransformation) : picture;
}

} // namespace

HelpPage::HelpPage(QWidget* parent)
    : QTextBrowser(parent)
    , m_pointSize(font().pointSizeF() > 0 ? font().pointSizeF() : 11)
{
    setOpenLinks(false);
    setOpenExternalLinks(false);
    setFrameShape(QFrame::NoFrame);
    StayOnPaper(*this);
    document()->setDocumentMargin(16);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpPage::FollowLink);
}

void HelpPage::SetFile(std::shared_ptr<const HelpFile> file)
{
    m_file = std::move(file);
    ++m_fileNumber;
}

QUrl HelpPage::UrlOf(const PageAddress& address) const
{
    QUrl url;
    url.setScheme(Scheme());
    url.setHost(u"f%1"_s.arg(m_fileNumber));
    url.setPath(address.path);
    url.setFragment(address.anchor);
    return url;
}

bool HelpPage::IsOwn(const QUrl& url) const
{
    return url.scheme() == Scheme() && url.host() == u"f%1"_s.arg(m_fileNumber);
}

void HelpPage::ShowPage(const PageAddress& address)
{
    m_address = address;
    m_isLoading = true;
    setExtraSelections({});
    setSource(UrlOf(address), QTextDocument::HtmlResource);
    m_isLoading = false;
    if (address.anchor.isEmpty())
        verticalScrollBar()->setValue(0);
}

void HelpPage::doSetSource(const QUrl& name, QTextDocument::ResourceType type)
{
    // Only ShowPage changes the page: no key and no click does by itself.
    if (m_isLoading)
        QTextBrowser::doSetSource(name, type);
}

QString HelpPage::Title() const
{
    return documentTitle();
}

QVariant HelpPage::loadResource(int type, const QUrl& name)
{
    if (m_file == nullptr || !IsOwn(name))
        return QByteArray();
    const QString path = name.path();
    if (type == QTextDocument::ImageResource) {
        const auto bytes = m_file->Read(path);
        return bytes ? ReadPicture(*bytes, std::max(kNarrowestPicture, viewport()->width() - kPageMargins))
                     : QVariant();
    }
    const auto text = m_file->Text(path);
    if (type != QTextDocument::HtmlResource)
        return text ? Zoomed(*text) : QString();
    if (!text)
        return FaultPage(text.Reason());
    if (text->size() > kLargestPage)
        return FaultPage(u"La page %1 est trop grande pour être affichée."_s.arg(path));
    return text->trimmed().isEmpty() ? FaultPage(u"La page %1 est vide."_s.arg(path)) : Zoomed(*text);
}

/// The text engine enlarges only what has no size of its own: the sizes that a
/// page or a style sheet writes are enlarged in its text.
QString HelpPage::Zoomed(const QString& text) const
{
    if (m_zoom == 100)
        return text;
    static const QRegularExpression kSize(u"(font-size\\s*:\\s*)([0-9]{1,3}(?:\\.[0-9]{1,3})?)(pt|px)"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    QString zoomed;
    qsizetype position = 0;
    for (auto match = kSize.globalMatch(text); match.hasNext();) {
        const auto found = match.next();
        zoomed += QStringView(text).sliced(position, found.capturedStart() - position);
        zoomed += found.captured(1) + QString::number(found.captured(2).toDouble() * m_zoom / 100, 'f', 1)
            + found.captured(3);
        position = found.capturedEnd();
    }
    zoomed += QStringView(text).sliced(position);
    return zoomed;
}

void HelpPage::SetZoom(int percent)
{
    m_zoom = std::clamp(percent, kSmallestZoom, kLargestZoom);
    QFont scaled = font();
    scaled.setPointSizeF(m_pointSize * m_zoom / 100);
    document()->setDefaultFont(scaled);
    if (m_address.path.isEmpty())
        return;
    const int range = std::max(1, verticalScrollBar()->maximum());
    const double share = static_cast<double>(verticalScrollBar()->value()) / range;
    // Another number makes the same page a new one for the text engine.
    ++m_fileNumber;
    ShowPage({{}, m_address.path, {}});
    verticalScrollBar()->setValue(qRound(share * verticalScrollBar()->maximum()));
}

void HelpPage::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers() != Qt::ControlModifier) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    Q_EMIT ZoomRequested(m_zoom + (event->angleDelta().y() > 0 ? 10 : -10));
    event->accept();
}

void HelpPage::FollowLink(const QUrl& url)
{
    if (IsOwn(url)) {
        Q_EMIT PageRequested({{}, url.path(), url.fragment(QUrl::FullyDecoded)});
        return;
    }
    const QString link = url.toString();
    const auto address = url.scheme() == Scheme() ? std::nullopt : ReadPageAddress(link, m_address.path);
    if (address)
        Q_EMIT PageRequested(*address);
    else
        Q_EMIT LinkRefused(link);
}

/// The positions of a text on the page, compared as searches compare.
QList<int> HelpPage::PositionsOf(const QString& text) const
{
    const QString sought = Folded(text);
    const QString folded = Folded(toPlainText());
    QList<int> positions;
    for (qsizetype position = sought.isEmpty() ? -1 : folded.indexOf(sought); position >= 0;
         position = folded.indexOf(sought, position + sought.size()))
        positions << static_cast<int>(position);
    return positions;
}

QTextCursor HelpPage::Selected(int position, qsizetype length) const
{
    QTextCursor cursor(document());
    cursor.setPosition(position);
    cursor.setPosition(position + static_cast<int>(length), QTextCursor::KeepAnchor);
    return cursor;
}

void HelpPage::Mark(const QList<int>& positions, qsizetype length)
{
    QList<QTextEdit::ExtraSelection> marks = extraSelections();
    for (const int position : positions) {
        if (marks.size() == kMaximumMarks)
            break;
        QTextEdit::ExtraSelection mark;
        mark.cursor = Selected(position, length);
        mark.format.setBackground(QColor(0xFF, 0xE3, 0x8F));
        marks << mark;
    }
    setExtraSelections(marks);
}

void HelpPage::GoTo(int position, qsizetype length)
{
    setTextCursor(Selected(position, length));
    ensureCursorVisible();
}

int HelpPage::FindText(const QString& text, bool isBackward, bool isFromStart)
{
    const QList<int> positions = PositionsOf(text);
    setExtraSelections({});
    Mark(positions, text.size());
    if (positions.isEmpty())
        return 0;
    const int from = isFromStart ? -1 : textCursor().selectionStart();
    const auto next = isBackward ? std::lower_bound(positions.begin(), positions.end(), from)
                                 : std::upper_bound(positions.begin(), positions.end(), from);
    if (isBackward)
        GoTo(next == positions.begin() ? positions.last() : *std::prev(next), text.size());
    else
        GoTo(next == positions.end() ? positions.first() : *next, text.size());
    return static_cast<int>(positions.size());
}

/// The positions of a word. A short one, as "de", is part of half of the words of a
/// page: where it stands alone, only those positions count.
QList<int> HelpPage::PositionsOfWord(const QString& word) const
{
    constexpr qsizetype kLongestShortWord = 3;
    QList<int> positions = PositionsOf(word);
    if (word.size() > kLongestShortWord)
        return positions;
    const auto standsAlone = [this, length = word.size()](int position) {
        return !document()->characterAt(position - 1).isLetterOrNumber()
            && !document()->characterAt(position + static_cast<int>(length)).isLetterOrNumber();
    };
    QList<int> alone;
    std::copy_if(positions.cbegin(), positions.cend(), std::back_inserter(alone), standsAlone);
    return alone.isEmpty() ? positions : alone;
}

void HelpPage::MarkWords(const QStringList& words)
{
    setExtraSelections({});
    int first = -1;
    qsizetype length = 0;
    for (const QString& word : words) {
        const QList<int> positions = PositionsOfWord(word);
        Mark(positions, word.size());
        if (!positions.isEmpty() && (first < 0 || positions.first() < first)) {
            first = positions.first();
            length = word.size();
        }
    }
    if (first >= 0)
        GoTo(first, length);
}

} // namespace stoikal
