#include "drivers/fluke_run.h"
#include "tests/drivers/fluke702/upload_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class FlukeUploadStandards : public FlukeUpload {
  protected:
    /// Sent to the calibrator, with a multimeter as the standard that reads the output.
    FlukeUploadStandards() {
        ModuleGlobals::AddInUse(session, u"6841207"_s, u"1401"_s, u"asmith"_s);
        execute(u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag, entered_date, mtag) "
                "select '1209', entered_date, mtag from mt.hvm_kv_task_standards_inuse"_s);
    }
};

TEST_F(FlukeUploadStandards, FollowTheCalibratorWithoutAModule) {
    addGoodRun();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(standards(), (QStringList{u"1102"_s, u"1209"_s})) << "the calibrator once";
}

TEST_F(FlukeUploadStandards, FollowTheModuleThatTheRunNames) {
    addGoodRun().pressureModule = u"71118"_s;
    addGoodRun(u"PT-102"_s).pressureModule = u"71391"_s;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(standards(), (QStringList{u"1102"_s, u"1206"_s, u"1209"_s, u"1102"_s, u"1207"_s}));
    EXPECT_EQ(link.callsOf(u"MEMbaseState"_s), (QStringList{u"MEMbaseState(0)"_s, u"MEMbaseState(1)"_s}));
}

TEST_F(FlukeUploadStandards, AskForTheModuleInBuffersOfSixteenAndTen) {
    addGoodRun();
    QStringList buffers;
    link.writeText = [&](const QString& text, const QString& buffer) {
        buffers << buffer;
        return text + QChar(0);
    };
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(buffers.last(2), (QStringList{QString(16, u' '), QString(10, u' ')}));
}

TEST_F(FlukeUploadStandards, EndAtAModuleThatTheInventoryDoesNotKnow) {
    addGoodRun().pressureModule = u"99999"_s;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(standards(), QStringList{u"1102"_s});
}

TEST_F(FlukeUploadStandards, StandInTheRecordAsTheyCame) {
    CalRecord record;
    RunStandards(session, record, u"6841207"_s).addInUse(u"PT-101"_s);
    EXPECT_EQ(entriesOf(record.RecordStandards), (QStringList{u"F702-01"_s, u"F702-01"_s, u"DMM-87V"_s}));
    RunStandards withModule(session, record, u"6841207"_s);
    withModule.addModule(u"99999"_s);
    withModule.addInUse(u"PT-101"_s);
    EXPECT_EQ(std::as_const(record.RecordStandards)[1], QString());
    EXPECT_EQ(std::as_const(record.RecordStandards)[3], u"DMM-87V"_s);
}

TEST_F(FlukeUploadStandards, OfOneRecordAreForgottenInTheNext) {
    addGoodRun().pressureModule = u"71118"_s;
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(standards(), (QStringList{u"1102"_s, u"1206"_s, u"1209"_s, u"1102"_s}));
}

TEST_F(FlukeUploadStandards, OfABlankModuleAreNone) {
    addGoodRun().pressureModule = u"   "_s;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(standards(), (QStringList{u"1102"_s, u"1209"_s}));
}

TEST_F(FlukeUploadStandards, StayInTheRegistry) {
    addGoodRun();
    const auto query = u"select mtag from mt.hvm_kv_task_inuse union all select standard_mtag from "
                       "mt.hvm_kv_task_standards_inuse"_s;
    const auto before = values(query);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(values(query), before);
}

} // namespace kelvane::testing
