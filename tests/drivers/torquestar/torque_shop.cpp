#include "tests/drivers/torquestar/torque_shop.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

Row row(const CalParamRecord& record) {
    const auto number = [](float value) -> std::optional<QString> {
        return QString::number(double{value}, 'g', 9);
    };
    const auto flag = [](bool value) -> std::optional<QString> { return value ? u"Y"_s : u"N"_s; };
    return {QString::number(record.repetitions),
            QString::number(record.test_point_count),
            number(record.resolution),
            record.input_type,
            record.output_type,
            number(record.input_high),
            number(record.input_low),
            number(record.output_high),
            number(record.output_low),
            number(record.neg_fs_range_pct),
            number(record.pos_fs_range_pct),
            number(record.neg_span_pct),
            number(record.pos_span_pct),
            number(record.neg_reading_pct),
            number(record.pos_reading_pct),
            number(record.neg_lsd_counts),
            number(record.pos_lsd_counts),
            number(record.neg_units),
            number(record.pos_units),
            record.mtag,
            record.baud_rate_out,
            number(record.cj_ref_temp_in),
            number(record.cj_ref_temp_out),
            record.cj_ref_type_in,
            record.cj_ref_type_out,
            number(record.click_dip_torque_out),
            record.cycle_end_time_out,
            record.data_bits_out,
            record.data_parity_out,
            record.frequency_response_out,
            record.measurement_direction_out,
            record.measurement_mode_out,
            record.stop_bits_out,
            record.temp_scale_in,
            record.temp_scale_out,
            record.temp_sens_type_in,
            record.temp_sens_type_out,
            QString::number(record.temp_sens_wires_in),
            QString::number(record.temp_sens_wires_out),
            number(record.threshold_torque_out),
            record.tp_name,
            record.transducer_type_out,
            number(record.max_test_point_pct),
            record.loop_pwr,
            number(record.freq_ptpamp_in),
            number(record.freq_ptpamp_out),
            flag(record.input_indicated),
            flag(record.output_indicated)};
}

} // namespace

TorqueShop::TorqueShop() {
    clock.tick = 1;
    peer.reply = [this](const QByteArray& body) { return replyTo(body); };
    peer.attachTo(port);
}

std::optional<QByteArray> TorqueShop::replyTo(const QByteArray& body) {
    const auto id = body.first(3);
    if (auto& scripted = replies[id]; !scripted.isEmpty())
        return scripted.takeFirst();
    if (id == "T0D")
        return identity(serialNumber);
    if (id == "T2F")
        return QByteArray("t2F\0", 4);
    if (id == "T1C")
        return QByteArray("t0C\x02");
    if (id == "T2C")
        return QByteArray("t2C");
    return 't' + id.sliced(1);
}

void TorqueShop::addCalibrator() {
    script.answers.insert(selectSerial(QString::number(serialNumber)), {{u"TS-01"_s}});
    script.answers.insert(selectMtag(u"TS-01"_s), {{u"900"_s}});
}

void TorqueShop::addInstrument(const QString& asset, const QString& mtag, CalParamRecord record) {
    record.mtag = mtag;
    script.answers.insert(selectMtag(asset), {{mtag}});
    script.answers.insert(selectParams(asset), {row(record)});
    script.answers.insert(selectConfig(asset), {{mtag}});
    script.answers.insert(selectPoints(asset), {{u"100"_s}});
}

void TorqueShop::addStandards(const QString& asset, const QStringList& standards) {
    QList<Row> rows;
    for (const auto& one : standards)
        rows << Row{one};
    script.answers.insert(selectStandards(asset), rows);
}

void TorqueShop::addPackage(const QString& tag, const QStringList& assets) {
    script.answers.insert(selectPackage(tag), {{u"WSHT"_s, {}, {}, {}, {}, {}}});
    QList<Row> rows;
    for (const auto& one : assets)
        rows << Row{one, u'K' + one, {}};
    script.answers.insert(selectMembers(tag), rows);
}

void TorqueShop::addInUse(const QStringList& assets) {
    QList<Row> rows;
    for (const auto& one : assets)
        rows << Row{one, u'K' + one, u"S-1"_s};
    script.answers.insert(selectInUse(QString::number(serialNumber)), rows);
}

QStringList TorqueShop::addWrenches(const QString& tag, int count) {
    addCalibrator();
    addInstrument(u"X-1"_s, u"KX-1"_s, transducer());
    QStringList assets;
    for (int i = 1; i <= count; ++i) {
        assets << u"W-%1"_s.arg(i);
        addInstrument(assets.last(), u'K' + assets.last(), wrench());
        addStandards(assets.last(), {u"X-1"_s});
    }
    addPackage(tag, assets);
    return assets;
}

CalParamRecord TorqueShop::wrench() {
    CalParamRecord record;
    record.repetitions = 3;
    record.test_point_count = 1;
    record.resolution = 0.1F;
    record.input_type = record.output_type = u"ft/lb"_s;
    record.input_high = record.output_high = 100;
    record.neg_reading_pct = record.pos_reading_pct = 4;
    record.cycle_end_time_out = u"0.5"_s;
    record.measurement_mode_out = u"Click Dip"_s;
    record.frequency_response_out = u"1024"_s;
    record.measurement_direction_out = u"Right"_s;
    record.transducer_type_out = u"Industry Standard"_s;
    record.threshold_torque_out = 5;
    record.click_dip_torque_out = 2.5F;
    record.tp_name = u"TORQUE 20-60-100"_s;
    record.max_test_point_pct = 100;
    record.loop_pwr = u"OFF"_s;
    return record;
}

