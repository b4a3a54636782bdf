#include "help/windows/help_panes.h"

#include "forms/colours.h"
#include "forms/form.h"
#include "help/folded_text.h"
#include "help/help_file.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <functional>

namespace stoikal {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPathRole = Qt::UserRole;
constexpr int kAnchorRole = Qt::UserRole + 1;
constexpr int kTitleRole = Qt::UserRole + 2;

QVBoxLayout* PaneRows(QWidget* pane)
{
    auto* const rows = new QVBoxLayout(pane);
    rows->setContentsMargins(8, 8, 8, 8);
    rows->setSpacing(8);
    return rows;
}

/// Lines with some air between them.
class AiryLines final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 8);
    }
};

/// A page that was found: its title, and below it some words in the second ink.
class HitPainter final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const int line = option.fontMetrics.lineSpacing();
        return {QStyledItemDelegate::sizeHint(option, index).width(), 3 * line + 14};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QString excerpt = item.text;
        item.text.clear();
        const QStyle& style = *QApplication::style();
        style.drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
        const bool isSelected = item.state.testFlag(QStyle::State_Selected);
        const QPalette& palette = item.palette;
        const QRect inside = item.rect.adjusted(8, 6, -8, -6);
        const int line = item.fontMetrics.lineSpacing();
        painter->save();
        QFont bold = item.font;
        bold.setBold(true);
        painter->setFont(bold);
        painter->setPen(palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        const QString title = index.data(kTitleRole).toString();
        painter->drawText(inside, Qt::AlignLeft | Qt::AlignTop,
                          QFontMetrics(bold).elidedText(title, Qt::ElideRight, inside.width()));
        painter->setFont(item.font);
        if (!isSelected)
            painter->setPen(palette.color(QPalette::PlaceholderText));
        // Two lines of it, whole ones.
        const QRect below(inside.left(), inside.top() + line + 2, inside.width(), 2 * line);
        painter->setClipRect(below);
        painter->drawText(below, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, excerpt);
        painter->restore();
    }
};

} // namespace

ContentsPane::ContentsPane(QWidget* parent)
    : QWidget(parent)
    , tvwContents(Named(new QTreeWidget(this), u"tvwContents"_s, u"Sommaire"_s))
{
    tvwContents->setHeaderHidden(true);
    tvwContents->setUniformRowHeights(true);
    tvwContents->setFrameShape(QFrame::NoFrame);
    tvwContents->setTextElideMode(Qt::ElideRight);
    tvwContents->setItemDelegate(new AiryLines(tvwContents));
    tvwContents->setIndentation(16);
    auto* const rows = PaneRows(this);
    rows->setContentsMargins(0, 4, 0, 0);
    rows->addWidget(tvwContents);
    const auto choose = [this](const QTreeWidgetItem* item) {
        if (item != nullptr && !item->data(0, kPathRole).toString().isEmpty())
            Q_EMIT PageRequested(
                {{}, item->data(0, kPathRole).toString(), item->data(0, kAnchorRole).toString()});
    };
    connect(tvwContents, &QTreeWidget::itemClicked, this, [choose](QTreeWidgetItem* item) { choose(item); });
    connect(tvwContents, &QTreeWidget::itemActivated, this,
            [choose](QTreeWidgetItem* item) { choose(item); });
}

void ContentsPane::ShowContents(const std::vector<ContentsNode>& contents)
{
    tvwContents->clear();
    const std::function<void(QTreeWidgetItem&, const std::vector<ContentsNode>&)> add
        = [&add](QTreeWidgetItem& above, const std::vector<ContentsNode>& nodes) {
              for (const ContentsNode& node : nodes) {
                  auto* const item = new QTreeWidgetItem(&above, {node.title});
                  item->setToolTip(0, node.title);
                  const auto address = ReadPageAddress(node.link, u"/"_s);
                  if (address && address->file.isEmpty() && !node.link.isEmpty()) {
                      item->setData(0, kPathRole, address->path);
                      item->setData(0, kAnchorRole, address->anchor);
                  }
                  add(*item, node.children);
              }
          };
    add(*tvwContents->invisibleRootItem(), contents);
    // A short tree is seen whole, of a long one the first level.
    if (tvwContents->topLevelItemCount() > 0 && contents.size() > 3)
        tvwContents->expandToDepth(0);
}

void ContentsPane::SelectPage(const QString& path)
{
    const QTreeWidgetItem* const current = tvwContents->currentItem();
    if (current != nullptr && current->data(0, kPathRole).toString() == path)
        return;
    for (QTreeWidgetItemIterator item(tvwContents); *item != nullptr; ++item) {
        if ((*item)->data(0, kPathRole).toString().compare(path, Qt::CaseInsensitive) == 0) {
            tvwContents->setCurrentItem(*item);
            return;
        }
    }
    tvwContents->setCurrentItem(nullptr);
}

