#include "testkit/torque_fixture.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TorqueFixture::TorqueFixture() {
    clock.tick = 1;
    peer.reply = [this](const QByteArray& body) { return replyTo(body); };
    peer.attachTo(port);
}

std::optional<QByteArray> TorqueFixture::replyTo(const QByteArray& body) {
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

void TorqueFixture::addCalibrator() {
    addEquipment(u"TS-01"_s, u"900"_s, QString::number(serialNumber));
}

void TorqueFixture::addInUse(const QStringList& assets) {
    addInUseWith(QString::number(serialNumber), assets);
}

QStringList TorqueFixture::addWrenches(const QString& tag, int count) {
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

CalParamRecord TorqueFixture::wrench() {
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

CalParamRecord TorqueFixture::transducer() {
    auto record = wrench();
    record.input_high = record.output_high = 250;
    return record;
}

CalParamRecord TorqueFixture::serialTransducer() {
    auto record = transducer();
    record.transducer_type_out = u"Serial"_s;
    record.baud_rate_out = u"4800"_s;
    record.data_bits_out = u"7"_s;
    record.stop_bits_out = u"2"_s;
    record.data_parity_out = u"Odd"_s;
    record.resolution = 0.01F;
    return record;
}

QStringList TorqueFixture::conversation() const {
    QStringList list;
    for (const auto& body : peer.received) {
        const auto end = body.indexOf("=PC\xFF");
        auto exchange = QString::fromLatin1(body.first(3));
        if (end > 3)
            exchange += u' ' + QString::fromLatin1(body.sliced(3, end - 3));
        list << exchange;
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
    for (const double sample : samples)
        reply += integer32(static_cast<qint32>(std::lround(sample * 10000)));
    return reply;
}

} // namespace kelvane::testing
