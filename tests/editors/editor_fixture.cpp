#include "tests/editors/editor_fixture.h"

#include "platform/database/odbc_connection.h"
#include "tests/editors/cal_param/cal_param_entry.h"
#include "ui/text_box.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

EditorFixture::EditorFixture(const QString& user)
    : LoggedInSession(simulatedOperator, user,
                      [this] {
                          return std::make_unique<FaultyConnection>(odbcConnections()(), fault,
                                                                    database.connectionEnd());
                      }),
      observer(database.connect(user)) {}

QStringList EditorFixture::stored() const {
    const struct {
        QString query;
        int columns;
    } tables[] = {
        {u"select tp_name,test_point_seq,test_point_pct from mt.hvm_kv_proc_points order by tp_name,test_point_seq,test_point_pct"_s,
         3},
        {u"select * from mt.hvm_kv_tag_config order by mtag"_s, 46},
        {u"select pname,prompt from mt.hvm_kv_prompts order by pname"_s, 2},
        {u"select mtag,prompt_type,prompt_seq,pname from mt.hvm_kv_proc_prompts order by mtag,prompt_type,prompt_seq"_s,
         4},
        {u"select taskname,tp_definition,task_sql,segregate,model,description,notes from mt.hvm_kv_task_packages where tptype = 'PDEF' order by taskname"_s,
         7},
        {u"select taskname,mt.hvm_kv_task_assets.mtag from mt.hvm_kv_task_assets,mt.hvm_kv_task_packages where mt.hvm_kv_task_assets.tptag = mt.hvm_kv_task_packages.tptag and tptype = 'PDEF' order by taskname,mt.hvm_kv_task_assets.mtag"_s,
         2},
        {u"select fldnum,sequence from mt.hvm_kv_worksheetfields order by sequence"_s, 2},
        {u"select allow_ooc_stds,allow_poor_trace_stds from mt.hvm_kv_sysconfig"_s, 2},
    };
    QStringList rows;
    for (const auto& [query, columns] : tables)
        rows << database.rows(*observer, query, columns);
    return rows;
}

QStringList EditorFixture::contents(const QWidget& screen) {
    auto all = allShown(screen) << screen.windowTitle();
    for (const auto* box : screen.findChildren<TextBox*>())
        all << box->text();
    return all;
}

} // namespace kelvane::testing
