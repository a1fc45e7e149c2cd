#include "testkit/lab.h"

#include "testkit/scripted_params.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

Row row(const CalParamRecord& record) {
    Row values;
    for (const auto* column : selectedCalParams())
        values << calParamText(record, column->member);
    return values;
}

QList<Row> oneColumn(const QStringList& values) {
    QList<Row> rows;
    for (const auto& value : values)
        rows << Row{value};
    return rows;
}

} // namespace

void Lab::addEquipment(const QString& asset, const QString& mtag, const QString& serial) {
    script.answers.insert(selectSerial(serial), {{asset}});
    script.answers.insert(selectMtag(asset), {{mtag}});
}

void Lab::addInstrument(const QString& asset, const QString& mtag, CalParamRecord record) {
    record.mtag = mtag;
    script.answers.insert(selectMtag(asset), {{mtag}});
    script.answers.insert(selectParams(asset), {row(record)});
    script.answers.insert(selectConfig(asset), {{mtag}});
    script.answers.insert(selectPoints(asset), {{u"100"_s}});
}

void Lab::addInstrument(const QString& asset, const CalParamRecord& record) {
    addInstrument(asset, u'K' + asset, record);
}

void Lab::addPoints(const QString& asset, const QStringList& points, int repetitions) {
    script.answers.insert(selectPointList(asset), oneColumn(points));
    script.answers.insert(selectRepetitions(asset), {{QString::number(repetitions)}});
}

void Lab::addPrompts(const QString& asset, const QList<Row>& prompts) {
    script.answers.insert(selectPrompts(asset), prompts);
}

void Lab::addStandards(const QString& asset, const QStringList& standards) {
    script.answers.insert(selectStandards(asset), oneColumn(standards));
}

void Lab::addPackage(const QString& tag, const QStringList& assets) {
    script.answers.insert(selectPackage(tag), {{u"WSHT"_s, {}, {}, {}, {}, {}}});
    QList<Row> rows;
    for (const auto& asset : assets) {
        rows << Row{asset, u'K' + asset, {}};
        if (serials.contains(asset))
            rows.last().last() = serials.value(asset);
    }
    script.answers.insert(selectMembers(tag), rows);
}

QStringList Lab::addList(const QList<CalParamRecord>& records) {
    QStringList assets;
    for (const auto& record : records) {
        assets << u"I-%1"_s.arg(assets.size() + 1);
        addInstrument(assets.last(), record);
        addPoints(assets.last(), {u"0"_s, u"50"_s, u"100"_s}, 1);
    }
    addPackage(u"TAG"_s, assets);
    return assets;
}

void Lab::addInUseWith(const QString& serial, const QStringList& assets) {
    QList<Row> rows;
    for (const auto& asset : assets)
        rows << Row{asset, u'K' + asset, u"S-1"_s};
    script.answers.insert(selectInUse(serial), rows);
}

void Lab::addInUseData(const QString& serial, const QString& asset, const QString& tech) {
    script.answers.insert(selectInUseData(serial, u'K' + asset),
                          {{serial, u"2026-03-01 08:00:00"_s, u'K' + asset, tech}});
}

void Lab::addDictionary(const QStringList& columns) {
    QList<Row> rows;
    for (const auto& column : columns)
        rows << Row{column, u"Title"_s, {}, {}, {}, {}, {}, {}, {}, {}, {}};
    script.answers.insert(
        u"select datacol,title,idefault,ireq,sreq,sdefault,scopy,dcopy,validation,datalen,tooltip "
        u"from mt.customiz where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or "
        u"fldnum = '2302' or fldnum = '2308' or fldnum = '2303' or fldnum = '2301' or fldnum = "
        u"'2307') order by row,nextfld asc"_s,
        rows);
}

void Lab::addHistory(const QString& asset) {
    const auto from = u" from MT.inventory where i4201 = '"_s + asset + u'\'';
    script.answers.insert(u"select count(ctag) from MT.calibration where mtag = "_s + mtagOf(asset),
                          {{u"0"_s}});
    script.answers.insert(u"select I4229"_s + from, {{u"12"_s}});
    script.answers.insert(u"select I4228"_s + from, {{u"M"_s}});
}

QString Lab::selectMtag(const QString& asset) {
    return u"select mtag from MT.inventory where i4201 = '"_s + asset + u'\'';
}

