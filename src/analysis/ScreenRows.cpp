#include "analysis/ScreenRows.h"

#include <map>

#include "analysis/FinalResultScreen.h"
#include "analysis/RoundWorks.h"
#include "evaluation/IndividualResultScreen.h"

using namespace Qt::StringLiterals;

namespace {

using WorkScreenMaker = std::unique_ptr<Form> (*)(const Work&);

template <typename Screen>
std::unique_ptr<Form> make(const Work& work) {
    return std::make_unique<Screen>(work);
}

// Whose screen shows more than all of them do.
WorkScreenMaker makerOf(const Work& work) {
    static const std::map<QString, WorkScreenMaker> own{{u"個人結果"_s, make<個人結果>},
                                                        {u"最終結果"_s, make<最終結果>}};
    const auto found = own.find(work.screen);
    return found == own.end() ? make<WorkScreen> : found->second;
}

} // namespace

void analysis::addScreens(Screens& screens) {
    for (const auto& work : roundWorks())
        screens.add({work.screen, [&work] { return makerOf(work)(work); },
                     MenuPlace{u"メニュー"_s, work.menuControl, work.screen}});
}
