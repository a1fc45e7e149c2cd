#include "tests/workflow/upload_trouble.h"

#include "data/assets/in_use.h"
#include "data/parameters/cal_params.h"
#include "drivers/fluke702/driver.h"
#include "drivers/fluke74x/driver.h"
#include "drivers/torquestar/driver.h"
#include "testkit/crashing_server.h"
#include "testkit/recorded_link3.h"
#include "testkit/torque_fixture.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto everyTrouble = ::testing::Values(Trouble::fails, Trouble::isBusy, Trouble::isLost,
                                            Trouble::carryOutAndFail, Trouble::isCarriedOutAndLost);

} // namespace

/// Two transmitters that have been calibrated with a Fluke, which keeps its runs.
class FlukeUploadInTrouble : public UploadInTrouble {
  protected:
    FlukeUploadInTrouble() { instruments = {{u"PT-101"_s, u"1401"_s}, {u"PT-102"_s, u"1402"_s}}; }

    void registerWith(const QString& serial) {
        for (const auto& instrument : std::as_const(instruments))
            ModuleGlobals::AddInUse(session, serial, instrument.mtag, u"asmith"_s);
    }

    /// What was applied and what was read, without an error.
    struct Reading {
        float applied = 0;
        float read = 0;
    };
    /// Of each point, in base units; the transmitters give milliamperes.
    QList<Reading> readingsOf(const QString& asset) {
        const auto parameters = ModuleGlobals::GetCalParams(session, asset);
        const auto fractions = ModuleGlobals::GetTestPointList(session, asset);
        QList<Reading> readings;
        for (const float fraction : fractions) {
            const auto at = [fraction](float low, float high) { return low + fraction * (high - low); };
            readings << Reading{at(parameters.input_low, parameters.input_high),
                                at(parameters.output_low, parameters.output_high) / 1000};
        }
        return readings;
    }
    bool isStored(const QString&) override { return true; }
};

class Fluke702UploadInTrouble : public FlukeUploadInTrouble {
  protected:
    Fluke702UploadInTrouble() { registerWith(link.serial); }

    void calibrate(int minute) override {
        link.runs.clear();
        for (const auto& instrument : std::as_const(instruments)) {
            StoredRun run{.tag = instrument.asset, .serial = u"V88101"_s, .technician = u"Joe Doe"_s};
            run.hour = static_cast<qint16>(minute / 60);
            run.minute = static_cast<qint16>(minute % 60);
            run.second = 0;
            for (const auto& reading : readingsOf(instrument.asset))
                run.entries << ResultEntry{reading.read, reading.applied, 0};
            link.runs << run;
        }
    }
    QString upload() override { return Module702Interface::Fluke702_upload(driver); }

    RecordedLink link;
    Fluke702 driver{session, link};
};

TEST_P(Fluke702UploadInTrouble, LosesNoReadingMakesNoFalseRecordAndDoublesNone) {
    tryEachStatement();
}

INSTANTIATE_TEST_SUITE_P(EachStatement, Fluke702UploadInTrouble, everyTrouble);

class Fluke74xUploadInTrouble : public FlukeUploadInTrouble {
  protected:
    Fluke74xUploadInTrouble() { registerWith(link.serial); }

    void calibrate(int minute) override {
        link.groups.clear();
        for (const auto& instrument : std::as_const(instruments)) {
            StoredAtom run{.kind = 4};
            run.time.hour = static_cast<qint16>(minute / 60);
            run.time.minute = static_cast<qint16>(minute % 60);
            run.time.second = 0;
            for (const auto& reading : readingsOf(instrument.asset))
                run.steps << StoredStep{{numberBucket(u"sprimary"_s, reading.applied),
                                         numberBucket(u"mprimary"_s, reading.read)}};
            const StoredAtom tag{
                .kind = 11, .tag = instrument.asset, .serial = u"V88101"_s, .technician = u"Joe Doe"_s};
            link.groups << StoredGroup{{StoredAtom{.kind = 18}, run, tag}};
        }
    }
    QString upload() override { return Module74xInterface::Fluke74x_upload(driver); }

