#include "progress/windows/progress_controls.h"

#include "forms/form.h"
#include "progress/windows/progress_box.h"

#include <QCheckBox>
#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace stoikal {
namespace {

constexpr int kMargin = 7; ///< beside titles and rules, pixels as all below
constexpr int kColumnGap = 8; ///< between the titles and the first column
constexpr int kBoxGap = 6; ///< between two rows of boxes at least
constexpr int kTextMargins = 14; ///< the frame of a box and the blank beside its text
constexpr double kLeastPoints = 7; ///< of a text that must be made smaller
constexpr int kButtonPadding = 16;
constexpr int kNextGap = 4; ///< 60 twips
const QColor kRule(0xC9, 0xBE, 0x9A);

/// Where the seven rows begin: the molar masses, the row of their button, the
/// five rows of the table; and the end of the last.
using RowTops = std::array<int, 8>;
constexpr int kButtonRow = 1;

constexpr const char16_t* kTitles[]{
    u"Masse molaire (en g/mol)", u"Masse (en g)",    u"Volume (en L)", u"Etat initial (mol)",
    u"Etat intermédiaire (mol)", u"Etat final (mol)"};

QString Title(int row)
{
    return QString::fromUtf16(kTitles[row]);
}

/// The width of a text on two lines at most, broken where that is narrowest.
int WidthOnTwoLines(const QString& text, const QFontMetrics& metrics)
{
    int least = metrics.horizontalAdvance(text);
    for (qsizetype blank = text.indexOf(u' '); blank >= 0; blank = text.indexOf(u' ', blank + 1)) {
        least = std::min(least,
                         std::max(metrics.horizontalAdvance(text.first(blank)),
                                  metrics.horizontalAdvance(text.sliced(blank + 1))));
    }
    return least;
}

int ButtonWidth(const QWidget& button)
{
    return button.sizeHint().width() + kButtonPadding;
}

/// Makes the type of a box that nobody types in small enough for its text. What
/// is longer still is read in the tool tip.
void FitText(QLineEdit& box, const QFont& usual)
{
    QFont font = usual;
    const auto isTooWide = [&box, &font] {
        return QFontMetrics(font).horizontalAdvance(box.text()) > box.width() - kTextMargins;
    };
    while (isTooWide() && font.pointSizeF() > kLeastPoints)
        font.setPointSizeF(font.pointSizeF() - 0.5);
    box.setToolTip(isTooWide() ? box.text() : QString());
    box.setFont(font);
}

QFrame* MakeRule(QWidget& pane, const QString& name)
{
    QFrame* const rule = Named(new QFrame(&pane), name);
    rule->setAutoFillBackground(true);
    QPalette palette = rule->palette();
    palette.setColor(QPalette::Window, kRule);
    rule->setPalette(palette);
    rule->setAttribute(Qt::WA_TransparentForMouseEvents);
    return rule;
}

} // namespace

ProgressControls::ProgressControls(Messages& messages, QWidget& pane)
{
    MakeRules(pane);
    MakeRow(txtMasMol, "txtMasMol", 0, messages, pane);
    MakeRow(txtMasse, "txtMasse", 1, messages, pane);
    MakeRow(txtVolGaz, "txtVolGaz", 2, messages, pane);
    MakeRow(txtQmat0, "txtQmat0", 3, messages, pane);
    MakeRow(txtQmati, "txtQmati", 4, messages, pane);
    MakeRow(txtQmatf, "txtQmatf", 5, messages, pane);
    for (ProgressBox* const box : txtQmati)
        QObject::connect(box, &QLineEdit::textChanged, box,
                         [this, box] { FitText(*box, txtMasMol[0]->font()); });
    MakeButtons(pane);
    OrderTabs();
}

void ProgressControls::MakeRow(Boxes& row, const char* array, int title, Messages& messages, QWidget& pane)
{
    for (int slot = 0; slot < 6; ++slot)
        row[static_cast<std::size_t>(slot)] = Named(new ProgressBox(messages, &pane), ArrayName(array, slot));
    QLabel* const label = Named(new QLabel(Title(title), &pane), ArrayName("lblEtat", title));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    lblEtat[static_cast<std::size_t>(title)] = label;
}

void ProgressControls::MakeRules(QWidget& pane)
{
    for (std::size_t i = 0; i < linHoriz.size(); ++i)
        linHoriz[i] = MakeRule(pane, ArrayName("linHoriz", static_cast<int>(i) + 1));
    const QString names[]{QStringLiteral("Line1"), QStringLiteral("Line2"), QStringLiteral("Line4"),
                          QStringLiteral("Line5")};
    for (std::size_t i = 0; i < rules.size(); ++i)
        rules[i] = MakeRule(pane, names[i]);
}

