#include "data/history/stored_lines.h"

#include "platform/values/texts.h"

namespace kelvane {

StoredLine readStoredLine(Session& session, const QString& text) {
    StoredLine line{.text = text};
    if (trimBlanks(text).isEmpty()) {
        line.reading = StoredLine::Reading::blank;
        return line;
    }
    if (session.ResultTemplateLine.isEmpty()) {
        line.reading = StoredLine::Reading::withoutTemplate;
        return line;
    }
    const auto fields = fieldsOfLine(session, text);
    const auto numbers = fields ? numbersOfLine(session.ResultTemplateLine, *fields) : std::nullopt;
    if (!numbers)
        return line;
    line.reading = StoredLine::Reading::readable;
    line.fields = *fields;
    line.numbers = *numbers;
    return line;
}

} // namespace kelvane
