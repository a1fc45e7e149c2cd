#include "tests/end_to_end/torque_end_to_end.h"

#include "simulators/torquestar/field_work.h"
#include "simulators/torquestar/memory_file.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString messages::noData(const QStringList& names) {
    return text(TextId::assetsWithoutData) + u"\r\n, "_s + names.join(u", "_s);
}

TorqueEndToEnd::TorqueEndToEnd() : EndToEndTest(torqueStarName, u"48213"_s) {
    switchOn();
}

void TorqueEndToEnd::switchOn(const QStringList& faults) {
    switchOff();
    QFile::remove(simulatorFolder.record());
    device_ =
        std::make_unique<simulators::Calibrator>(simulatorFolder, simulators::Calibrator::faulty(faults));
}

void TorqueEndToEnd::list(const QString& asset, const QString& standard) {
    EndToEndTest::list(asset, standard.isEmpty() ? tool(asset).standard : standard);
}

QString TorqueEndToEnd::planFor(const QString& asset) {
    const auto& expected = tool(asset);
    return u"%1; %2; %3; %4 08:00\n"_s.arg(asset, expected.plan, expected.comment, workDay());
}

void TorqueEndToEnd::carryOut(const QStringList& assets) {
    QString plan;
    for (const auto& asset : assets)
        plan += planFor(asset);
    carryOutPlan(plan);
}

void TorqueEndToEnd::carryOutPlan(const QString& plan) {
    simulators::MemoryFile(simulatorFolder.memory()).use([&](simulators::Memory& memory) {
        simulators::carryOut(memory, simulators::jobsOf(plan), {});
        return true;
    });
}

void TorqueEndToEnd::upload(const QStringList& recorded, const QString& message) {
    expectChoice();
    for (const auto& asset : recorded)
        expectRecord(asset);
    pressUpload(message);
}

void TorqueEndToEnd::expectNoLink(BoxAnswer answer) {
    // The title is the same during an upload.
    ui.expectBox(messages::noLink(), downloadTitle(), {BoxIcon::warning, BoxButtons::abortRetryIgnore, 2},
                 answer);
}

QStringList TorqueEndToEnd::wholeRecord(const QString& asset) {
    const auto& expected = tool(asset);
    // The calibrator itself counts as a standard.
    return {u"%1|2|%2"_s.arg(expected.passes ? u"Y"_s : u"N"_s).arg(expected.lines.size())};
}

void TorqueEndToEnd::expectWhole(const QStringList& assets) {
    for (const auto& asset : assets)
        EXPECT_EQ(records(asset), wholeRecord(asset)) << asset.toStdString();
}

simulators::Memory TorqueEndToEnd::held() const {
    simulators::Memory copy;
    simulators::MemoryFile(simulatorFolder.memory()).use([&](simulators::Memory& memory) {
        copy = memory;
        return false;
    });
    return copy;
}

QStringList TorqueEndToEnd::storedNames() const {
    QStringList names;
    for (const auto& characteristic : held().characteristics)
        names << characteristic.name;
    return names;
}

QStringList TorqueEndToEnd::receivedMessages() const {
    QStringList identifiers;
    for (const auto& line : simulatorFolder.contentOf(u"record"_s).split('\n')) {
        if (line.startsWith("heard "))
            identifiers << QString::fromLatin1(line.mid(6, 3));
    }
    return identifiers;
}

const demo::Tool& TorqueEndToEnd::tool(const QString& asset) {
    const auto& all = demo::tools();
    const auto place = std::find_if(all.cbegin(), all.cend(),
                                    [&](const demo::Tool& candidate) { return candidate.asset == asset; });
    EXPECT_NE(place, all.cend()) << asset.toStdString();
    return place == all.cend() ? all.first() : *place;
}

} // namespace kelvane::testing