void ProgressControls::MakeButtons(QWidget& pane)
{
    const auto button = [&pane](const QString& name, const QString& caption) {
        return Named(new QPushButton(caption, &pane), name, caption);
    };
    cmdValidMassMol = button(QStringLiteral("cmdValidMassMol"), QStringLiteral("Valider masses molaires"));
    cmdValidMVQ = button(QStringLiteral("cmdValidMVQ"), QStringLiteral("Valider tableau"));
    chkDataMol = Named(new QCheckBox(QStringLiteral("Données"), &pane), QStringLiteral("chkDataMol"),
                       QStringLiteral("Données des masses molaires"));
    chkDataMol->setToolTip(QStringLiteral("Pour ouvrir/fermer la fenêtre de données des masses molaires "
                                          "atomiques et du volume molaire"));
    chkHistoMol = Named(new QCheckBox(QStringLiteral("Animations"), &pane), QStringLiteral("chkHistoMol"),
                        QStringLiteral("Animations"));
    chkHistoMol->setToolTip(QStringLiteral("Pour accéder à la fenêtre de simulation"));
}

std::array<ProgressControls::Boxes*, 6> ProgressControls::Rows()
{
    return {&txtMasMol, &txtMasse, &txtVolGaz, &txtQmat0, &txtQmati, &txtQmatf};
}

std::array<const ProgressControls::Boxes*, 6> ProgressControls::Rows() const
{
    return {&txtMasMol, &txtMasse, &txtVolGaz, &txtQmat0, &txtQmati, &txtQmatf};
}

void ProgressControls::OrderTabs() const
{
    QWidget* last = nullptr;
    const auto follow = [&last](QWidget* next) {
        if (last != nullptr)
            QWidget::setTabOrder(last, next);
        last = next;
    };
    for (const Boxes* const row : Rows()) {
        std::for_each(row->begin(), row->end(), follow);
        if (row == &txtMasMol) {
            follow(chkDataMol);
            follow(cmdValidMassMol);
        }
    }
    follow(chkHistoMol);
    follow(cmdValidMVQ);
}

void ProgressControls::NameColumn(int slot, const QString& molecule)
{
    const auto place = static_cast<std::size_t>(slot);
    const auto rows = Rows();
    for (std::size_t row = 0; row < rows.size(); ++row)
        (*rows[row])[place]->setAccessibleName(
            QStringLiteral("%1 de %2").arg(Title(static_cast<int>(row)), molecule));
    txtMasMol[place]->setToolTip(
        QStringLiteral("Saisissez ici la masse molaire de la molécule %1").arg(molecule));
}

ProgressTexts ProgressControls::Texts() const
{
    const auto read = [](const Boxes& boxes) {
        ProgressTexts::Row texts;
        std::transform(boxes.begin(), boxes.end(), texts.begin(),
                       [](const ProgressBox* box) { return box->text(); });
        return texts;
    };
    return {read(txtMasse), read(txtVolGaz), read(txtQmat0), read(txtQmati), read(txtQmatf)};
}

void ProgressControls::SetTexts(const ProgressTexts& texts)
{
    const auto write = [](const Boxes& boxes, const ProgressTexts::Row& row) {
        for (std::size_t slot = 0; slot < 6; ++slot)
            boxes[slot]->setText(row[slot]);
    };
    write(txtMasse, texts.txtMasse);
    write(txtVolGaz, texts.txtVolGaz);
    write(txtQmat0, texts.txtQmat0);
    write(txtQmati, texts.txtQmati);
    write(txtQmatf, texts.txtQmatf);
}

int ProgressControls::RowHeight() const
{
    const int title = 2 * lblEtat[0]->fontMetrics().lineSpacing();
    return std::max({txtMasMol[0]->sizeHint().height(), title, cmdValidMassMol->sizeHint().height()})
        + kBoxGap;
}

int ProgressControls::TitleWidth() const
{
    int width = chkDataMol->sizeHint().width();
    for (int row = 0; row < 6; ++row)
        width = std::max(width, WidthOnTwoLines(Title(row), lblEtat[0]->fontMetrics()) + 2);
    return width;
}

void ProgressControls::FitTitles(int room)
{
    QFont title = txtMasMol[0]->font();
    title.setPointSizeF(title.pointSizeF() - 0.5);
    const auto take = [this, &title] {
        for (QLabel* const label : lblEtat)
            label->setFont(title);
    };
    take();
    while (kMargin + TitleWidth() + kColumnGap > room && title.pointSizeF() - 0.5 >= kLeastPoints) {
        title.setPointSizeF(title.pointSizeF() - 0.5);
        take();
    }
}

