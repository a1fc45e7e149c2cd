#include "data/history/stored_values.h"

#include "data/routine.h"
#include "platform/values/texts.h"

namespace kelvane {

StoredMoment storedMomentOf(const std::optional<QString>& value) {
    StoredMoment stored{storedText(value)};
    if (stored.text.isEmpty())
        return stored;
    try {
        stored.moment = storedMoment(stored.text);
    } catch (const Error&) {
        // Its text tells what is wrong with it.
    }
    return stored;
}

QString storedText(const std::optional<QString>& value) {
    if (!value)
        return {};
    return value->endsWith(u' ') ? withoutBlanksAtEnd(*value) : *value;
}

QString dateText(const StoredMoment& stored) {
    return stored.hasDate() ? formatMoment(stored.moment, u"YYYY-MM-DD") : stored.text;
}

QString timeText(const StoredMoment& stored) {
    return stored.moment.time.isValid() ? stored.moment.time.toString(u"HH:mm:ss") : stored.text;
}

} // namespace kelvane
