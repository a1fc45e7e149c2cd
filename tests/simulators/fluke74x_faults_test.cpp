#include "tests/simulators/fluke74x_bench.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

using Fluke74xFaults = Fluke74xBench;

TEST_F(Fluke74xFaults, ComeAtTheConfiguredCalls) {
    const struct {
        const char* text;
        std::vector<int> statuses;
    } cases[] = {
        {"MEM3clear=2002", {2002, 2002, 2002}}, {"MEM3clear*1=2002", {2002, 0, 0}},
        {"MEM3clear+1*1=100", {0, 100, 0}},     {"MEM3clear*2=-32768", {-32768, -32768, 0}},
        {"STA3initOp=2002", {0, 0, 0}},
    };
    for (const auto& entry : cases) {
        library_.setEnvironment(environment(QString::fromLatin1(entry.text)));
        for (const int status : entry.statuses)
            EXPECT_EQ(library_.MEM3clear(), status) << entry.text;
    }
}

TEST_F(Fluke74xFaults, AnErrorComesInThePlaceOfTheOperationAndAWarningAfterIt) {
    const struct {
        int status;
        bool carriedOut;
    } cases[] = {{99, true},    {100, true},   {1999, true}, {2000, false},
                 {2016, false}, {3000, false}, {-1, false}};
    for (const auto& entry : cases) {
        library_.MEM3clear();
        library_.setEnvironment(environment(u"MEM3promptDefn*1=%1"_s.arg(entry.status)));
        EXPECT_EQ(definePrompt("KEY"), entry.status);
        EXPECT_EQ(definePrompt("KEY"), entry.carriedOut ? BadArgument : Done) << entry.status;
    }
}

TEST_F(Fluke74xFaults, EachOperationGivesAnyStatus) {
    EXPECT_EQ(operationNames().size(), 45U);
    qint32 wide = 0;
    qint16 small = 0;
    float real = 0;
    char text[40]{};
    const std::map<std::string, std::function<qint16()>> calls{
        {"DPC3open", [&] { return open(); }},
        {"DPC3close", [&] { return library_.DPC3close(); }},
        {"DPC3get74X",
         [&] { return library_.DPC3get74X(text, 16, text, 10, text, 40, &wide, &wide, &wide); }},
        {"DPC3mapStart", [&] { return library_.DPC3mapStart(&wide); }},
        {"DPC3mapStep", [&] { return library_.DPC3mapStep(&wide); }},
        {"DPC3dnlStart", [&] { return library_.DPC3dnlStart(&wide); }},
        {"DPC3dnlStep", [&] { return library_.DPC3dnlStep(&wide, &wide, &wide, &wide); }},
        {"DPC3uplStart", [&] { return library_.DPC3uplStart(&wide); }},
        {"DPC3uplStep", [&] { return library_.DPC3uplStep(&wide); }},
        {"MEM3clear", [&] { return library_.MEM3clear(); }},
        {"MEM3startTask", [&] { return library_.MEM3startTask(&wide, &wide, "T", ""); }},
        {"MEM3promptDefn", [&] { return definePrompt("K"); }},
        {"MEM3promptTemplate", [&] { return library_.MEM3promptTemplate(1, 1, &wide, 1, 1, 1); }},
        {"MEM3findStrategyDefn", [&] { return library_.MEM3findStrategyDefn(1, "S", &wide, &wide); }},
        {"MEM3strategyDefn", [&] { return library_.MEM3strategyDefn(1, &wide, &wide, "S", &real, 1); }},
        {"MEM3instrCalTemplate",
         [&] { return library_.MEM3instrCalTemplate(1, 1, &wide, 0, 0, 0, 1, 1, 1, 0, 0, 2, "T", "S"); }},
        {"MEM3endTask", [&] { return library_.MEM3endTask(); }},
        {"STA3beginOps", [&] { return library_.STA3beginOps(); }},
        {"STA3initOp", [&] { return library_.STA3initOp(); }},
        {"STA3setMappedOp", [&] { return library_.STA3setMappedOp("root", "mcMode", "DCV"); }},
        {"STA3setUnitOp", [&] { return library_.STA3setUnitOp("root", "defaultPres", "psi"); }},
        {"STA3setFloatOp", [&] { return library_.STA3setFloatOp("root", "tol", 1); }},
        {"STA3setIntOp", [&] { return library_.STA3setIntOp("root", "mcRangeLocked", 1); }},
        {"STA3evalOp", [&] { return library_.STA3evalOp(); }},
        {"STA3saveOps", [&] { return library_.STA3saveOps(&wide, &wide, &wide); }},
        {"STA3freeOps", [&] { return library_.STA3freeOps(); }},
        {"MEM3ngroups", [&] { return library_.MEM3ngroups(2, &wide); }},
        {"MEM3natoms", [&] { return library_.MEM3natoms(2, 0, &wide); }},
        {"MEM3groupDir", [&] { return library_.MEM3groupDir(2, 0, &wide); }},
        {"MEM3atomDir", [&] { return library_.MEM3atomDir(2, 0, 0, &small, &wide); }},
        {"MEM3taskResultRefInfo", [&] { return library_.MEM3taskResultRefInfo(2, 0, 0, &wide, &wide); }},
        {"MEM3instrTagInfo", [&] { return library_.MEM3instrTagInfo(2, 0, 0, text, text, text); }},
        {"MEM3instrCalResultInfo",
         [&] {
             return library_.MEM3instrCalResultInfo(2, 0, 0, &small, &small, &small, &small, &small, &small,
                                                    &small);
         }},
        {"MEM3instrCalResultStepInfo",
         [&] { return library_.MEM3instrCalResultStepInfo(2, 0, 0, 0, &wide, &wide, &wide); }},
        {"STA3restore", [&] { return library_.STA3restore(1, 1, 1); }},
        {"STA3getBktListInfo", [&] { return library_.STA3getBktListInfo("root", &wide); }},
        {"STA3getBktName", [&] { return library_.STA3getBktName("root", 0, text, 33); }},
        {"STA3getType", [&] { return library_.STA3getType("root", "tol", &small); }},
        {"STA3getFloat", [&] { return library_.STA3getFloat("root", "tol", &real); }},
        {"STA3getStr", [&] { return library_.STA3getStr("root", "tol", text, 33); }},
        {"STA3getRange", [&] { return library_.STA3getRange("root", "tol", &real, &real); }},
        {"STA3getUnit", [&] { return library_.STA3getUnit("root", "tol", text, 33); }},
        {"STA3getInt", [&] { return library_.STA3getInt("root", "tol", &wide); }},
        {"STA3getTime", [&] { return library_.STA3getTime("root", "tol", &wide); }},
        {"STA3getMapped", [&] { return library_.STA3getMapped("root", "tol", text, 33); }},
    };
    EXPECT_EQ(calls.size(), operationNames().size());
    int status = 3000;
    for (const auto& entry : calls) {
        library_.setEnvironment(environment(QString::fromStdString(entry.first) + u"*1=%1"_s.arg(++status)));
        EXPECT_EQ(entry.second(), status) << entry.first;
        EXPECT_NE(entry.second(), status) << entry.first << " a second time";
    }
}