QString Lab::mtagOf(const QString& asset) {
    return u'(' + selectMtag(asset) + u')';
}

QString Lab::selectParams(const QString& asset) {
    return calParamsStatement(u"MT"_s, asset);
}

QString Lab::selectStandards(const QString& asset) {
    return u"select i4201 from MT.inventory where mtag in (select standard_mtag from "
           u"mt.hvm_kv_task_standards_inuse where mtag = "_s +
           mtagOf(asset) + u')';
}

QString Lab::selectSerial(const QString& serial) {
    return u"select i4201 from MT.inventory where i4206 = '"_s + serial + u'\'';
}

QString Lab::selectConfig(const QString& asset) {
    return u"select mtag from mt.hvm_kv_tag_config where mtag = "_s + mtagOf(asset);
}

QString Lab::selectPoints(const QString& asset) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
           u"mt.hvm_kv_tag_config where mtag = "_s +
           mtagOf(asset) + u')';
}

QString Lab::selectPointList(const QString& asset) {
    return selectPoints(asset) + u" order by test_point_seq asc"_s;
}

QString Lab::selectRepetitions(const QString& asset) {
    return u"select repetitions from mt.hvm_kv_tag_config where mtag = "_s + mtagOf(asset);
}

QString Lab::selectPrompts(const QString& asset) {
    return u"select pname,(select prompt from mt.hvm_kv_prompts where mt.hvm_kv_prompts.pname = "
           u"mt.hvm_kv_proc_prompts.pname),prompt_type from mt.hvm_kv_proc_prompts where mtag = "_s +
           mtagOf(asset) + u" order by prompt_seq asc"_s;
}

QString Lab::selectPackage(const QString& task) {
    return u"select tptype,tp_definition,task_sql,segregate,model,description from mt.hvm_kv_task_packages "
           u"where "
           u"taskname = '"_s +
           task + u"' or tptag = '"_s + task + u'\'';
}

QString Lab::selectMembers(const QString& tag) {
    return u"select i4201,mtag,i4206 from MT.inventory where mtag in (select mtag from mt.hvm_kv_task_assets "
           u"where "
           u"tptag = '"_s +
           tag + u"')"_s;
}

QString Lab::selectInUse(const QString& serial) {
    return u"select i4201,mtag,i4206 from MT.inventory where mtag in (select mtag from "
           u"mt.hvm_kv_task_standards_inuse where standard_mtag = (select mtag from MT.inventory where i4206 = '"_s +
           serial + u"'))"_s;
}

QString Lab::selectInUseData(const QString& serial, const QString& mtag) {
    return u"select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where serial_number = '"_s +
           serial + u"' and mtag = '"_s + mtag + u'\'';
}

QStringList Lab::writes() const {
    QStringList list;
    for (const auto& statement : script.statements) {
        if (!statement.startsWith(u"select"_s))
            list << statement;
    }
    return list;
}

QString Lab::recordedValue(const QString& column, const QString& asset) const {
    for (const auto& statement : writes()) {
        if (!statement.startsWith(u"insert into MT.calibration "_s) ||
            !statement.contains(u"'K"_s + asset + u"',"_s))
            continue;
        const auto columns = statement.section(u'(', 1, 1).section(u')', 0, 0).split(u',');
        const auto values = statement.section(u"values ("_s, 1).split(u',');
        return values.value(columns.indexOf(column));
    }
    return u"no record"_s;
}

QStringList Lab::recordedAssets() const {
    QStringList assets;
    for (const auto& statement : writes()) {
        if (statement.startsWith(u"insert into MT.calibration "_s))
            assets << statement.section(u"'K"_s, 1).section(u'\'', 0, 0);
    }
    return assets;
}

QStringList Lab::resultLines() const {
    QStringList lines;
    for (const auto& statement : writes()) {
        if (statement.startsWith(u"insert into mt.calresults "_s))
            lines << statement.section(u'\'', 1, 1).simplified();
    }
    return lines;
}

QStringList Lab::registeredInstruments(const QString& serial) const {
    const auto start =
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('%1',"_s.arg(
            serial);
    QStringList keys;
    for (const auto& statement : writes()) {
        if (statement.startsWith(start))
            keys << statement.sliced(start.size()).section(u'\'', 1, 1);
    }
    return keys;
}

} // namespace kelvane::testing
