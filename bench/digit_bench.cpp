#include "base/settings_store.h"
#include "chemistry/element_table.h"
#include "exercise/atom_list.h"
#include "exercise/disc_rows.h"
#include "exercise/windows/atom_window.h"
#include "forms/colours.h"
#include "forms/disc_pictures.h"
#include "window_bench.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <span>

using namespace stoikal;

namespace {

constexpr int kScale = 1;
constexpr QSize kWindow(502, 671);

/// Two sides with 250 atoms each: what a digit asks for at its worst.
struct Sides {
    std::array<SpeciesInput, 3> reactants{
        {{QStringLiteral("C6H12O6"), 5}, {QStringLiteral("H2SO4"), 10}, {QStringLiteral("Ca(OH)2"), 12}}};
    std::array<SpeciesInput, 3> products = reactants;
    AtomList left;
    AtomList right;

    void Compose()
    {
        ComputeComposition(left, reactants);
        ComputeComposition(right, products);
        AlignAtomLists(left, right);
    }
};

std::vector<Disc> Discs(const AtomList& atoms, std::vector<ElementBall>& balls)
{
    std::vector<DiscKind> kinds;
    balls.clear();
    for (size_t i = 0; i < static_cast<size_t>(atoms.Kinds); ++i) {
        balls.push_back(ElementBySymbol(atoms.Symbol.at(i)));
        kinds.push_back({DiscRadius(balls.back().ballRadius, kScale), atoms.TotalCount.at(i)});
    }
    return LayOutDiscs(kinds, FromPixels(kWindow.width()));
}

/// One digit: atoms counted, sides aligned, both windows drawn.
void OneDigit(benchmark::State& state)
{
    SettingsStore store;
    const QString none;
    const Settings settings(store, none);
    frmReactif left(settings, nullptr);
    frmProduit right(settings, nullptr);
    left.resize(kWindow);
    right.resize(kWindow);
    left.show();
    right.show();
    QImage screen(kWindow, QImage::Format_ARGB32_Premultiplied);
    Sides sides;
    for ([[maybe_unused]] auto _ : state) {
        sides.Compose();
        left.ShowAtoms(sides.left, kScale);
        right.ShowAtoms(sides.right, kScale);
        left.render(&screen);
        right.render(&screen);
    }
    int discs = 0;
    for (int i = 0; i < sides.left.Kinds; ++i)
        discs += sides.left.TotalCount.at(static_cast<size_t>(i))
            + sides.right.TotalCount.at(static_cast<size_t>(i));
    state.counters["discs"] = discs;
}
BENCHMARK(OneDigit)->Unit(benchmark::kMicrosecond);

/// The peers draw the same discs on the same two grounds.
template <typename DrawOne>
void DrawSides(benchmark::State& state, DrawOne drawOne)
{
    Sides sides;
    sides.Compose();
    std::vector<ElementBall> balls;
    const std::vector<Disc> discs = Discs(sides.left, balls);
    QImage screen(kWindow, QImage::Format_ARGB32_Premultiplied);
    for ([[maybe_unused]] auto _ : state) {
        for (int side = 0; side < 2; ++side) {
            QPainter painter(&screen);
            painter.fillRect(screen.rect(), QColor(0xC0, 0xFF, 0xC0));
            for (const Disc& disc : discs) {
                const ElementBall& ball = balls.at(static_cast<size_t>(disc.kind));
                const DiscLook look{double(disc.radius) / kTwipsPerPixel, FromBgr(ball.colour).rgb(),
                                    sides.left.Symbol.at(static_cast<size_t>(disc.kind))};
                drawOne(painter, QPointF(disc.x, disc.y) / kTwipsPerPixel, look);
            }
        }
    }
    state.counters["discs"] = double(2 * discs.size());
}

void PaintEachDisc(benchmark::State& state)
{
    DrawSides(state, [](QPainter& painter, const QPointF& centre, const DiscLook& look) {
        PaintDisc(painter, centre, look, true);
    });
}
BENCHMARK(PaintEachDisc)->Unit(benchmark::kMicrosecond);

void CopyBarePictures(benchmark::State& state)
{
    DiscPictures pictures;
    DrawSides(state, [&pictures](QPainter& painter, const QPointF& centre, const DiscLook& look) {
        const QPixmap& picture = pictures.Picture(look, 1);
        painter.drawPixmap(QPoint(static_cast<int>(centre.x()) - picture.width() / 2,
                                  static_cast<int>(centre.y()) - picture.height() / 2),
                           picture);
    });
}
BENCHMARK(CopyBarePictures)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    return stoikal::RunWindowBenchmarks(argc, argv);
}