IndexPane::IndexPane(QWidget* parent)
    : QWidget(parent)
    , txtIndex(Named(new QLineEdit(this), u"txtIndex"_s, u"Filtrer l'index"_s))
    , lblNoKeyword(
          Named(new QLabel(u"Aucun mot-clé ne contient ces lettres. Essayez l'onglet Recherche."_s, this),
                u"lblNoKeyword"_s))
    , lstIndex(Named(new QListWidget(this), u"lstIndex"_s, u"Index"_s))
{
    lblNoKeyword->setWordWrap(true);
    lblNoKeyword->hide();
    txtIndex->setPlaceholderText(u"Tapez un mot-clé"_s);
    txtIndex->setClearButtonEnabled(true);
    lstIndex->setUniformItemSizes(true);
    lstIndex->setItemDelegate(new AiryLines(lstIndex));
    auto* const rows = PaneRows(this);
    rows->addWidget(txtIndex);
    rows->addWidget(lblNoKeyword);
    rows->addWidget(lstIndex, 1);
    connect(txtIndex, &QLineEdit::textChanged, this, &IndexPane::Filter);
    connect(txtIndex, &QLineEdit::returnPressed, this, [this] { Choose(lstIndex->currentItem()); });
    connect(lstIndex, &QListWidget::itemClicked, this, &IndexPane::Choose);
    connect(lstIndex, &QListWidget::itemActivated, this, &IndexPane::Choose);
}

void IndexPane::ShowIndex(const std::vector<IndexEntry>& index)
{
    txtIndex->clear();
    lstIndex->clear();
    for (std::size_t i = 0; i < index.size(); ++i) {
        const IndexEntry& entry = index[i];
        const auto address = ReadPageAddress(entry.link, u"/"_s);
        if (!address || !address->file.isEmpty() || entry.link.isEmpty())
            continue;
        // A keyword with several targets names them.
        const bool isShared = (i > 0 && index[i - 1].keyword == entry.keyword)
            || (i + 1 < index.size() && index[i + 1].keyword == entry.keyword);
        auto* const item = new QListWidgetItem(
            isShared ? u"%1 – %2"_s.arg(entry.keyword, entry.title) : entry.keyword, lstIndex);
        item->setToolTip(entry.title);
        item->setData(kPathRole, address->path);
        item->setData(kAnchorRole, address->anchor);
    }
}

void IndexPane::FocusField()
{
    txtIndex->setFocus();
    txtIndex->selectAll();
}

void IndexPane::Filter(const QString& text)
{
    const QString sought = Folded(text.trimmed());
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < lstIndex->count(); ++row) {
        QListWidgetItem* const item = lstIndex->item(row);
        const QString folded = Folded(item->text());
        item->setHidden(!folded.contains(sought));
        // What begins with the text comes before what only holds it.
        if (!item->isHidden()
            && (first == nullptr || (folded.startsWith(sought) && !Folded(first->text()).startsWith(sought))))
            first = item;
    }
    lstIndex->setCurrentItem(sought.isEmpty() ? nullptr : first);
    lblNoKeyword->setVisible(first == nullptr && !sought.isEmpty());
}

void IndexPane::Choose(const QListWidgetItem* item)
{
    if (item != nullptr && !item->isHidden())
        Q_EMIT PageRequested({{}, item->data(kPathRole).toString(), item->data(kAnchorRole).toString()});
}

SearchPane::SearchPane(QWidget* parent)
    : QWidget(parent)
    , txtSearch(Named(new QLineEdit(this), u"txtSearch"_s, u"Mots à rechercher"_s))
    , cmdSearch(Named(new QPushButton(u"Rechercher"_s, this), u"cmdSearch"_s, u"Rechercher"_s))
    , lblFound(Named(new QLabel(this), u"lblFound"_s, u"Résultat de la recherche"_s))
    , lstFound(Named(new QListWidget(this), u"lstFound"_s, u"Pages trouvées"_s))
{
    txtSearch->setPlaceholderText(u"Mots à rechercher"_s);
    txtSearch->setClearButtonEnabled(true);
    cmdSearch->setAutoDefault(false);
    lblFound->setWordWrap(true);
    lstFound->setItemDelegate(new HitPainter(lstFound));
    lstFound->setWordWrap(true);
    lstFound->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const rows = PaneRows(this);
    auto* const row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(txtSearch, 1);
    row->addWidget(cmdSearch);
    rows->addLayout(row);
    rows->addWidget(lblFound);
    rows->addWidget(lstFound, 1);
    connect(txtSearch, &QLineEdit::returnPressed, this, &SearchPane::Search);
    connect(cmdSearch, &QPushButton::clicked, this, &SearchPane::Search);
    const auto choose = [this](const QListWidgetItem* item) {
        Q_EMIT HitChosen({{}, item->data(kPathRole).toString(), {}}, txtSearch->text());
    };
    connect(lstFound, &QListWidget::itemClicked, this, choose);
    connect(lstFound, &QListWidget::itemActivated, this, choose);
}

