#include "demo/torque_day.h"

#include "demo/technician.h"
#include "drivers/torquestar/driver.h"
#include "simulators/torquestar/pitfalls.h"
#include "testkit/tools.h"

#include <QComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString torqueStar = ModuleTSInterface::identity.name.toString();

/// The latest day before today whose date comes over the line unharmed.
QDate latestWorkDay() {
    auto day = QDate::currentDate().addDays(-1);
    while (simulators::losesDigit(day.year() * 10000 + day.month() * 100 + day.day()))
        day = day.addDays(-1);
    return day;
}

void configureCalibrator(DemoWorkstation& station) {
    station.step(u"set the line of the torque calibrator"_s, [&] {
        station.press(Qt::Key_O, Qt::ControlModifier);
        auto& form = station.child(u"FormCalConfig"_s);
        pick(control<QComboBox>(form, u"ComboCalibrator"_s), torqueStar);
        // One step down to 19200, and back to 9600.
        auto& baud = control<QComboBox>(form, u"ComboBaudRate"_s);
        QTest::keyClick(&baud, Qt::Key_Down);
        QTest::keyClick(&baud, Qt::Key_Up);
    });
    station.child(u"FormCalConfig"_s).close();
    const auto stored = station.program.session.settings.value(torqueStar, u"BaudRate"_s);
    if (stored != u"9600")
        throw Difference(u"the stored baud rate is "_s + stored);
}

/// The standard of a tool, and no second one.
void expectStandardOf(DemoWorkstation& station, const Tool& tool) {
    station.expectStandard(tool.asset, tool.standard);
    station.expectStandard(tool.asset, {});
}

void listTools(DemoWorkstation& station) {
    auto& simulatedOperator = station.simulatedOperator;
    station.openDownloadList(torqueStar);
    expectStandardOf(station, tools()[0]);
    station.add(u"add TW-101 with its transducer"_s, u"TW-101"_s);

    station.expectStandard(u"TW-102"_s, u"TT-0200F"_s);
    simulatedOperator.expectBox(text(TextId::standardOverdue), text(TextId::externalStandardRequired),
                                box::warning);
    expectStandardOf(station, tools()[1]);
    station.add(u"add TW-102; its first standard is overdue and refused"_s, u"TW-102"_s);

    simulatedOperator.expectBox(u"HW-701: "_s + text(TextId::inputUnitsNotAccepted), downloadTitle(),
                                box::warning);
    station.add(u"add HW-701: a torque calibrator can't take it"_s, u"HW-701"_s);

    for (const auto& tool : tools().mid(2))
        expectStandardOf(station, tool);
    station.add(u"add the task package TORQUE CREW A"_s, u"TORQUE CREW A"_s);
    QStringList assets;
    for (const auto& tool : tools())
        assets << tool.asset;
    station.expectList(assets);
}

void calibrateInPlant(DemoWorkstation& station, const QString& memory, const QDate& day) {
    station.step(u"carry out in the plant"_s, [&] {
        QByteArray plan;
        for (const auto& tool : tools())
            plan += u"%1; %2; %3; %4 08:00\n"_s
                        .arg(tool.asset, tool.plan, tool.comment, day.toString(u"yyyy-MM-dd"_s))
                        .toUtf8();
        carryOut(memory, plan);
    });
}

} // namespace

QDate runTorqueDay(DemoWorkstation& station, const QString& memory) {
    const auto day = latestWorkDay();
    configureCalibrator(station);
    listTools(station);
    station.download();
    calibrateInPlant(station, memory, day);
    station.expectChoice(uploadTitle(), torqueStar);
    for (const auto& tool : tools())
        station.expectRecord(tool.asset);
    station.upload(u"upload and complete the records"_s);
    checkRecords(*station.program.session.SharedConnection, day, recordsAfterTools());
    return day;
}

} // namespace kelvane::demo
