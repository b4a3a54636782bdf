#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

namespace stoikal {

/// A text with its entities ("&eacute;", "&#233;", "&#xE9;") replaced; what is
/// no known entity stays as it stands.
QString DecodeEntities(QStringView text);

/// Walks over a text of HTML, piece by piece: a tag or the text up to the next
/// one. Comments, scripts and style sheets are passed by. It never fails: what
/// is no tag is text. Does not copy: the text must outlive it.
class HtmlWalker
{
public:
    explicit HtmlWalker(QStringView html)
        : m_html(html)
    {
    }

    /// Goes to the next piece; false at the end.
    bool Next();

    bool IsTag() const { return !m_tag.isEmpty(); }
    /// In small letters, with "/" in front of an end tag: "ul", "/ul".
    const QString& Tag() const { return m_tag; }
    /// The value of an attribute of the tag, entities replaced; empty without.
    QString Attribute(const QString& name) const;
    /// The text between tags, entities replaced.
    QString Text() const { return DecodeEntities(m_text); }

private:
    bool ParseTag();
    void SkipTo(QStringView end);

    QStringView m_html;
    qsizetype m_position = 0;
    QString m_tag;
    QStringView m_inside;
    QStringView m_text;
};

} // namespace stoikal
