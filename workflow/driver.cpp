#include "workflow/driver.h"

#include "data/custom_dialog.h"
#include "platform/error_report.h"
#include "resources/strings.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using namespace Module702Interface;
using namespace ModuleTSInterface;

QString chooseCalibrator(Session& session, const QString& title, const QString& remembered) {
    session.SharedValueList.erase();
    int row = 1;
    for (const int name : {351, 350, 567})
        session.SharedValueList[row++] = text(name);
    const auto answer =
        ModuleGlobals::CustomDialog(session, title, text(353), true, 1, 30, 0,
                                    ModuleGlobals::GetRegSetting(session, u"Defaults"_s, remembered));
    return answer == cancelled ? QString() : answer;
}

QString calibratorAcceptable(Calibrators& calibrators, const QString& calibrator, const QString& asset) {
    if (calibrator == text(350))
        return Fluke702_acceptable(calibrators.fluke702, asset);
    if (calibrator == text(351))
        return TorqueStar_acceptable(calibrators.torqueStar, asset);
    if (calibrator == text(567))
        return text(1063);
    return {};
}

bool calibratorRequiresStandard(Calibrators& calibrators, const QString& calibrator, const QString& asset) {
    if (calibrator == text(350))
        return Fluke702_requires_standard(calibrators.fluke702, asset);
    if (calibrator == text(351))
        return TorqueStar_requires_standard(calibrators.torqueStar, asset);
    return false;
}

QString calibratorDownload(Calibrators& calibrators, const QString& calibrator, const QString& tag) {
    if (calibrator == text(350))
        return Fluke702_download(calibrators.fluke702, tag);
    if (calibrator == text(351))
        return TorqueStar_download(calibrators.torqueStar, tag);
    if (calibrator == text(567))
        return text(1063);
    return {};
}

QString calibratorUpload(Calibrators& calibrators, const QString& calibrator) {
    if (calibrator == text(350))
        return Fluke702_upload(calibrators.fluke702);
    if (calibrator == text(351))
        return TorqueStar_upload(calibrators.torqueStar);
    if (calibrator == text(567))
        return text(1063);
    return {};
}

QString judgeAgain(Session& session, JournalEntry& entry) {
    if (entry.driver == fluke702Driver)
        return Fluke702_judge_again(session, entry);
    if (entry.driver == torqueStarDriver)
        return TorqueStar_judge_again(session, entry);
    return text(1063);
}

} // namespace kelvane
