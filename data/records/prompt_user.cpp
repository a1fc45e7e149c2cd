#include "data/custom_dialog.h"
#include "data/records/cal_record.h"
#include "data/records/field_dictionary.h"
#include "data/routine.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

constexpr qint16 modeText = 0;
constexpr qint16 modeList = 1;

/// The choices of a field with a value list; those that the dialog does not take are left out.
QStringList choicesOf(const Session& session, Routine& routine, const CalField& field) {
    if (session.SessionDbVersion <= 5 || !field.has_list)
        return {};
    const auto values = routine.select(u"select val from mt.valfield where fldnum = " +
                                       sqlText(field.column.right(4)) + u" order by val asc");
    QStringList choices;
    while (choices.size() < maxChoices && values->next()) {
        const auto value = values->value(0);
        if (value && !trimBlanks(*value).isEmpty())
            choices << *value;
    }
    return choices;
}

} // namespace

bool PromptUser(Session& session, CalRecord& record, qint16 index, const QString& asset) {
    bool answered = false;
    Routine routine(session, u"ModuleGlobals,PromptUser"_s);
    routine.run([&] {
        // A copy: while the dialog is open the rest of the program can be reached.
        const auto field = std::as_const(record).CalFieldTable[index];
        const auto choices = choicesOf(session, routine, field);
        const bool required = field.required == "Y"_L1;
        const auto mode = field.has_list ? modeList : modeText;
        const auto start = field.value.isEmpty() ? field.default_text : field.value;
        const QString caption = text(TextId::calibrationRecordData) + u" ("_s + asset + u')';
        const QString prompt = text(TextId::enterInformationFor) + u' ' + field.title;
        do {
            const auto answer = CustomDialog(session, caption, prompt, required, mode, field.max_length,
                                             field.field_type, start, choices);
            // A dialog that was cancelled asks once more in these words too, required or not.
            if (answer != cancelled && !(answer.isEmpty() && required)) {
                record.CalFieldTable[index].value =
                    fieldText(session, answer, field.field_type, screenForm(session));
                answered = true;
            }
        } while (!answered &&
                 session.ui.messageBox(text(TextId::fieldEntryRequired), text(TextId::calibrationRecordData),
                                       box::warningOkCancel) == BoxAnswer::ok);
    });
    return answered;
}

} // namespace kelvane::ModuleGlobals
