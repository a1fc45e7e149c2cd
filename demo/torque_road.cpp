#include "demo/torque_road.h"

#include "demo/technician.h"
#include "demo/tools.h"
#include "simulators/torquestar/pitfalls.h"

#include <QComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString torqueStar = u"Crane TorqueStar IVc"_s;

/// The latest day before today whose date comes over the line unharmed.
QDate latestWorkDay() {
    auto day = QDate::currentDate().addDays(-1);
    while (simulators::losesDigit(day.year() * 10000 + day.month() * 100 + day.day()))
        day = day.addDays(-1);
    return day;
}

void configureCalibrator(Desk& desk) {
    desk.step(u"set the line of the torque calibrator"_s, [&] {
        desk.press(Qt::Key_O, Qt::ControlModifier);
        auto& form = desk.child(u"FormCalConfig"_s);
        pick(control<QComboBox>(form, u"ComboCalibrator"_s), torqueStar);
        // One step down to 19200, and back to 9600.
        auto& baud = control<QComboBox>(form, u"ComboBaudRate"_s);
        QTest::keyClick(&baud, Qt::Key_Down);
        QTest::keyClick(&baud, Qt::Key_Up);
    });
    desk.child(u"FormCalConfig"_s).close();
    const auto stored = desk.program.session.settings.value(torqueStar, u"BaudRate"_s);
    if (stored != u"9600")
        throw Difference(u"the stored baud rate is "_s + stored);
}

/// The standard of a tool, and no second one.
void expectStandardOf(Desk& desk, const Tool& tool) {
    desk.expectStandard(tool.asset, tool.standard);
    desk.expectStandard(tool.asset, {});
}

void listTools(Desk& desk) {
    auto& person = desk.person;
    desk.openDownloadList(torqueStar);
    expectStandardOf(desk, tools()[0]);
    desk.add(u"add TW-101 with its transducer"_s, u"TW-101"_s);

    desk.expectStandard(u"TW-102"_s, u"TT-0200F"_s);
    person.expectBox(u"Standard is overdue for calibration!"_s, u"External Standard Required"_s,
                     box::warning);
    expectStandardOf(desk, tools()[1]);
    desk.add(u"add TW-102; its first standard is overdue and refused"_s, u"TW-102"_s);

    person.expectBox(u"HW-701: TorqueStar cannot accept selected input units!"_s, downloadTitle,
                     box::warning);
    desk.add(u"add HW-701: a torque calibrator can't take it"_s, u"HW-701"_s);

    for (const auto& tool : tools().mid(2))
        expectStandardOf(desk, tool);
    desk.add(u"add the task package TORQUE CREW A"_s, u"TORQUE CREW A"_s);
    QStringList assets;
    for (const auto& tool : tools())
        assets << tool.asset;
    desk.expectList(assets);
}

void workInPlant(Desk& desk, const QString& memory, const QDate& day) {
    desk.step(u"carry out in the plant"_s, [&] {
        QByteArray plan;
        for (const auto& tool : tools())
            plan += u"%1; %2; %3; %4 08:00\n"_s
                        .arg(tool.asset, tool.plan, tool.comment, day.toString(u"yyyy-MM-dd"_s))
                        .toUtf8();
        carryOut(memory, plan);
    });
}

} // namespace

QDate goTorqueRoad(Desk& desk, const QString& memory) {
    const auto day = latestWorkDay();
    configureCalibrator(desk);
    listTools(desk);
    desk.download();
    workInPlant(desk, memory, day);
    desk.expectChoice(uploadTitle, torqueStar);
    for (const auto& tool : tools())
        desk.expectRecord(tool.asset);
    desk.upload(u"upload and complete the records"_s);
    checkRecords(*desk.program.session.SharedConnection, day, afterTools());
    return day;
}

} // namespace kelvane::demo
