#include "tests/road/torque_road.h"

#include "simulators/torquestar/field_work.h"
#include "simulators/torquestar/memory_file.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString told::noData(const QStringList& names) {
    return u"The Following Assets Contained NO DATA:\r\n, "_s + names.join(u", "_s);
}

TorqueRoad::TorqueRoad() {
    QFile::copy(QStringLiteral(KELVANE_DEMO_TEMPLATE), u"rslt_db.frm"_s);
    workplace.start();
    switchOn();
}

QHash<QString, QString> TorqueRoad::databaseSettings() {
    return {{u"Timeout"_s, u"200"_s}};
}

void TorqueRoad::switchOn(const QStringList& faults) {
    switchOff();
    QFile::remove(workshop.record());
    device_ = std::make_unique<simulators::Calibrator>(workshop, simulators::Calibrator::faulty(faults));
}

void TorqueRoad::list(const QString& asset, const QString& standard) {
    const auto question = u"Standard to be used for this calibration:"_s;
    const auto caption = asset + u": External Standard Required"_s;
    ui.expectDialog(caption, question, standard.isEmpty() ? tool(asset).standard : standard);
    ui.expectDialog(caption, question, {});
    addToDownloadList(calibrators, screen, asset);
    EXPECT_TRUE(ui.allCame());
    EXPECT_TRUE(screen.list.contains(asset)) << asset.toStdString();
}

void TorqueRoad::download(const QString& message) {
    ui.expectBox(message, downloadTitle, message == told::downloaded ? box::information : box::warning);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.allCame());
    EXPECT_FALSE(ui.busy);
}

QString TorqueRoad::planFor(const QString& asset) {
    const auto& one = tool(asset);
    return u"%1; %2; %3; %4 08:00\n"_s.arg(asset, one.plan, one.comment, workDay());
}

void TorqueRoad::carryOut(const QStringList& assets) {
    QString plan;
    for (const auto& asset : assets)
        plan += planFor(asset);
    carryOutPlan(plan);
}

void TorqueRoad::carryOutPlan(const QString& plan) {
    simulators::MemoryFile(workshop.memory()).use([&](simulators::Memory& memory) {
        simulators::carryOut(memory, simulators::errandsOf(plan), {});
        return true;
    });
}

void TorqueRoad::expectChoice() {
    ui.expectDialog(uploadTitle, u"Select Calibrator To Use:"_s, torqueStarName);
}

void TorqueRoad::expectRecord(const QString& asset, std::function<void()> meanwhile) {
    const auto caption = u"Calibration Record Data ("_s + asset + u')';
    const auto prompt = u"Please enter information for: "_s;
    ui.expectDialog(caption, prompt + u"Place of Calibration"_s, u"IN PLACE"_s);
    ui.expectDialog(caption, prompt + u"Ambient Temperature (C)"_s, u"21.5"_s,
                    [act = std::move(meanwhile)](const DialogQuestion&) {
                        if (act)
                            act();
                    });
}

void TorqueRoad::expectRefusal() {
    ui.expectBox(told::recordExists, u"Calibration Record Creation"_s, box::stop);
}

void TorqueRoad::pressUpload(const QString& message) {
    ui.expectBox(message, uploadTitle, message == told::uploaded ? box::information : box::warning);
    ModuleGlobals::UploadFromCalibrator(calibrators);
    EXPECT_TRUE(ui.allCame());
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(ui.progressShown);
}

void TorqueRoad::upload(const QStringList& recorded, const QString& message) {
    expectChoice();
    for (const auto& asset : recorded)
        expectRecord(asset);
    pressUpload(message);
}

void TorqueRoad::expectNoLink(BoxAnswer answer) {
    // The title is the same during an upload.
    ui.expectBox(told::noLink, downloadTitle, {BoxIcon::warning, BoxButtons::abortRetryIgnore, 2}, answer);
}

QStringList TorqueRoad::rows(const QString& query, int columns) {
    QStringList found;
    for (const auto set = sharedConnection(session).select(query); set->next();) {
        QStringList row;
        for (int column = 0; column < columns; ++column)
            row << set->value(column).value_or(u"(null)"_s);
        found << row.join(u'|');
    }
    return found;
}

QStringList TorqueRoad::registered() {
    return rows(u"select i4201 from mt.hvm_kv_task_inuse, mt.inventory where inventory.mtag = "
                "hvm_kv_task_inuse.mtag and serial_number = '48213' order by i4201"_s);
}

QStringList TorqueRoad::standardsInUse(const QString& asset) {
    return rows(u"select i4201 from mt.hvm_kv_task_standards_inuse, mt.inventory where inventory.mtag = "
                "standard_mtag and hvm_kv_task_standards_inuse.mtag = (select mtag from mt.inventory where "
                "i4201 = '"_s +
                asset + u"') order by i4201"_s);
}

QStringList TorqueRoad::records(const QString& asset) {
    return rows(
        u"select c2323,(select count(*) from mt.standards where standards.ctag = calibration.ctag),(select "
        "count(*) from mt.calresults where calresults.ctag = calibration.ctag) from mt.calibration where "
        "cdsrc = 'KVN' and c2301 = '"_s +
            workDay() + u"' and mtag = (select mtag from mt.inventory where i4201 = '"_s + asset +
            u"') order by ctag"_s,
        3);
}

QStringList TorqueRoad::wholeRecord(const QString& asset) {
    const auto& one = tool(asset);
    // The calibrator itself counts as a standard.
    return {u"%1|2|%2"_s.arg(one.passes ? u"Y"_s : u"N"_s).arg(one.lines.size())};
}

void TorqueRoad::expectWhole(const QStringList& assets) {
    for (const auto& asset : assets)
        EXPECT_EQ(records(asset), wholeRecord(asset)) << asset.toStdString();
}

simulators::Memory TorqueRoad::held() const {
    simulators::Memory copy;
    simulators::MemoryFile(workshop.memory()).use([&](simulators::Memory& memory) {
        copy = memory;
        return false;
    });
    return copy;
}

QStringList TorqueRoad::heldNames() const {
    QStringList names;
    for (const auto& one : held().characteristics)
        names << one.name;
    return names;
}

QStringList TorqueRoad::heard() const {
    QStringList identifiers;
    for (const auto& line : workshop.contentOf(u"record"_s).split('\n')) {
        if (line.startsWith("heard "))
            identifiers << QString::fromLatin1(line.mid(6, 3));
    }
    return identifiers;
}

const demo::Tool& TorqueRoad::tool(const QString& asset) {
    const auto& all = demo::tools();
    const auto place =
        std::find_if(all.cbegin(), all.cend(), [&](const demo::Tool& one) { return one.asset == asset; });
    EXPECT_NE(place, all.cend()) << asset.toStdString();
    return place == all.cend() ? all.first() : *place;
}

/// A Wednesday whose number comes over the line unharmed, before every day of the demonstration data.
const QString& TorqueRoad::workDay() {
    static const auto day = u"2021-06-16"_s;
    return day;
}

} // namespace kelvane::testing
