#include "base/settings_store.h"
#include "editor/work_file.h"
#include "fuzz.h"

using namespace stoikal;

/// What an editor that was killed left behind, or somebody else in its place: the
/// next editor takes it up, enters an equation and takes one out.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    SettingsStore store;
    WorkFile work(store, fuzz::FileOf(data, size, QStringLiteral("FileTemp.txt")));
    auto desk = work.LeftBehind();
    if (!desk)
        return 0;
    fuzz::Require(desk->isUnfinished, "only unfinished work is left behind");
    fuzz::Require(desk->count >= 1 && desk->number >= 1 && desk->number <= desk->count,
                  "the equation shown is one of the file");
    const int few = std::min(desk->count, 3);
    const std::vector<WorkEquation> before = work.Equations(few);
    fuzz::Require(before.size() == static_cast<size_t>(few),
                  "each equation can be read, if only as a blank one");
    fuzz::Require(work.Store(1, before.front(), *desk).Succeeded(), "a file can be written");
    fuzz::Require(work.Equation(1) == before.front(), "what was entered is read");
    fuzz::Require(work.InsertEquation(1, few, *desk) && work.DeleteEquation(1, few + 1, *desk)
                      && work.Equations(few) == before,
                  "a blank equation put in and taken out leaves the others");
    return 0;
}
