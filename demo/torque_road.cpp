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

/// What a person types who is asked for the standards of an instrument: the right one, and then nothing more.
class StandardsOfTools {
  public:
    /// `first` is named before the right one: a standard that has to be refused.
    explicit StandardsOfTools(const QString& first = {}) : first_(first) {}

    std::optional<QString> operator()(const QString& caption, const QString& prompt) {
        if (prompt != u"Standard to be used for this calibration:")
            return {};
        for (const auto& tool : tools()) {
            if (caption != tool.asset + u": External Standard Required"_s)
                continue;
            if (!first_.isEmpty())
                return std::exchange(first_, {});
            return asked_.contains(tool.asset) ? QString() : (asked_ << tool.asset, tool.standard);
        }
        return {};
    }

  private:
    QString first_;
    QStringList asked_;
};

/// The latest day before today whose date comes over the line unharmed.
QDate latestWorkDay() {
    auto day = QDate::currentDate().addDays(-1);
    while (simulators::losesDigit(day.year() * 10000 + day.month() * 100 + day.day()))
        day = day.addDays(-1);
    return day;
}

void configureCalibrator(Desk& desk) {
    desk.person.step(u"set the line of the torque calibrator"_s, {}, {}, [&] {
        desk.press(Qt::Key_O, Qt::ControlModifier);
        auto& form = desk.child(u"FormCalConfig"_s);
        QTest::keyClicks(&control<QComboBox>(form, u"ComboCalibrator"_s), u"Crane"_s);
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

void listTools(Desk& desk) {
    auto& person = desk.person;
    desk.openDownloadList(torqueStar);
    person.step(u"add TW-101 with its transducer"_s, {}, StandardsOfTools(), [&] { desk.add(u"TW-101"_s); });
    person.step(u"add TW-102; its first standard is overdue and refused"_s,
                {{u"External Standard Required"_s, u"Standard is overdue for calibration!"_s}},
                StandardsOfTools(u"TT-0200F"_s), [&] { desk.add(u"TW-102"_s); });
    person.step(u"add HW-701: a torque calibrator can't take it"_s,
                {{downloadTitle, u"HW-701: TorqueStar cannot accept selected input units!"_s}}, {},
                [&] { desk.add(u"HW-701"_s); });
    person.step(u"add the task package TORQUE CREW A"_s, {}, StandardsOfTools(),
                [&] { desk.add(u"TORQUE CREW A"_s); });
    QStringList assets;
    for (const auto& tool : tools())
        assets << tool.asset;
    desk.expectList(assets);
}

void workInPlant(Desk& desk, const QString& memory, const QDate& day) {
    desk.person.step(u"carry out in the plant"_s, {}, {}, [&] {
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
    desk.upload(u"upload and complete the records"_s, torqueStar);
    checkRecords(*desk.program.session.SharedConnection, day, afterTools());
    return day;
}

} // namespace kelvane::demo