CalParamRecord TorqueShop::transducer() {
    auto record = wrench();
    record.input_high = record.output_high = 250;
    return record;
}

CalParamRecord TorqueShop::serialTransducer() {
    auto record = transducer();
    record.transducer_type_out = u"Serial"_s;
    record.baud_rate_out = u"4800"_s;
    record.data_bits_out = u"7"_s;
    record.stop_bits_out = u"2"_s;
    record.data_parity_out = u"Odd"_s;
    record.resolution = 0.01F;
    return record;
}

QString TorqueShop::selectMtag(const QString& asset) {
    return u"select mtag from MT.inventory where i4201 = '"_s + asset + u'\'';
}

QString TorqueShop::mtagOf(const QString& asset) {
    return u'(' + selectMtag(asset) + u')';
}

QString TorqueShop::selectParams(const QString& asset) {
    return u"select repetitions,(select count(test_point_pct) from mt.hvm_kv_proc_points where "
           u"mt.hvm_kv_proc_points.tp_name = mt.hvm_kv_tag_config.tp_name),resolution,input_type,output_type,"
           u"input_high,input_low,output_high,output_low,neg_fs_range_pct,pos_fs_range_pct,neg_span_pct,"
           u"pos_span_pct,neg_reading_pct,pos_reading_pct,neg_lsd_counts,pos_lsd_counts,neg_units,pos_units,"
           u"mt.hvm_kv_tag_config.mtag,baud_rate_out,cj_ref_temp_in,cj_ref_temp_out,cj_ref_type_in,"
           u"cj_ref_type_out,click_dip_torque_out,cycle_end_time_out,data_bits_out,data_parity_out,"
           u"frequency_response_out,measurement_direction_out,measurement_mode_out,stop_bits_out,"
           u"temp_scale_in,temp_scale_out,temp_sens_type_in,temp_sens_type_out,temp_sens_wires_in,"
           u"temp_sens_wires_out,threshold_torque_out,mt.hvm_kv_tag_config.tp_name,transducer_type_out,"
           u"(select max(test_point_pct) from mt.hvm_kv_proc_points where mt.hvm_kv_proc_points.tp_name = "
           u"mt.hvm_kv_tag_config.tp_name),loop_pwr,freq_ptpamp_in,freq_ptpamp_out,input_indicated,"
           u"output_indicated  from mt.hvm_kv_tag_config,mt.hvm_kv_proc_points,MT.inventory where i4201='"_s +
           asset + u"' and MT.inventory.mtag=mt.hvm_kv_tag_config.mtag"_s;
}

QString TorqueShop::selectStandards(const QString& asset) {
    return u"select i4201 from MT.inventory where mtag in (select standard_mtag from "
           u"mt.hvm_kv_task_standards_inuse where mtag = "_s +
           mtagOf(asset) + u')';
}

QString TorqueShop::selectSerial(const QString& serial) {
    return u"select i4201 from MT.inventory where i4206 = '"_s + serial + u'\'';
}

QString TorqueShop::selectConfig(const QString& asset) {
    return u"select mtag from mt.hvm_kv_tag_config where mtag = "_s + mtagOf(asset);
}

QString TorqueShop::selectPoints(const QString& asset) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
           u"mt.hvm_kv_tag_config where mtag = "_s +
           mtagOf(asset) + u')';
}

QString TorqueShop::selectPackage(const QString& task) {
    return u"select tptype,tp_definition,task_sql,segregate,model,description from mt.hvm_kv_task_packages "
           u"where "
           u"taskname = '"_s +
           task + u"' or tptag = '"_s + task + u'\'';
}

QString TorqueShop::selectMembers(const QString& tag) {
    return u"select i4201,mtag,i4206 from MT.inventory where mtag in (select mtag from mt.hvm_kv_task_assets "
           u"where "
           u"tptag = '"_s +
           tag + u"')"_s;
}

QString TorqueShop::selectInUse(const QString& serial) {
    return u"select i4201,mtag,i4206 from MT.inventory where mtag in (select mtag from "
           u"mt.hvm_kv_task_standards_inuse where standard_mtag = (select mtag from MT.inventory where i4206 = '"_s +
           serial + u"'))"_s;
}

QStringList TorqueShop::conversation() const {
    QStringList list;
    for (const auto& body : peer.heard) {
        const auto end = body.indexOf("=PC\xFF");
        auto one = QString::fromLatin1(body.first(3));
        if (end > 3)
            one += u' ' + QString::fromLatin1(body.sliced(3, end - 3));
        list << one;
    }
    return list;
}

QStringList TorqueShop::writes() const {
    QStringList list;
    for (const auto& one : script.statements) {
        if (!one.startsWith(u"select"_s))
            list << one;
    }
    return list;
}

QByteArray integer32(qint32 number) {
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(static_cast<quint32>(number) >> shift & 255U));
    return bytes;
}

QByteArray identity(qint32 serial) {
    return "t0D" + QByteArray(18, '.') + integer32(serial) + "v1.0";
}

QByteArray result(qint32 date, qint32 time, const QList<double>& samples) {
    auto reply = "t1D" + integer32(date) + integer32(time);
    for (const double one : samples)
        reply += integer32(static_cast<qint32>(std::lround(one * 10000)));
    return reply;
}

} // namespace kelvane::testing
