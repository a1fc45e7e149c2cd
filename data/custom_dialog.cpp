#include "data/custom_dialog.h"

#include "data/routine.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

QString CustomDialog(Session& session, const QString& caption, const QString& prompt, bool required,
                     qint16 mode, qint16 max_length, qint16 field_type, const QString& default_text) {
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
                question.choices = entriesOf(session.SharedValueList);
        }
        result = session.ui.askOneField(question);
    });
    // Who answers a required question with blanks gives up.
    return required && trimBlanks(result).isEmpty() ? cancelled : result;
}

} // namespace kelvane::ModuleGlobals
