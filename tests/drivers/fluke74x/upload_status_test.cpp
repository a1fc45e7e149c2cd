#include "testkit/download_fixture.h"
#include "testkit/fluke74x_fixture.h"
#include "tests/drivers/fluke74x/status_words.h"
#include "tests/drivers/fluke74x/upload_fixture.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Two runs of the transmitter PT-1, of two steps each, with a bucket of every type in the last step, on a
/// recorded database.
class Fluke74xUploadStatus : public Fluke74xFixture {
  protected:
    Fluke74xUploadStatus() {
        session.ResultTemplateLine = u"TN$ FRE$         TR$"_s;
        addCalibrator();
        addEquipment(u"PM-1"_s, u"911"_s, u"71204"_s);
        addEquipment(u"PM-2"_s, u"912"_s, u"71118"_s);
        addInstrument(u"PT-1"_s, transmitter());
        addStandards(u"PT-1"_s, {u"F743-01"_s, u"DMM-1"_s});
        addHistory(u"PT-1"_s);
        addDictionary({u"C2301"_s, u"C2333"_s, u"C2323"_s, u"C2352"_s, u"C2350"_s, u"C2320"_s, u"C2308"_s,
                       u"C2307"_s, u"C2302"_s, u"C2331"_s, u"C2303"_s, u"C2326"_s});
        addInUseData(link.serial, u"PT-1"_s, u"asmith"_s);
        addGroup(link);
        addRun(link, {at(0, 0.004F), at(100, 0.02F)}, u"PT-1"_s);
        auto steps = QList{at(0, 0.004F), at(100, 0.02F)};
        for (qint16 type = 2; type <= 7; ++type)
            steps[1].buckets << StoredBucket{.name = u"type%1"_s.arg(type), .type = type};
        addRun(link, steps, u"PT-1"_s);
    }

    /// A call that reads the image, the asset that its status concerns, and the records made before it.
    struct ReadCall {
        CallAt at;
        QString asset;
        int records;
    };
    /// Those of a good upload; the status of a bucket's name is not looked at.
    QList<ReadCall> readCalls() {
        EXPECT_EQ(upload(), QString());
        whole = link.operations();
        QList<ReadCall> list;
        QHash<QString, int> occasions;
        int tags = 0;
        for (const auto& operation : whole) {
            if (operation.startsWith(u"DPC3"_s) || operation == u"STA3getBktName")
                continue;
            list << ReadCall{{operation, ++occasions[operation]}, tags > 0 ? u"PT-1"_s : QString(), tags};
            if (operation == u"MEM3instrTagInfo")
                ++tags;
        }
        return list;
    }
    QString upload() {
        link.calls.clear();
        script.statements.clear();
        QFile::remove(Journal(session).path()); // it would grow with every upload
        const auto result = Module74xInterface::Fluke74x_upload(driver);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_FALSE(ui.busy);
        EXPECT_FALSE(ui.progressShown);
        return result;
    }
    QString uploadWith(const CallAt& call, qint16 status) {
        link.answer(call.operation, status, call.occasion);
        return upload();
    }

    QStringList whole;
};

