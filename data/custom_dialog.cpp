#include "data/custom_dialog.h"

#include "data/routine.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

QStringList choicesBeforeTheFirstEmpty(const QStringList& choices) {
    if (choices.size() > maxChoices)
        throw makeError(ErrorNumber::subscriptOutOfRange);
    const auto end = choices.indexOf(QString());
    return end < 0 ? choices : choices.first(end);
}

} // namespace

QString CustomDialog(Session& session, const QString& caption, const QString& prompt, bool required,
                     qint16 mode, qint16 max_length, qint16 field_type, const QString& default_text,
                     const QStringList& choices) {
    QString result;
    Routine routine(session, u"ModuleGlobals,CustomDialog"_s);
    routine.run([&] {
        DialogQuestion question{.caption = caption,
                                .prompt = prompt,
                                .required = required,
                                .fromList = mode == 1,
                                .maxLength = max_length,
                                .fieldType = field_type,
                                .defaultText = default_text};
        {
            const BusyPointer busy(session.ui);
            if (question.fromList)
                question.choices = choicesBeforeTheFirstEmpty(choices);
        }
        // What other screens report meanwhile does not count for the routine that asks.
        const int reports = session.reportCount;
        result = session.ui.askOneField(question);
        session.reportCount = reports;
    });
    // Who answers a required question with blanks gives up.
    return required && trimBlanks(result).isEmpty() ? cancelled : result;
}

} // namespace kelvane::ModuleGlobals
