#include "procedures/test_messages.h"

#include "data/routine.h"
#include "data/small_routines.h"
#include "procedures/column_values.h"
#include "procedures/new_name.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using ModuleGlobals::SQLSafe;

namespace {

Sql recordOf(const QString& name) {
    return u"select pname from mt.hvm_kv_prompts where pname = " + sqlText(SQLSafe(name));
}

} // namespace

std::optional<MessageList> loadMessages(Session& session, const QString& name) {
    Routine routine(session, u"FormTestMess,LoadPrompts"_s);
    return routine.resultOf([&] {
        MessageList list;
        list.names = columnValues(routine, u"select pname from mt.hvm_kv_prompts");
        list.shown.name = !name.isEmpty() && list.names.contains(name) ? name : list.names.value(0);
        if (!list.shown.name.isEmpty())
            list.shown.prompt = routine
                                    .selectValue(u"select prompt from mt.hvm_kv_prompts where pname = " +
                                                 sqlText(SQLSafe(list.shown.name)))
                                    .value_or(QString());
        return list;
    });
}

std::optional<QString> askMessageName(Session& session) {
    return askNewName(session, {.routine = u"FormTestMess,CommandCreate",
                                .title = TextId::addMessage,
                                .prompt = TextId::newMessageNamePrompt,
                                .taken = TextId::messageAlreadyExists,
                                .maxLength = 0,
                                .recordOf = recordOf});
}

bool createMessage(Session& session, const QString& name) {
    Routine routine(session, u"FormTestMess,CommandCreate"_s);
    return routine.run([&] {
        routine.execute(u"insert into mt.hvm_kv_prompts (pname) values (" + sqlText(SQLSafe(name)) +
                        u");commit");
    });
}

std::optional<SaveFailure> saveMessage(Session& session, const TestMessage& message) {
    bool vanished = false;
    Routine routine(session, u"FormTestMess,CommandSave"_s);
    const auto error = routine.failureOf([&] {
        const auto prompt = message.prompt.isEmpty() ? Sql(u"NULL") : sqlText(SQLSafe(message.prompt));
        Transaction saving(session);
        vanished = routine.execute(u"update mt.hvm_kv_prompts set prompt = " + prompt + u" where pname = " +
                                   sqlText(message.name) + u";commit") == 0;
        if (!vanished)
            saving.commit();
    });
    if (!error && !vanished)
        return {};
    return SaveFailure{.error = error.value_or(Error()), .vanished = vanished};
}

bool deleteMessage(Session& session, const QString& name) {
    bool deleted = false;
    Routine routine(session, u"FormTestMess,CommandDelete"_s);
    routine.run([&] {
        const auto stored = sqlText(SQLSafe(name));
        if (routine.hasRow(u"select mtag from mt.hvm_kv_proc_prompts where pname = " + stored) &&
            session.ui.messageBox(text(TextId::confirmUsedMessageDeletion), text(TextId::editTestMessages),
                                  box::warningYesNo) != BoxAnswer::yes)
            return;
        routine.execute(u"delete from mt.hvm_kv_proc_prompts where pname = " + stored +
                        u";delete from mt.hvm_kv_prompts where pname = " + stored + u";commit");
        deleted = true;
    });
    return deleted;
}

} // namespace kelvane