void SearchPane::SetFile(std::shared_ptr<const HelpFile> file)
{
    m_file = std::move(file);
    m_search.Clear();
    lstFound->clear();
    lblFound->clear();
}

void SearchPane::Search()
{
    lstFound->clear();
    if (m_file == nullptr)
        return;
    if (txtSearch->text().trimmed().isEmpty()) {
        lblFound->setText(u"Tapez un ou plusieurs mots."_s);
        return;
    }
    const auto hits = m_search.Find(*m_file, txtSearch->text());
    for (const PageSearch::Hit& hit : hits) {
        auto* const item = new QListWidgetItem(hit.excerpt, lstFound);
        item->setData(kTitleRole, hit.title);
        item->setData(Qt::AccessibleTextRole, QString(hit.title + u"\u00A0: "_s + hit.excerpt));
        item->setData(kPathRole, hit.path);
    }
    if (hits.empty())
        lblFound->setText(u"Aucune page ne contient tous ces mots."_s);
    else if (hits.size() == 1)
        lblFound->setText(u"1 page trouvée"_s);
    else
        lblFound->setText(u"%1 pages trouvées"_s.arg(hits.size()));
}

FindBar::FindBar(QWidget* parent)
    : QWidget(parent)
    , txtFind(Named(new QLineEdit(this), u"txtFind"_s, u"Rechercher dans la page"_s))
    , cmdFindPrevious(Named(new QToolButton(this), u"cmdFindPrevious"_s, u"Occurrence précédente"_s))
    , cmdFindNext(Named(new QToolButton(this), u"cmdFindNext"_s, u"Occurrence suivante"_s))
    , lblCount(Named(new QLabel(this), u"lblCount"_s, u"Nombre d'occurrences"_s))
    , cmdFindClose(Named(new QToolButton(this), u"cmdFindClose"_s, u"Fermer la recherche dans la page"_s))
{
    txtFind->setPlaceholderText(u"Rechercher dans la page"_s);
    txtFind->setClearButtonEnabled(true);
    txtFind->setMaximumWidth(320);
    cmdFindPrevious->setArrowType(Qt::UpArrow);
    cmdFindPrevious->setToolTip(u"Occurrence précédente (Maj+F3)"_s);
    cmdFindNext->setArrowType(Qt::DownArrow);
    cmdFindNext->setToolTip(u"Occurrence suivante (F3)"_s);
    cmdFindClose->setText(u"✕"_s);
    cmdFindClose->setToolTip(u"Fermer (Échap)"_s);
    for (QToolButton* const button : {cmdFindPrevious, cmdFindNext, cmdFindClose})
        button->setAutoRaise(true);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 12, 6);
    row->setSpacing(8);
    row->addWidget(txtFind, 1);
    row->addWidget(cmdFindPrevious);
    row->addWidget(cmdFindNext);
    row->addWidget(lblCount, 1);
    row->addWidget(cmdFindClose);
    connect(txtFind, &QLineEdit::textChanged, this, [this] { Q_EMIT FindRequested(false, true); });
    connect(txtFind, &QLineEdit::returnPressed, this, [this] { Q_EMIT FindRequested(false, false); });
    connect(cmdFindNext, &QToolButton::clicked, this, [this] { Q_EMIT FindRequested(false, false); });
    connect(cmdFindPrevious, &QToolButton::clicked, this, [this] { Q_EMIT FindRequested(true, false); });
    connect(cmdFindClose, &QToolButton::clicked, this, &FindBar::Close);
    hide();
}

void FindBar::Open()
{
    show();
    txtFind->setFocus();
    txtFind->selectAll();
    Q_EMIT FindRequested(false, true);
}

void FindBar::Close()
{
    hide();
    Q_EMIT Closed();
}

QString FindBar::Text() const
{
    return txtFind->text();
}

void FindBar::ShowCount(int count)
{
    if (Text().isEmpty())
        lblCount->clear();
    else if (count == 0)
        lblCount->setText(u"Introuvable dans cette page"_s);
    else if (count == 1)
        lblCount->setText(u"1 occurrence"_s);
    else
        lblCount->setText(u"%1 occurrences"_s.arg(count));
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace stoikal
