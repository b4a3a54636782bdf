#include "tools/windows/text_window.h"

#include "base/shown_path.h"
#include "forms/messages.h"
#include "platform/doors.h"

#include <QEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextDocument>
#include <QVBoxLayout>

namespace stoikal {
namespace {

QPushButton* Button(QWidget* parent, const char* name, const QString& caption, const QString& toolTip)
{
    QString accessible = caption;
    accessible.remove(QLatin1Char('&'));
    auto* const button = Named(new QPushButton(caption, parent), QLatin1String(name), accessible);
    button->setToolTip(toolTip);
    return button;
}

} // namespace

TextWindow::TextWindow(const QString& path, const QString& caption, Use use, const Doors& doors,
                       QWidget* parent)
    : Form(QStringLiteral("frmTexte"), caption + QStringLiteral("[*]"), Kind::Tool, parent)
    , m_file(path)
    , m_use(use)
    , m_doors(doors)
    , txtTexte(Named(new QPlainTextEdit(this), QStringLiteral("txtTexte"), caption))
    , txtFind(Named(new QLineEdit(this), QStringLiteral("txtFind"), QStringLiteral("Texte à rechercher")))
    , cmdNext(Button(this, "cmdNext", QStringLiteral("Suivant"), QStringLiteral("Chercher plus bas (F3)")))
    , cmdPrevious(Button(this, "cmdPrevious", QStringLiteral("Précédent"),
                         QStringLiteral("Chercher plus haut (Maj+F3)")))
    , lblState(Named(new QLabel(this), QStringLiteral("lblState")))
    , cmdReload(Button(this, "cmdReload", QStringLiteral("&Actualiser"),
                       QStringLiteral("Relire le fichier tel qu'il est maintenant (F5)")))
    , cmdSave(Button(this, "cmdSave", QStringLiteral("&Enregistrer"),
                     QStringLiteral("Enregistrer le texte (Ctrl+S)")))
    , cmdEditor(Button(this, "cmdEditor", QStringLiteral("É&diteur de texte ..."),
                       QStringLiteral("Ouvrir ce fichier dans l'éditeur de texte du bureau")))
    , cmdClose(Button(this, "cmdClose", QStringLiteral("&Fermer"), QStringLiteral("Fermer cette fenêtre")))
{
    setAccessibleName(caption);
    Build(use);
    BuildKeys();
    connect(cmdNext, &QPushButton::clicked, this, [this] { Find(Direction::Forwards); });
    connect(cmdPrevious, &QPushButton::clicked, this, [this] { Find(Direction::Backwards); });
    connect(txtFind, &QLineEdit::textChanged, this, [this] { Find(Direction::FromHere); });
    connect(txtTexte->document(), &QTextDocument::modificationChanged, this, [this] { ShowState(); });
    connect(cmdReload, &QPushButton::clicked, this, &TextWindow::Load);
    connect(cmdSave, &QPushButton::clicked, this, &TextWindow::cmdSave_Click);
    connect(cmdEditor, &QPushButton::clicked, this, &TextWindow::cmdEditor_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::CloseAsked);
    ShowState();
}

void TextWindow::Build(Use use)
{
    constexpr QSize kSize(720, 480);
    const bool isEdited = use == Use::Edit;
    txtTexte->setTabChangesFocus(true);
    txtTexte->setLineWrapMode(isEdited ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    if (!isEdited) {
        txtTexte->setReadOnly(true);
        txtTexte->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        txtTexte->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    }
    cmdSave->setVisible(isEdited);
    cmdReload->setVisible(!isEdited);

    auto* const lblFind = Named(new QLabel(QStringLiteral("&Rechercher :"), this), QStringLiteral("lblFind"));
    lblFind->setBuddy(txtFind);
    txtFind->setClearButtonEnabled(true);
    auto* const search = new QHBoxLayout;
    search->setSpacing(8);
    search->addWidget(lblFind);
    search->addWidget(txtFind, 1);
    search->addWidget(cmdPrevious);
    search->addWidget(cmdNext);
    auto* const bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addWidget(lblState, 1);
    for (QPushButton* const button : {cmdReload, cmdSave, cmdEditor, cmdClose})
        bottom->addWidget(button);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    rows->addLayout(search);
    rows->addWidget(txtTexte, 1);
    rows->addLayout(bottom);
    QWidget* before = txtFind;
    for (QWidget* const next : std::initializer_list<QWidget*>{cmdPrevious, cmdNext, txtTexte, cmdReload,
                                                               cmdSave, cmdEditor, cmdClose}) {
        setTabOrder(before, next);
        before = next;
    }
    setFocusProxy(txtTexte);
    resize(kSize);
}

void TextWindow::BuildKeys()
{
    const auto bind = [this](const QKeySequence& keys, auto&& work) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
    };
    bind(QKeySequence::Find, [this] {
        txtFind->setFocus();
        txtFind->selectAll();
    });
    bind(QKeySequence(Qt::Key_F3), [this] { Find(Direction::Forwards); });
    bind(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { Find(Direction::Backwards); });
    if (txtTexte->isReadOnly())
        bind(QKeySequence(Qt::Key_F5), [this] { Load(); });
    else
        bind(QKeySequence::Save, [this] { cmdSave_Click(); });
}

bool TextWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        RefreshIfChanged();
    return Form::event(event);
}

bool TextWindow::IsModified() const
{
    return txtTexte->document()->isModified();
}

void TextWindow::ShowLines(const QStringList& lines)
{
    QString text;
    for (const QString& line : lines)
        text += line + QLatin1Char('\n');
    txtTexte->setPlainText(text);
}

Outcome<QStringList> TextWindow::ReadLines()
{
    // What is not edited need not be whole.
    return m_use == Use::Edit ? m_file.Load() : m_file.LoadEnd();
}

