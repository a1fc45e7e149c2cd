#include "endurance/station_operator.h"

#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane::endure {

BoxAnswer StationOperator::messageBox(const QString& text, const QString& title, BoxStyle style) {
    hasUploaded = hasUploaded || text == kelvane::text(TextId::uploadSuccessful);
    hasDownloaded = hasDownloaded || text == kelvane::text(TextId::downloadSuccessful);
    if (style == box::stop && text.startsWith(kelvane::text(TextId::internalErrorOccurred)))
        log_.write(QStringLiteral("report"), text);
    else if (style.icon != BoxIcon::information)
        log_.write(QStringLiteral("box"), text);
    if (style.buttons == BoxButtons::yesNo)
        return BoxAnswer::yes;
    return QuietOperator::messageBox(text, title, style);
}

QString StationOperator::askOneField(const DialogQuestion& question) {
    if (answer) {
        if (const auto given = answer(question))
            return *given;
    }
    const auto calibrator = text(TextId::calibratorFluke702);
    return question.choices.contains(calibrator) ? calibrator : QuietOperator::askOneField(question);
}

} // namespace kelvane::endure
