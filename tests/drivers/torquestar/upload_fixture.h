#pragma once

#include "tests/drivers/torquestar/torque_shop.h"

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

class TorqueUpload : public TorqueShop {
  protected:
    TorqueUpload() {
        addCalibrator();
        addDictionary(allFields);
        session.ResultTemplateLine = QStringLiteral("TN$ FRE$         TR$");
    }

    QString upload() { return ModuleTSInterface::TorqueStar_upload(driver); }

    void addDictionary(const QStringList& columns) {
        QList<Row> rows;
        for (const auto& one : columns)
            rows << Row{one, QStringLiteral("Title"), {}, {}, {}, {}, {}, {}, {}, {}, {}};
        script.answers.insert(
            QStringLiteral(
                "select datacol,title,idefault,ireq,sreq,sdefault,scopy,dcopy,validation,datalen,tooltip "
                "from mt.customiz where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or "
                "fldnum = '2302' or fldnum = '2308' or fldnum = '2303' or fldnum = '2301' or fldnum = "
                "'2307') order by row,nextfld asc"),
            rows);
    }

    /// Wrenches "W-1" to "W-n" in use with the calibrator, each with these points (in percent) and samples a
    /// point, sent by "asmith", with the transducer and the calibrator as standards.
    void addUsed(int count, const QStringList& points, qint16 repetitions = 1) {
        QStringList assets;
        for (int i = 1; i <= count; ++i) {
            const auto asset = QStringLiteral("W-%1").arg(i);
            assets << asset;
            auto tool = wrench();
            tool.repetitions = repetitions;
            addInstrument(asset, u'K' + asset, tool);
            addPoints(asset, points, repetitions);
            addStandards(asset, {QStringLiteral("X-1"), QStringLiteral("TS-01")});
            script.answers.insert(
                QStringLiteral("select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where "
                               "serial_number = '12345678' and mtag = 'K") +
                    asset + u'\'',
                {{QStringLiteral("12345678"), QStringLiteral("2026-03-01 08:00:00"), u'K' + asset,
                  QStringLiteral("asmith")}});
            script.answers.insert(QStringLiteral("select count(ctag) from MT.calibration where mtag = ") +
                                      mtagOf(asset),
                                  {{QStringLiteral("0")}});
            script.answers.insert(QStringLiteral("select I4229 from MT.inventory where i4201 = '") + asset +
                                      u'\'',
                                  {{QStringLiteral("12")}});
            script.answers.insert(QStringLiteral("select I4228 from MT.inventory where i4201 = '") + asset +
                                      u'\'',
                                  {{QStringLiteral("M")}});
        }
        addInUse(assets);
    }

    void addPoints(const QString& asset, const QStringList& points, int repetitions) {
        QList<Row> rows;
        for (const auto& one : points)
            rows << Row{one};
        script.answers.insert(selectPoints(asset) + QStringLiteral(" order by test_point_seq asc"), rows);
        script.answers.insert(QStringLiteral("select repetitions from mt.hvm_kv_tag_config where mtag = ") +
                                  mtagOf(asset),
                              {{QString::number(repetitions)}});
    }

    /// The calibrator holds one result a point for an instrument, then its comment.
    void holdResults(const QList<QList<double>>& samples, const QByteArray& comment = noComment) {
        for (qsizetype i = 0; i < samples.size() + 2; ++i)
            replies["T1C"] << holdsData;
        for (const auto& one : samples)
            replies["T1D"] << result(date, time, one);
        replies["T1F"] << comment;
    }

    /// The value that the record of an instrument got in a column, out of the insert.
    QString recorded(const QString& column, const QString& asset = QStringLiteral("W-1")) const {
        for (const auto& one : writes()) {
            if (!one.startsWith(QStringLiteral("insert into MT.calibration ")) ||
                !one.contains(QStringLiteral("'K") + asset + QStringLiteral("',")))
                continue;
            const auto columns = one.section(u'(', 1, 1).section(u')', 0, 0).split(u',');
            const auto values = one.section(QStringLiteral("values ("), 1).split(u',');
            return values.value(columns.indexOf(column));
        }
        return QStringLiteral("no record");
    }

    QStringList recordedAssets() const {
        QStringList assets;
        for (const auto& one : writes()) {
            if (one.startsWith(QStringLiteral("insert into MT.calibration ")))
                assets << one.section(QStringLiteral("'K"), 1).section(u'\'', 0, 0);
        }
        return assets;
    }

    QStringList resultLines() const {
        QStringList lines;
        for (const auto& one : writes()) {
            if (one.startsWith(QStringLiteral("insert into mt.calresults ")))
                lines << one.section(u'\'', 1, 1).simplified();
        }
        return lines;
    }

    bool isCleared() const {
        return writes().contains(QStringLiteral("delete from mt.hvm_kv_task_inuse where entered_date < "
                                                "now(*) - 30 or serial_number = '12345678';commit"));
    }
};

} // namespace kelvane::testing
