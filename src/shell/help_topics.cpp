#include "shell/help_topics.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace stoikal::help_topics {
namespace {

struct Row {
    const char16_t* window;
    int topic;
};

constexpr std::array kRows{
    Row{u"frmStoikal", kContents},
    Row{u"frmAbout", kAbout},
    Row{u"frmCalMol", kCalMol},
    Row{u"frmCharge", kCharge},
    Row{u"frmChoixSimul", kContents},
    Row{u"frmChrono", kChrono},
    Row{u"frmCorbeille", kContents},
    Row{u"frmDataAtomes", kDataAtomes},
    Row{u"frmDepot", kContents},
    Row{u"frmEquation", kEquation},
    Row{u"frmEtude", kContents},
    Row{u"frmExpert", kExpert},
    Row{u"frmHelp", kHelp},
    Row{u"frmHistoMol", kHistoMol},
    Row{u"frmMassMol", kMassMol},
    Row{u"frmMotPasse", kContents},
    Row{u"frmName", kContents},
    Row{u"frmNewFile", kEditor},
    Row{u"frmNote", kNote},
    Row{u"frmPassWord", kPassWord},
    Row{u"frmPref", kPref},
    Row{u"frmPreview", kEditor},
    Row{u"frmProduit", kAtoms},
    Row{u"frmReactif", kAtoms},
    Row{u"frmSearch", kSearch},
    Row{u"frmSimulAnim", kSimulAnim},
    Row{u"frmTableauPeriodique", kTableau},
    Row{u"frmTexte", kContents},
    Row{u"frmTip", kTip},
};

} // namespace

std::optional<int> TopicOf(QStringView window)
{
    const auto row = std::find_if(std::begin(kRows), std::end(kRows),
                                  [&](const Row& candidate) { return window == candidate.window; });
    if (row == std::end(kRows))
        return std::nullopt;
    return row->topic;
}

} // namespace stoikal::help_topics
