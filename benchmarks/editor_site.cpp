#include "benchmarks/editor_site.h"

#include "platform/database/odbc_connection.h"

#include <QMdiArea>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

EditorSite::EditorSite(int rows)
    : database(testing::demoDatabase()),
      session({ui, clock, settings},
              [this] { return std::make_unique<WatchedConnection>(odbcConnections()(), log); }),
      plain(database.connectionString()),
      area(new QMdiArea(&window)) {
    plain.runLean(u"attach '%1' as mt"_s.arg(database.file(u"mt.db"_s)).toUtf8());
    make(rows);
    session.SessionOwner = u"MT"_s;
    session.SessionUser = u"cnguyen"_s;
    session.SessionLevel = 4;
    session.SessionConnected = true;
    sharedConnection(session).open(database.connectionString(), u"cnguyen"_s, u"kelvane"_s);
    window.setCentralWidget(area);
    window.resize(665, 551);
    window.show();
}

void EditorSite::make(int rows) {
    const auto numbers =
        u"with recursive number(i) as (select 1 union all select i + 1 from number where i < %1) "_s.arg(
            rows);
    const QString statements[] = {
        u"begin"_s,
        u"delete from mt.hvm_kv_proc_points"_s,
        numbers + u"insert into mt.hvm_kv_proc_points select printf('STRATEGY %05d', i), value, 25 * value "
                  "from number, json_each('[0,1,2,3,4]')"_s,
        u"update mt.hvm_kv_tag_config set tp_name = 'STRATEGY 00002'"_s,
        u"delete from mt.hvm_kv_proc_prompts"_s,
        u"delete from mt.hvm_kv_prompts"_s,
        numbers + u"insert into mt.hvm_kv_prompts select printf('MESSAGE %05d', i), "
                  "'Connect the tool to the transducer, ' || i || ' times.' from number"_s,
        u"insert into mt.hvm_kv_proc_prompts select mtag, type.value, 3 * length(type.value) + number.value, "
        "printf('MESSAGE %05d', 1 + number.value) from mt.inventory, json_each('[\"PRE\",\"PST\"]') type, "
        "json_each('[0,1,2]') number where i4201 in ('TW-101','TW-102')"_s,
        u"delete from mt.hvm_kv_task_assets"_s,
        u"delete from mt.hvm_kv_task_packages"_s,
        numbers +
            u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag,tp_definition,"
            "model) select printf('PACKAGE %05d', i), 'PDEF', 'cnguyen', datetime('now'), 'TAG' || i, "
            "'M', printf('MODEL %05d', i) from number"_s,
        u"update mt.inventory set i4203 = printf('MODEL %05d', 1 + rowid % 10)"_s,
        numbers + u"insert into mt.inventory (mtag,i4201,i4203) select 'BENCH' || i, 'BENCH' || i, "
                  "printf('MODEL %05d', i) from number"_s,
        u"commit"_s,
    };
    for (const auto& statement : statements)
        plain.runLean(statement.toUtf8());
}

} // namespace kelvane::bench