bool TextWindow::Load()
{
    const auto lines = ReadLines();
    if (!lines) {
        m_doors.messages.Critical(this, QStringLiteral("Stoikal"),
                                  QStringLiteral("Le fichier ne peut pas être lu :\n%1\n(%2)")
                                      .arg(ShownPath(Path()), lines.Reason()));
        return false;
    }
    ShowLines(*lines);
    // The newest results stand last, and a new tip comes behind the others.
    txtTexte->moveCursor(QTextCursor::End);
    ShowState(lines->isEmpty()     ? QStringLiteral("Le fichier est vide.")
                  : m_file.IsCut() ? QStringLiteral("Seule la fin du fichier est montrée.")
                                   : QString());
    return true;
}

void TextWindow::RefreshIfChanged()
{
    if (IsModified() || !m_file.HasChangedOutside())
        return;
    // What is shown stays where the file has gone: a share may be away for a while.
    const auto lines = QFileInfo::exists(Path()) ? ReadLines() : Outcome<QStringList>(Failure{});
    if (!lines) {
        ShowState(QStringLiteral("Le fichier n'est plus accessible."));
        return;
    }
    const int place = txtTexte->textCursor().position();
    const int row = txtTexte->verticalScrollBar()->value();
    ShowLines(*lines);
    QTextCursor cursor = txtTexte->textCursor();
    cursor.setPosition(std::min(place, txtTexte->document()->characterCount() - 1));
    txtTexte->setTextCursor(cursor);
    txtTexte->verticalScrollBar()->setValue(row);
    ShowState(QStringLiteral("Le texte a été relu."));
}

QStringList TextWindow::Lines() const
{
    // The plain text would come with its no-break spaces made common ones.
    QStringList lines = txtTexte->document()->toRawText().split(QChar(QChar::ParagraphSeparator));
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

bool TextWindow::Save()
{
    if (m_file.HasChangedOutside()
        && !m_doors.messages.AskPresetNo(
            this, QStringLiteral("Stoikal"),
            QStringLiteral("Un autre programme a modifié ce fichier depuis son ouverture :\n%1\n\n"
                           "Voulez-vous le remplacer par votre texte\u00A0?")
                .arg(ShownPath(Path()))))
        return false;
    const auto saved = m_file.Save(Lines());
    if (!saved) {
        m_doors.messages.Critical(this, QStringLiteral("Stoikal"),
                                  QStringLiteral("Le texte n'a pas pu être enregistré :\n%1\n(%2)")
                                      .arg(ShownPath(Path()), saved.Reason()));
        return false;
    }
    txtTexte->document()->setModified(false);
    return true;
}

void TextWindow::cmdSave_Click()
{
    if (Save())
        ShowState(QStringLiteral("Le texte est enregistré."));
}

void TextWindow::cmdEditor_Click()
{
    if (IsModified()) {
        if (!m_doors.messages.Ask(this, QStringLiteral("Stoikal"),
                                  QStringLiteral("Le texte a été modifié.\n"
                                                 "Voulez-vous l'enregistrer d'abord\u00A0?"))
            || !Save())
            return;
    } else if (!QFileInfo::exists(Path()) && !Save()) {
        return;
    }
    if (!m_doors.programs.EditText(Path()))
        m_doors.messages.Critical(
            this, QStringLiteral("Erreur sur le chemin d'accés"),
            QStringLiteral("Aucun éditeur de texte n'a pu être démarré pour le fichier :\n%1")
                .arg(ShownPath(Path())));
}

bool TextWindow::MayClose()
{
    return !IsModified()
        || m_doors.messages.AskPresetNo(
            this, QStringLiteral("Stoikal"),
            QStringLiteral("Ce texte a été modifié et n'est pas enregistré :\n%1\n\n"
                           "Voulez-vous fermer la fenêtre sans l'enregistrer\u00A0?")
                .arg(ShownPath(Path())));
}

void TextWindow::OfferToSave()
{
    while (IsModified()
           && m_doors.messages.Ask(this, QStringLiteral("Stoikal"),
                                   QStringLiteral("Ce texte a été modifié et n'est pas enregistré :\n%1\n\n"
                                                  "Voulez-vous l'enregistrer avant de quitter\u00A0?")
                                       .arg(ShownPath(Path()))))
        Save();
}

void TextWindow::Find(Direction direction)
{
    const QString words = txtFind->text();
    if (words.isEmpty()) {
        ShowState();
        return;
    }
    const bool isBackwards = direction == Direction::Backwards;
    const QTextDocument::FindFlags flags
        = isBackwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const QTextCursor here = txtTexte->textCursor();
    QTextDocument& document = *txtTexte->document();
    // While the words are being typed they may grow where they stand.
    QTextCursor found = direction == Direction::FromHere ? document.find(words, here.selectionStart(), flags)
                                                         : document.find(words, here, flags);
    if (found.isNull()) {
        QTextCursor start(&document);
        start.movePosition(isBackwards ? QTextCursor::End : QTextCursor::Start);
        found = document.find(words, start, flags);
    }
    if (found.isNull()) {
        ShowState(QStringLiteral("«\u00A0%1\u00A0» ne se trouve pas dans le texte.").arg(words));
        return;
    }
    txtTexte->setTextCursor(found);
    ShowState();
}

void TextWindow::ShowState(const QString& news)
{
    setWindowModified(IsModified());
    cmdSave->setEnabled(IsModified());
    lblState->setText(news);
    const bool canFind = !txtFind->text().isEmpty();
    cmdNext->setEnabled(canFind);
    cmdPrevious->setEnabled(canFind);
}

} // namespace stoikal
