#include "picture_fixture.h"

#include "window_frame.h"

#include <QPainter>

namespace stoikal {

using namespace Qt::StringLiterals;

namespace {

/// A page of the manual is that wide.
constexpr int kWidestOfAPage = 640;

/// The desktop behind the windows.
constexpr int kDeskBelow = 6;
const QColor kDesk(0x3F, 0x4A, 0x5C);

} // namespace

void PictureTest::SetUp()
{
    if (m_target.isEmpty())
        throw std::runtime_error("STOIKAL_PICTURES names no folder");
    QApplication::setWindowIcon(QIcon(QStringLiteral(STOIKAL_HELP_DIR "/icon_16.png")));
    // A cursor that stands still.
    QApplication::setCursorFlashTime(0);
    desktop.folders.program = QStringLiteral(STOIKAL_HELP_DIR);
    for (const char* const shipped : {"/exercises", "/tips"}) {
        const QDir seeds(QStringLiteral(STOIKAL_DATA_DIR) + QLatin1String(shipped));
        const QStringList files = seeds.entryList(QDir::Files);
        for (const QString& file : files)
            desktop.folders.seeds << seeds.filePath(file);
    }
    leavesTheTip = false;
    passesAsTeacher = false;
    WriteSettings({u"[Options]"_s, u"Show Tips at Startup=0"_s});
    script.On("frmSplash", [this](QWidget& splash) {
        Keep(splash, u"frmSplash"_s);
        Tick(Control<QTimer>(splash, "tmrSplash"));
    });
    MakeShell().Start();
}

void PictureTest::Save(const QPixmap& picture, const char* kind, const QString& name) const
{
    const QString path = m_target + u'/' + QLatin1String(kind) + u'/' + name + u".png"_s;
    if (!picture.save(path))
        ADD_FAILURE() << "cannot write " << path.toStdString();
}

void PictureTest::Keep(QWidget& window, const QString& name)
{
    Settle();
    const QPixmap plain = Grabbed(window);
    Save(plain.width() > kWidestOfAPage ? plain.scaledToWidth(kWidestOfAPage, Qt::SmoothTransformation)
                                        : plain,
         "plain", name);
    Save(GrabbedWithFrame(window, InFront::Yes), "framed", name);
}

void PictureTest::Keep(const char* name)
{
    Settle();
    Keep(Shown(name), QLatin1String(name));
}

void PictureTest::KeepChild(const char* name, int width, int height)
{
    QWidget& child = Shown(name);
    child.parentWidget()->showNormal();
    child.parentWidget()->resize(width, height);
    Keep(name);
}

void PictureTest::KeepDesk(const QString& name, const std::vector<QWidget*>& before)
{
    Settle();
    QWidget& main = shell->MainWindow();
    const QPixmap ground = GrabbedWithFrame(main, before.empty() ? InFront::Yes : InFront::No);
    const QMargins frame = FrameMargins(main);
    const QPoint origin = main.geometry().topLeft() - QPoint(frame.left(), frame.top());
    QRect whole(QPoint(), ground.size());
    for (const QWidget* const window : before)
        whole |= window->geometry().translated(-origin);
    // What stands out over the main window stands out on the desktop.
    if (whole.height() > ground.height())
        whole.setBottom(whole.bottom() + kDeskBelow);
    QPixmap picture(whole.size());
    picture.fill(kDesk);
    QPainter painter(&picture);
    painter.drawPixmap(0, 0, ground);
    for (QWidget* const window : before) {
        const QMargins margins = FrameMargins(*window);
        const QPoint place = window->geometry().topLeft() - QPoint(margins.left(), margins.top()) - origin;
        const QPixmap drawn = GrabbedWithFrame(*window, window == before.back() ? InFront::Yes : InFront::No);
        const QRegion all(QRect(QPoint(), drawn.size()));
        painter.setClipRegion((window->mask().isEmpty() ? all : window->mask()).translated(place));
        painter.drawPixmap(place, drawn);
    }
    Save(picture, "framed", name);
}

void PictureTest::KeepWhenItComes(const char* name, const char* button, const ModalScript::Step& fill)
{
    script.On(name, [this, name, button, fill](QWidget& window) {
        if (fill)
            fill(window);
        Keep(window, QLatin1String(name));
        Click(Button(window, button));
    });
}

void PictureTest::GiveThePassword()
{
    script.On("frmMotPasse", [](QWidget& window) { Click(Button(window, "cmdOK")); });
}

QWidget& PictureTest::Shown(const char* name)
{
    QWidget* const window = FindWindow(name);
    if (window == nullptr)
        throw std::runtime_error(std::string("not shown: ") + name);
    return *window;
}

QAbstractButton& PictureTest::Button(QWidget& window, const char* name)
{
    return Control<QAbstractButton>(window, name);
}

void PictureTest::Fill(QWidget& window, const char* array, const QStringList& texts)
{
    for (int i = 0; i < texts.size(); ++i) {
        if (texts.at(i).isEmpty())
            continue;
        auto& box = Control<QLineEdit>(window, qPrintable(ArrayName(array, i)));
        box.setFocus();
        Settle();
        box.selectAll();
        Type(box, texts.at(i));
    }
}

void PictureTest::OpenProgress(const QString& equation, const char* option)
{
    AnswerDialog(WriteEquations({equation}, u"Gaz.Avt"_s));
    IdentifyWhenAsked();
    KeepWhenItComes("frmChoixSimul", "cmdChoix",
                    [option](QWidget& window) { Click(Button(window, option)); });
    Choose("Mnu_Open(1)");
    Settle();
}

} // namespace stoikal