    RecordedLink3 link;
    Fluke74x driver{session, link};
};

TEST_P(Fluke74xUploadInTrouble, LosesNoReadingMakesNoFalseRecordAndDoublesNone) {
    tryEachStatement();
}

INSTANTIATE_TEST_SUITE_P(EachStatement, Fluke74xUploadInTrouble, everyTrouble);

/// Two tools that have been calibrated with the torque calibrator, which clears what it is asked to clear.
class TorqueUploadInTrouble : public UploadInTrouble {
  protected:
    TorqueUploadInTrouble() {
        instruments = {{u"TW-101"_s, u"1301"_s}, {u"TW-102"_s, u"1302"_s}};
        clock.tick = 1;
        peer.reply = [this](const QByteArray& body) { return replyTo(body); };
        peer.attachTo(port);
    }

    void calibrate(int minute) override {
        ModuleGlobals::ClearInUse(session, serial);
        held.clear();
        for (const auto& instrument : std::as_const(instruments)) {
            ModuleGlobals::AddInUse(session, serial, instrument.mtag, u"asmith"_s);
            const auto parameters = ModuleGlobals::GetCalParams(session, instrument.asset);
            const auto fractions = ModuleGlobals::GetTestPointList(session, instrument.asset);
            auto& results = held[instrument.asset];
            for (const double fraction : fractions) {
                const double nominal =
                    parameters.input_low + fraction * (parameters.input_high - parameters.input_low);
                auto reply = result(20260318, minute / 60 * 10000 + minute % 60 * 100,
                                    QList<double>(parameters.repetitions, nominal));
                // One whose checksum ends in STX counts as begun anew; a further sample is ignored.
                if (makeFrame(reply).endsWith('\x02'))
                    reply += integer32(0x0101);
                results << reply;
            }
        }
    }
    QString upload() override { return ModuleTSInterface::TorqueStar_upload(driver); }
    bool isStored(const QString& asset) override {
        return held.contains(asset) &&
               rows(u"select count(*) from mt.hvm_kv_task_standards_inuse, mt.inventory where i4201 = '%1' "
                    u"and "
                    "hvm_kv_task_standards_inuse.mtag = inventory.mtag"_s.arg(asset)) == QStringList{u"1"_s};
    }

  private:
    std::optional<QByteArray> replyTo(const QByteArray& body) {
        const auto id = body.first(3);
        if (id == "T0D")
            return identity(serial.toInt());
        if (id == "T1C") {
            selected = QString::fromLatin1(body.mid(3, body.indexOf('=') - 3));
            if (!held.contains(selected))
                return QByteArray("t1C\x02");
        }
        if (id == "T1D")
            return held.value(selected).value(taken[selected]++ % held.value(selected).size());
        if (id == "T1J")
            held.remove(selected);
        if (id == "T1F")
            return QByteArray("t1F.");
        return 't' + id.sliced(1);
    }

    const QString serial = u"48213"_s;
    QHash<QString, QList<QByteArray>> held;
    QHash<QString, qsizetype> taken;
    QString selected;
    ScriptedSerialPort port;
    LinePeer peer;
    TorqueStar driver{session, port};
};

TEST_P(TorqueUploadInTrouble, LosesNoReadingMakesNoFalseRecordAndDoublesNone) {
    tryEachStatement();
}

INSTANTIATE_TEST_SUITE_P(EachStatement, TorqueUploadInTrouble, everyTrouble);

/// The server crashes, and is there again at once.
class TorqueUploadInACrash : private CrashingServer, public TorqueUploadInTrouble {
  protected:
    TorqueUploadInACrash() {
        endConnection = [this] { database.shared().crashServer(); };
    }
};

TEST_P(TorqueUploadInACrash, LosesNoReadingMakesNoFalseRecordAndDoublesNone) {
    tryEachStatement(true);
}

INSTANTIATE_TEST_SUITE_P(EachWritingStatement, TorqueUploadInACrash,
                         ::testing::Values(Trouble::isLost, Trouble::isCarriedOutAndLost));

} // namespace kelvane::testing
