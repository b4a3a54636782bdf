#include "exercise/windows/atom_window.h"

#include "base/number_text.h"
#include "base/settings_store.h"
#include "chemistry/element_table.h"
#include "exercise/atom_list.h"
#include "exercise/disc_rows.h"
#include "forms/colours.h"
#include "forms/picture_surface.h"
#include "forms/style.h"

#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace stoikal {

AtomWindow::AtomWindow(const QString& name, const QString& caption, Side side, const Settings& settings,
                       QWidget* parent)
    : Form(name, caption, Kind::Child, parent)
    , m_side(side)
    , m_settings(settings)
    , picAtomes(Named(new PictureSurface(this), QStringLiteral("picAtomes"), caption))
    , lblInfo_bulle(Named(new QLabel(picAtomes), QStringLiteral("lblInfo_bulle")))
{
    StayOnPaper(*this);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picAtomes);
    picAtomes->setMouseTracking(true);
    picAtomes->installEventFilter(this);

    lblInfo_bulle->setTextFormat(Qt::PlainText);
    lblInfo_bulle->setAutoFillBackground(true);
    lblInfo_bulle->setFrameShape(QFrame::Box);
    lblInfo_bulle->setMargin(3);
    lblInfo_bulle->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette palette = lblInfo_bulle->palette();
    palette.setColor(QPalette::Window, colours::kInfoTip);
    palette.setColor(QPalette::WindowText, colours::kInk);
    lblInfo_bulle->setPalette(palette);
    lblInfo_bulle->hide();
    RefreshColour();
}

void AtomWindow::RefreshColour()
{
    picAtomes->SetBackColour(FromBgr(SideColour(m_settings, m_side)));
}

void AtomWindow::ShowAtoms(const AtomList& atoms, int scale)
{
    m_scale = scale;
    m_kinds.clear();
    QStringList words;
    for (size_t i = 0; i < static_cast<size_t>(atoms.Kinds); ++i) {
        const ElementBall ball = ElementBySymbol(atoms.Symbol.at(i));
        m_kinds.push_back(
            {atoms.Symbol.at(i), FromBgr(ball.colour), ball.ballRadius, atoms.TotalCount.at(i)});
        words << QStringLiteral("%1 %2").arg(QString::number(atoms.TotalCount.at(i)), ball.name);
    }
    picAtomes->setAccessibleDescription(words.join(QStringLiteral(", ")));
    DrawAtoms();
}

void AtomWindow::Clear()
{
    m_kinds.clear();
    picAtomes->setAccessibleDescription({});
    picAtomes->Clear();
}

void AtomWindow::DrawAtoms()
{
    picAtomes->Clear();
    std::vector<DiscKind> kinds;
    kinds.reserve(m_kinds.size());
    std::transform(m_kinds.begin(), m_kinds.end(), std::back_inserter(kinds), [this](const DrawnKind& kind) {
        return DiscKind{DiscRadius(kind.ballRadius, m_scale), kind.count};
    });
    for (const Disc& disc : LayOutDiscs(kinds, FromPixels(picAtomes->width()))) {
        const DrawnKind& kind = m_kinds.at(static_cast<size_t>(disc.kind));
        picAtomes->DrawDisc(QPointF(disc.x, disc.y), disc.radius, kind.colour, kind.symbol);
    }
}

void AtomWindow::HideBubble()
{
    lblInfo_bulle->hide();
}

void AtomWindow::ShowBubble(const QPoint& mouse)
{
    const QString setting
        = m_settings.Read(QStringLiteral("Options"), QStringLiteral("Show info-bulles at Startup"));
    if (!setting.isEmpty() && ReadFileNumber(setting) == 0)
        return;
    const QColor colour = picAtomes->ColourAt(mouse);
    // A black pixel is a letter of a symbol.
    if (!colour.isValid() || ToBgr(colour) == 0 || colour == picAtomes->BackColour())
        return;
    lblInfo_bulle->setText(ElementNameByColour(ToBgr(colour)));
    lblInfo_bulle->adjustSize();
    const int left = std::clamp(mouse.x(), 0, std::max(0, picAtomes->width() - lblInfo_bulle->width()));
    const int top = mouse.y() - lblInfo_bulle->height();
    lblInfo_bulle->move(left, top < 0 ? mouse.y() + lblInfo_bulle->height() : top);
    lblInfo_bulle->show();
}

bool AtomWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == picAtomes) {
        switch (event->type()) {
        case QEvent::Resize:
            if (!m_kinds.empty())
                DrawAtoms();
            break;
        case QEvent::MouseMove:
            ShowBubble(static_cast<QMouseEvent*>(event)->position().toPoint());
            break;
        case QEvent::MouseButtonRelease:
            Q_EMIT MouseReleasedOver();
            break;
        case QEvent::Leave:
            HideBubble();
            break;
        default:
            break;
        }
    }
    return Form::eventFilter(watched, event);
}

frmReactif::frmReactif(const Settings& settings, QWidget* parent)
    : AtomWindow(QStringLiteral("frmReactif"), QStringLiteral("Atomes des réactifs"), Side::Reactants,
                 settings, parent)
{
}

frmProduit::frmProduit(const Settings& settings, QWidget* parent)
    : AtomWindow(QStringLiteral("frmProduit"), QStringLiteral("Atomes des produits"), Side::Products,
                 settings, parent)
{
}

} // namespace stoikal
