#include "workflow/driver.h"

#include "data/custom_dialog.h"
#include "drivers/calibrator_names.h"
#include "platform/error_report.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

using namespace Module702Interface;
using namespace ModuleTSInterface;

namespace {

struct Named {
    const QString& name;
    TextId caption;
};

/// The calibrators in the order in which they are offered.
const Named offered[] = {{calibratorName::torqueStar, TextId::calibratorTorqueStar},
                         {calibratorName::fluke702, TextId::calibratorFluke702},
                         {calibratorName::fluke74x, TextId::calibratorFluke74x}};

} // namespace

QString calibratorCaption(const QString& name) {
    const auto* found =
        std::ranges::find_if(offered, [&](const Named& calibrator) { return calibrator.name == name; });
    return found == std::end(offered) ? name : text(found->caption);
}

QString chooseCalibrator(Session& session, const QString& title, const QString& remembered) {
    session.SharedValueList.erase();
    int row = 1;
    for (const auto& calibrator : offered)
        session.SharedValueList[row++] = text(calibrator.caption);
    const auto proposed = ModuleGlobals::GetRegSetting(session, u"Defaults"_s, remembered);
    const auto answer = ModuleGlobals::CustomDialog(session, title, text(TextId::selectCalibratorToUse), true,
                                                    1, 30, 0, calibratorCaption(proposed));
    if (answer == cancelled)
        return {};
    const auto* chosen =
        std::ranges::find(offered, answer, [](const Named& calibrator) { return text(calibrator.caption); });
    return chosen == std::end(offered) ? answer : chosen->name;
}

QString calibratorAcceptable(Calibrators& calibrators, const QString& calibrator, const QString& asset) {
    if (calibrator == calibratorName::fluke702)
        return Fluke702_acceptable(calibrators.fluke702, asset);
    if (calibrator == calibratorName::torqueStar)
        return TorqueStar_acceptable(calibrators.torqueStar, asset);
    if (calibrator == calibratorName::fluke74x)
        return text(TextId::driverNotInVersion);
    return {};
}

bool calibratorRequiresStandard(Calibrators& calibrators, const QString& calibrator, const QString& asset) {
    if (calibrator == calibratorName::fluke702)
        return Fluke702_requires_standard(calibrators.fluke702, asset);
    if (calibrator == calibratorName::torqueStar)
        return TorqueStar_requires_standard(calibrators.torqueStar, asset);
    return false;
}

QString calibratorDownload(Calibrators& calibrators, const QString& calibrator, const QString& tag) {
    if (calibrator == calibratorName::fluke702)
        return Fluke702_download(calibrators.fluke702, tag);
    if (calibrator == calibratorName::torqueStar)
        return TorqueStar_download(calibrators.torqueStar, tag);
    if (calibrator == calibratorName::fluke74x)
        return text(TextId::driverNotInVersion);
    return {};
}

QString calibratorUpload(Calibrators& calibrators, const QString& calibrator) {
    if (calibrator == calibratorName::fluke702)
        return Fluke702_upload(calibrators.fluke702);
    if (calibrator == calibratorName::torqueStar)
        return TorqueStar_upload(calibrators.torqueStar);
    if (calibrator == calibratorName::fluke74x)
        return text(TextId::driverNotInVersion);
    return {};
}

QString judgeAgain(Session& session, JournalEntry& entry, CalRecord& record) {
    if (entry.driver == fluke702Driver)
        return Fluke702_judge_again(session, entry, record);
    if (entry.driver == torqueStarDriver)
        return TorqueStar_judge_again(session, entry, record);
    return text(TextId::driverNotInVersion);
}

} // namespace kelvane