TEST_F(Fluke74xFaults, ATransferBreaksOffAtTheConfiguredStep) {
    fillCalibrator();
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("A");
    defineTask("B");
    library_.setEnvironment(environment(u"DPC3dnlStep+2*1=2011"_s));
    EXPECT_EQ(download(), 2011);
    EXPECT_EQ(storedMemory(), Memory());
    EXPECT_EQ(download(), Done);
    library_.setEnvironment(environment(u"DPC3mapStep+3*1=2010"_s));
    EXPECT_EQ(upload(), 2010);
}

TEST_F(Fluke74xFaults, AfterAWarningATransferGoesOn) {
    ASSERT_EQ(fetchMaps(), Done);
    defineTask("A");
    library_.setEnvironment(environment(u"DPC3dnlStep=100;DPC3mapStep=1999"_s));
    qint32 count = 0;
    ASSERT_EQ(library_.DPC3mapStart(&count), Done);
    while (count > 0)
        ASSERT_EQ(library_.DPC3mapStep(&count), 1999);
    References kept;
    ASSERT_EQ(library_.DPC3dnlStart(&count), Done);
    while (count > 0)
        ASSERT_EQ(library_.DPC3dnlStep(&count, &kept.first, &kept.second, &kept.third), 100);
    EXPECT_EQ(storedMemory().contents.tasks.size(), 1U);
}

TEST_F(Fluke74xFaults, AnUnknownFaultIsReportedAndNoLinkCanBeOpened) {
    for (const char* const text : {"MEM3clear", "MEMclear=5", "MEM3clear=32768", "MEM3clear=5;DPC3open=x"}) {
        library_.setEnvironment(environment(QString::fromLatin1(text)));
        EXPECT_EQ(open(), NoAnswer) << text;
    }
    library_.setEnvironment(environment());
    EXPECT_EQ(open(), Done);
}

TEST_F(Fluke74xFaults, EachCallIsRecordedWithItsStatus) {
    library_.setEnvironment({file(), u"STA3evalOp=2008"_s, folder_.path(u"record"_s)});
    open();
    qint32 count = 0;
    library_.DPC3mapStart(&count);
    library_.DPC3mapStep(&count);
    library_.STA3setFloatOp("root", "tol", 0.25F);
    library_.MEM3startTask(&count, &count, "PT-103", "");
    library_.MEM3strategyDefn(1, &count, &count,
                              "\x8C"
                              "2",
                              std::vector<float>{0, 0.1F}.data(), 2);
    library_.STA3evalOp();
    library_.MEM3atomDir(2, 0, 7, nullptr, nullptr);
    EXPECT_EQ(QString::fromUtf8(folder_.contentOf(u"record"_s)),
              u"DPC3open(9600, \"COM1\", 1000, 5) = 0\n"
              "DPC3mapStart() = 0\n"
              "DPC3mapStep(7) = 0\n"
              "STA3setFloatOp(\"root\", \"tol\", 0.25) = 2013\n"
              "MEM3startTask(\"PT-103\", \"\") = 0\n"
              "MEM3strategyDefn(1, 1001, \"Œ2\", [0, 0.1], 2) = 0\n"
              "STA3evalOp() = 2008\n"
              "MEM3atomDir(2, 0, 7) = 2006\n"_s);
}

} // namespace kelvane::simulators::fluke74x