TEST_F(Fluke74xUploadStatus, OfAGoodUploadWritesRecordsStandardsAndLinesExactly) {
    auto& atoms = link.groups[0].atoms;
    atoms[3].steps[0].buckets << textBucket(u"mpserial"_s, u"71204"_s)
                              << textBucket(u"spserial"_s, u"71118"_s);
    atoms[3].steps[1].buckets[1].number = 0.021F;
    atoms[3].steps[1].buckets[3].number = 6.25F;
    atoms[4].technician = u"None"_s;
    atoms.resize(5);
    EXPECT_EQ(upload(), QString());
    const auto record = u"(select ctag from MT.calibration where mtag = 'KPT-1' and c2339 = 1)"_s;
    const auto standard = [&](const QString& asset) {
        return u"insert into mt.standards (c2430,mtag,ctag) values ("_s + mtagOf(asset) + u",'KPT-1',"_s +
               record + u");commit"_s;
    };
    const auto line = [&](const QString& text, int number) {
        return u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('%1','%2','KPT-1',"_s.arg(
                   text.leftJustified(120), QString::number(number)) +
               record + u");commit"_s;
    };
    const QStringList expected{
        u"insert into MT.calibration (C2301,C2333,C2323,C2352,C2350,C2320,C2308,C2307,C2302,C2331,C2303,C2326,mtag,cdsrc) values ('2026-03-18','08:15:30','N','1','0','LINEARITY','AS-FOUND','asmith','12','M','03/18/2026',NULL,'KPT-1','KVN');commit"_s,
        standard(u"PM-1"_s),
        standard(u"PM-2"_s),
        standard(u"F743-01"_s),
        standard(u"DMM-1"_s),
        line(u"  1  4.00mA      PASS"_s, 0),
        line(u"  2  21.00mA     FAIL"_s, 1),
        u"update MT.inventory set I4224 = NULL where i4201 = 'PT-1';commit"_s,
        u"update MT.inventory set I4225 = NULL where i4201 = 'PT-1';commit"_s,
    };
    EXPECT_EQ(writes(), expected);
}

TEST_F(Fluke74xUploadStatus, FromTwoThousandOnEndsTheUploadAtEveryReadWithItsTextAndRecordsMadeStay) {
    for (const auto& call : readCalls()) {
        for (const auto& [code, words] :
             {std::pair{2000, QString()},
              {2001, u"Didn't find the requested object/item (DPC3ERR_NOT_FOUND)"_s},
              {2013, u"Maps Weren't Uploaded First (DPC3ERR_MAPS_UNAVAILABLE)"_s},
              {2017, QString()}}) {
            const auto where = (call.at.operation + u' ' + QString::number(code)).toStdString();
            EXPECT_EQ(uploadWith(call.at, static_cast<qint16>(code)), words) << where;
            EXPECT_EQ(link.operations(), upTo(whole, call.at)) << where;
            EXPECT_EQ(recordedAssets().size(), call.records) << where;
            EXPECT_EQ(Journal(session).unfinished().size(), 0) << "the calibrator still has it: " << where;
        }
    }
}

TEST_F(Fluke74xUploadStatus, OfEachCodeHasItsEffectAtARead) {
    const CallAt call{u"MEM3instrCalResultInfo"_s};
    for (const auto& status : statusesOfTrouble3()) {
        if (isShown3(status.code))
            ui.expectBox(u": "_s, u"Download Procedures To Calibrator"_s, box::information);
        EXPECT_EQ(uploadWith(call, status.code), status.words) << status.code;
        EXPECT_EQ(recordedAssets().size(), status.code < 2000 ? 2 : 0) << status.code;
    }
}

TEST_F(Fluke74xUploadStatus, BelowTwoThousandGoesOnAtEveryReadWithItsBoxFrom100On) {
    for (const auto& call : readCalls()) {
        for (const qint16 status : {qint16{99}, qint16{100}}) {
            const auto where = (call.at.operation + u' ' + QString::number(status)).toStdString();
            if (isShown3(status))
                ui.expectBox(call.asset + u": "_s, u"Download Procedures To Calibrator"_s, box::information);
            EXPECT_EQ(uploadWith(call.at, status), QString()) << where;
            EXPECT_EQ(link.operations(), whole) << where;
            EXPECT_EQ(recordedAssets().size(), 2) << where;
        }
    }
}

TEST_F(Fluke74xUploadStatus, OfABucketsNameDoesNotMatter) {
    for (const qint16 status : {qint16{1}, qint16{100}, qint16{2000}, qint16{2013}}) {
        EXPECT_EQ(uploadWith({u"STA3getBktName"_s, 2}, status), QString()) << status;
        EXPECT_EQ(recordedAssets().size(), 2) << status;
    }
}

} // namespace kelvane::testing
