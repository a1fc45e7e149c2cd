#pragma once

#include "testkit/torque_fixture.h"

namespace kelvane::testing {

inline const QString timeout = QStringLiteral("Communications Timeout on Command Acknowledgement");
inline const QByteArray holdsData = "t1C";
inline const QByteArray holdsNothing = "t1C\x02";
inline const QByteArray noComment = "t1F.";
inline constexpr qint32 date = 20260318;
inline constexpr qint32 time = 93005;

/// The fields that a site's dictionary may ask for; the upload fills the first ten.
inline const QStringList allFields{QStringLiteral("C2301"), QStringLiteral("C2333"), QStringLiteral("C2326"),
                                   QStringLiteral("C2323"), QStringLiteral("C2352"), QStringLiteral("C2350"),
                                   QStringLiteral("C2320"), QStringLiteral("C2308"), QStringLiteral("C2329"),
                                   QStringLiteral("C2307"), QStringLiteral("C2302"), QStringLiteral("C2331"),
                                   QStringLiteral("C2303")};

class TorqueUpload : public TorqueFixture {
  protected:
    TorqueUpload() {
        addCalibrator();
        addDictionary(allFields);
        session.ResultTemplateLine = QStringLiteral("TN$ FRE$         TR$");
    }

    QString upload() { return ModuleTSInterface::TorqueStar_upload(driver); }

    /// Wrenches "W-1" to "W-n" in use with the calibrator, each with these points (in percent) and samples a
    /// point, sent by "asmith", with the transducer and the calibrator as standards.
    void addUsedCalibrator(int count, const QStringList& points, qint16 repetitions = 1) {
        QStringList assets;
        for (int i = 1; i <= count; ++i) {
            const auto asset = QStringLiteral("W-%1").arg(i);
            assets << asset;
            auto tool = wrench();
            tool.repetitions = repetitions;
            addInstrument(asset, u'K' + asset, tool);
            addPoints(asset, points, repetitions);
            addStandards(asset, {QStringLiteral("X-1"), QStringLiteral("TS-01")});
            addInUseData(QStringLiteral("12345678"), asset, QStringLiteral("asmith"));
            addHistory(asset);
        }
        addInUse(assets);
    }

    /// The calibrator holds one result a point for an instrument, then its comment.
    void holdResults(const QList<QList<double>>& samples, const QByteArray& comment = noComment) {
        for (qsizetype i = 0; i < samples.size() + 2; ++i)
            replies["T1C"] << holdsData;
        for (const auto& sample : samples)
            replies["T1D"] << result(date, time, sample);
        replies["T1F"] << comment;
    }

    QString recordedValue(const QString& column, const QString& asset = QStringLiteral("W-1")) const {
        return Lab::recordedValue(column, asset);
    }

    bool isCleared() const {
        return writes().contains(QStringLiteral("delete from mt.hvm_kv_task_inuse where entered_date < "
                                                "now(*) - 30 or serial_number = '12345678';commit"));
    }
};

} // namespace kelvane::testing
