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

TorqueRoad::TorqueRoad() : Road(torqueStarName, u"48213"_s) {
    switchOn();
}

void TorqueRoad::switchOn(const QStringList& faults) {
    switchOff();
    QFile::remove(workshop.record());
    device_ = std::make_unique<simulators::Calibrator>(workshop, simulators::Calibrator::faulty(faults));
}

void TorqueRoad::list(const QString& asset, const QString& standard) {
    Road::list(asset, standard.isEmpty() ? tool(asset).standard : standard);
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

} // namespace kelvane::testing
