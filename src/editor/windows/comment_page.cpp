#include "editor/windows/comment_page.h"

#include "forms/form.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace stoikal {

CommentPage::CommentPage(QWidget* parent)
    : QWidget(parent)
    , m_head(Named(new QPlainTextEdit(this), QStringLiteral("txtComment(0)"),
                   QStringLiteral("Commentaire en en-tête de fichier")))
    , m_comment(Named(new QLineEdit(this), QStringLiteral("txtComment(1)"),
                      QStringLiteral("Commentaire devant cette équation")))
{
    const QStringList captions{QStringLiteral("en en-tête de fichier"),
                               QStringLiteral("en en-tête d'équations")};
    for (std::size_t i = 0; i < chkComment.size(); ++i) {
        const QString& caption = captions.at(static_cast<qsizetype>(i));
        chkComment.at(i) = Named(new QCheckBox(caption, this), ArrayName("chkComment", static_cast<int>(i)),
                                 QStringLiteral("Commentaire %1").arg(caption));
    }
    m_head->setTabChangesFocus(true);
    m_head->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_head->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_comment->setEnabled(false);
    chkComment[0]->setChecked(true);

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    rows->addWidget(chkComment[0]);
    rows->addWidget(m_head, 1);
    rows->addSpacing(8);
    rows->addWidget(chkComment[1]);
    rows->addWidget(m_comment);
    setTabOrder(chkComment[0], m_head);
    setTabOrder(m_head, chkComment[1]);
    setTabOrder(chkComment[1], m_comment);

    connect(chkComment[0], &QCheckBox::toggled, m_head, &QWidget::setEnabled);
    connect(chkComment[1], &QCheckBox::toggled, m_comment, &QWidget::setEnabled);
    connect(m_head, &QPlainTextEdit::textChanged, this, &CommentPage::Edited);
    connect(m_comment, &QLineEdit::textChanged, this, &CommentPage::Edited);
}

QString CommentPage::Head() const
{
    return m_head->toPlainText();
}

void CommentPage::ShowHead(const QString& head)
{
    m_head->setPlainText(head);
}

bool CommentPage::TakesComments() const
{
    return chkComment[1]->isChecked();
}

void CommentPage::TakeComments(bool taken)
{
    chkComment[1]->setChecked(taken);
}

QString CommentPage::Comment() const
{
    return m_comment->text();
}

void CommentPage::ShowComment(const QString& comment)
{
    m_comment->setText(comment);
}

} // namespace stoikal