LowerPane::Needs ProgressControls::LeastSizes(const QWidget& next) const
{
    LowerPane::Needs needs;
    needs.titles = kMargin + TitleWidth() + kColumnGap;
    const QFontMetrics metrics = txtMasMol[0]->fontMetrics();
    needs.column = metrics.horizontalAdvance(QStringLiteral("ni(0)-10*xmax")) + kTextMargins;
    const int besideMiddle = ButtonWidth(*cmdValidMVQ) / 2 + kNextGap + next.sizeHint().width() + kMargin;
    needs.width = needs.titles - kColumnGap + 2 * besideMiddle;
    needs.height = 7 * RowHeight() + kBoxGap + cmdValidMVQ->sizeHint().height();
    return needs;
}

void ProgressControls::PlaceRow(int row, int top, int height, const LowerPane::Columns& columns)
{
    const auto place = static_cast<std::size_t>(row);
    // No wider than it takes: the text is then broken where both lines are short.
    lblEtat[place]->setGeometry(kMargin, top + 1,
                                WidthOnTwoLines(Title(row), lblEtat[place]->fontMetrics()) + 2, height - 1);
    const Boxes& boxes = *Rows()[place];
    for (std::size_t slot = 0; slot < 6; ++slot) {
        const int boxHeight = txtMasMol[slot]->sizeHint().height();
        boxes[slot]->setGeometry(columns.left[slot], top + (height - boxHeight + 1) / 2, columns.width[slot],
                                 boxHeight);
        boxes[slot]->setVisible(columns.shown[slot]);
        if (&boxes == &txtQmati)
            FitText(*boxes[slot], txtMasMol[0]->font());
    }
}

void ProgressControls::PlaceRules(const RowTops& tops, const LowerPane::Columns& columns)
{
    const int length = columns.bandEnd - 2 * kMargin;
    const std::array<int, 7> heights{tops[0], tops[2], tops[3], tops[4], tops[5], tops[6], tops[7]};
    for (std::size_t i = 0; i < linHoriz.size(); ++i)
        linHoriz[i]->setGeometry(kMargin, heights[i], length, 1);
    const int titlesEnd = columns.firstLeft - kColumnGap / 2 - 1;
    // The button's row stands between the two parts of the table.
    rules[0]->setGeometry(titlesEnd, tops[0], 1, tops[kButtonRow] - tops[0]);
    rules[1]->setGeometry(titlesEnd, tops[2], 1, tops[7] - tops[2]);
    rules[2]->setGeometry(columns.arrowMiddle, tops[0], 1, tops[kButtonRow] - tops[0]);
    rules[3]->setGeometry(columns.arrowMiddle, tops[2], 1, tops[7] - tops[2]);
}

void ProgressControls::Place(const LowerPane::Columns& columns, int top, int windowWidth, QWidget& next)
{
    const int buttonHeight = cmdValidMVQ->sizeHint().height();
    const int buttonsTop = columns.buttonsTop - top;
    const int height = (buttonsTop - kBoxGap) / 7;
    RowTops tops{};
    for (std::size_t i = 0; i < tops.size(); ++i)
        tops[i] = static_cast<int>(i) * height;
    PlaceRow(0, tops[0], height, columns);
    for (int row = 1; row < 6; ++row)
        PlaceRow(row, tops[static_cast<std::size_t>(row) + 1], height, columns);
    PlaceRules(tops, columns);

    const int middle = (columns.firstLeft - kColumnGap + windowWidth) / 2;
    const int massTop = tops[kButtonRow] + (height - buttonHeight) / 2;
    const int massWidth = ButtonWidth(*cmdValidMassMol);
    chkDataMol->setGeometry(kMargin, massTop, chkDataMol->sizeHint().width(), buttonHeight);
    cmdValidMassMol->setGeometry(middle - massWidth / 2, massTop, massWidth, buttonHeight);
    const int tableWidth = ButtonWidth(*cmdValidMVQ);
    chkHistoMol->setGeometry(kMargin, buttonsTop, chkHistoMol->sizeHint().width(), buttonHeight);
    cmdValidMVQ->setGeometry(middle - tableWidth / 2, buttonsTop, tableWidth, buttonHeight);
    next.setGeometry(middle - tableWidth / 2 + tableWidth + kNextGap, columns.buttonsTop,
                     next.sizeHint().width(), buttonHeight);
    QWidget::setTabOrder(cmdValidMVQ, &next);
}

} // namespace stoikal
