#include "workflow/upload.h"

#include "data/routine.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

void UploadFromCalibrator(Calibrators& calibrators) {
    auto& session = calibrators.session;
    Routine routine(session, u"ModuleGlobals,UploadFromCalibrator"_s);
    routine.run([&] {
        const auto remembered = u"LastUploadCalibrator"_s;
        const auto calibrator = chooseCalibrator(session, text(TextId::uploadTestResults), remembered);
        if (calibrator.isEmpty())
            return;
        const auto failure = uploadFrom(calibrators, calibrator);
        session.ui.setNormalPointer();
        if (failure.isEmpty())
            session.ui.messageBox(text(TextId::uploadSuccessful), text(TextId::uploadTestResults),
                                  box::information);
        else
            session.ui.messageBox(failure, text(TextId::uploadTestResults), box::warning);
        SaveRegSetting(session, u"Defaults"_s, remembered, calibrator);
    });
}

} // namespace kelvane::ModuleGlobals
