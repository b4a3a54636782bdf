#pragma once

#include "help/page_address.h"
#include "help/page_search.h"
#include "help/sitemap.h"

#include <QWidget>
#include <memory>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace stoikal {

class HelpFile;

/// The tree of the contents. It follows the page that is shown.
class ContentsPane final : public QWidget
{
    Q_OBJECT

public:
    explicit ContentsPane(QWidget* parent);

    void ShowContents(const std::vector<ContentsNode>& contents);
    /// Selects the line of a page; none when the contents do not have it.
    void SelectPage(const QString& path);

Q_SIGNALS:
    void PageRequested(const PageAddress& address);

private:
    QTreeWidget* tvwContents;
};

/// The index with a field that narrows it down.
class IndexPane final : public QWidget
{
    Q_OBJECT

public:
    explicit IndexPane(QWidget* parent);

    void ShowIndex(const std::vector<IndexEntry>& index);
    void FocusField();

Q_SIGNALS:
    void PageRequested(const PageAddress& address);

private:
    void Filter(const QString& text);
    void Choose(const QListWidgetItem* item);

    QLineEdit* txtIndex;
    QLabel* lblNoKeyword; ///< shown instead of an empty list
    QListWidget* lstIndex;
};

/// The search in the text of all pages.
class SearchPane final : public QWidget
{
    Q_OBJECT

public:
    explicit SearchPane(QWidget* parent);

    void SetFile(std::shared_ptr<const HelpFile> file);

Q_SIGNALS:
    /// A page that was found, and the words that were sought.
    void HitChosen(const PageAddress& address, const QString& words);

private:
    void Search();

    std::shared_ptr<const HelpFile> m_file;
    PageSearch m_search;
    QLineEdit* txtSearch;
    QPushButton* cmdSearch;
    QLabel* lblFound;
    QListWidget* lstFound;
};

/// The bar under a page that finds a text on it.
class FindBar final : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent);

    void Open();
    void Close();
    QString Text() const;
    /// Shows how often the text stands on the page.
    void ShowCount(int count);

Q_SIGNALS:
    void FindRequested(bool isBackward, bool isFromStart);
    void Closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* txtFind;
    QToolButton* cmdFindPrevious;
    QToolButton* cmdFindNext;
    QLabel* lblCount;
    QToolButton* cmdFindClose;
};

} // namespace stoikal
