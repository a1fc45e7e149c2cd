#include "tests/simulators/fluke702_bench.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

/// The reason for which the text is refused; empty when it is taken.
QString refusal(const QString& text) {
    try {
        CallFaults(text, operationNames());
    } catch (const Failure& failure) {
        return failure.text();
    }
    return {};
}

} // namespace

using Fluke702Faults = Fluke702Bench;

TEST_F(Fluke702Faults, ComeAtTheConfiguredCalls) {
    const struct {
        const char* text;
        std::vector<int> statuses;
    } cases[] = {
        {"", {0, 0, 0}},
        {" ; ", {0, 0, 0}},
        {"MEMclear=2012", {2012, 2012, 2012}},
        {"MEMclear*1=2012", {2012, 0, 0}},
        {"MEMclear+1=2012", {0, 2012, 2012}},
        {"MEMclear+1*1=100", {0, 100, 0}},
        {"MEMclear*1=100; MEMclear+1*1=105", {100, 0, 105}},
        {"MEMclear*2=-32768", {-32768, -32768, 0}},
        {"MEMclear=32767;STAinit=5", {32767, 32767, 32767}},
        {"STAinit=2012", {0, 0, 0}},
    };
    for (const auto& entry : cases) {
        library_.setEnvironment(environment(QString::fromLatin1(entry.text)));
        for (const int status : entry.statuses)
            EXPECT_EQ(library_.MEMclear(), status) << entry.text;
    }
}

TEST_F(Fluke702Faults, AnErrorComesInThePlaceOfTheOperationAndAWarningAfterIt) {
    const struct {
        int status;
        bool carriedOut;
    } cases[] = {{0, true},     {99, true},    {100, true},   {105, true}, {1999, true},
                 {2000, false}, {2026, false}, {3000, false}, {-1, false}};
    for (const auto& entry : cases) {
        library_.MEMclear();
        library_.setEnvironment(environment(u"MEMpromptDefn*1=%1"_s.arg(entry.status)));
        EXPECT_EQ(library_.MEMpromptDefn("KEY", "x"), entry.status);
        EXPECT_EQ(library_.MEMpromptDefn("KEY", "x"), entry.carriedOut ? BadArgument : Done) << entry.status;
    }
}

TEST_F(Fluke702Faults, EachOperationGivesAnyStatus) {
    EXPECT_EQ(operationNames().size(), 35U);
    for (const char* const name : operationNames())
        EXPECT_EQ(refusal(QString::fromLatin1(name) + u"=2026"_s), QString()) << name;
    qint32 wide = 0;
    qint16 small = 0;
    float real = 0;
    char text[40]{};
    const std::map<std::string, std::function<qint16()>> calls{
        {"DPCopen", [&] { return library_.DPCopen(9600, "COM1", 1000, 5); }},
        {"DPCclose", [&] { return library_.DPCclose(); }},
        {"DPCget70x", [&] { return library_.DPCget70x(text, text, text, &wide, &wide, &wide); }},
        {"DPCdnlStart", [&] { return library_.DPCdnlStart(&wide); }},
        {"DPCdnlStep", [&] { return library_.DPCdnlStep(&wide); }},
        {"DPCuplStart", [&] { return library_.DPCuplStart(&wide); }},
        {"DPCuplStep", [&] { return library_.DPCuplStep(&wide); }},
        {"MEMclear", [&] { return library_.MEMclear(); }},
        {"MEMstrategyDefn", [&] { return library_.MEMstrategyDefn(&wide, "S", 1, &real); }},
        {"MEMpromptDefn", [&] { return library_.MEMpromptDefn("K", "x"); }},
        {"MEMstartTask", [&] { return library_.MEMstartTask("T"); }},
        {"MEMprompt", [&] { return library_.MEMprompt("K"); }},
        {"MEMtemplate", [&] { return library_.MEMtemplate(1, 0, "T", "S", 1); }},
        {"MEMendTask", [&] { return library_.MEMendTask(); }},
        {"STAinit", [&] { return library_.STAinit(); }},
        {"STAsetTempUnits", [&] { return library_.STAsetTempUnits("celsius"); }},
        {"STAsetTref", [&] { return library_.STAsetTref("user", 0); }},
        {"STAsetTempStd", [&] { return library_.STAsetTempStd("its90"); }},
        {"STAsetPresUnits", [&] { return library_.STAsetPresUnits("psi"); }},
        {"STAsetOutput", [&] { return library_.STAsetOutput("dcv", "", 0, 0); }},
        {"STAsetInput", [&] { return library_.STAsetInput("dcv", ""); }},
        {"STAsetInputRange", [&] { return library_.STAsetInputRange(1, 0); }},
        {"STAsetLoopPower", [&] { return library_.STAsetLoopPower("off"); }},
        {"STAsetOutputScale", [&] { return library_.STAsetOutputScale(1, 0); }},
        {"STAsetInputScale", [&] { return library_.STAsetInputScale(1, 0); }},
        {"STAsetTestTolerance", [&] { return library_.STAsetTestTolerance(1); }},
        {"STAsave", [&] { return library_.STAsave(&wide); }},
        {"MEMstats", [&] { return library_.MEMstats(&wide, &wide); }},
        {"MEMrDir",
         [&] { return library_.MEMrDir(0, &small, &small, &small, &small, &small, &small, &small); }},
        {"MEMasflInfo", [&] { return library_.MEMasflInfo(0, &wide, &wide, &wide); }},
        {"MEMbaseState", [&] { return library_.MEMbaseState(0); }},
        {"MEMtagidInfo", [&] { return library_.MEMtagidInfo(0, text, text, text); }},
        {"MEMcalResult", [&] { return library_.MEMcalResult(0, &small); }},
        {"MEMcalResultEntry",
         [&] { return library_.MEMcalResultEntry(0, 0, &real, &small, &real, &real, &small, &real, &real); }},
        {"STAgetPressure", [&] { return library_.STAgetPressure(text, text, &wide); }},
    };
    EXPECT_EQ(calls.size(), operationNames().size());
    int status = 3000;
    for (const auto& [name, call] : calls) {
        library_.setEnvironment(environment(QString::fromStdString(name) + u"*1=%1"_s.arg(++status)));
        EXPECT_EQ(call(), status) << name;
        EXPECT_NE(call(), status) << name << " a second time";
    }
}

TEST_F(Fluke702Faults, ATransferBreaksOffAtTheConfiguredStep) {
    fillCalibrator();
    defineTask("A");
    defineTask("B");
    library_.setEnvironment(environment(u"DPCdnlStep+2*1=2020"_s));
    EXPECT_EQ(download(), 2020);
    EXPECT_EQ(storedMemory(), Memory());
    EXPECT_EQ(download(), Done);
    library_.setEnvironment(environment(u"DPCuplStep=100"_s));
    EXPECT_EQ(upload(), 100);
}

TEST_F(Fluke702Faults, AnUnknownFaultIsReportedAndNoLinkCanBeOpened) {
    const struct {
        const char* text;
        const char* reason;
    } cases[] = {
        {"MEMclear", "is no fault"},
        {"MEMclear=", "is no fault"},
        {"MEMclear=x", "is no fault"},
        {"MEMclear*=5", "is no fault"},
        {"MEMclear*1+1=5", "is no fault"},
        {"=5", "is no fault"},
        {"MEMclean=5", "names an operation that the library does not have"},
        {"memclear=5", "names an operation that the library does not have"},
        {"MEMclear=32768", "out of range"},
        {"MEMclear=-32769", "out of range"},
        {"MEMclear*0=5", "out of range"},
        {"MEMclear+0=5", "out of range"},
        {"MEMclear*99999999999=5", "out of range"},
        {"MEMclear=5;DPCopen=x", "is no fault"},
    };
    for (const auto& entry : cases) {
        EXPECT_TRUE(refusal(QString::fromLatin1(entry.text)).contains(QString::fromLatin1(entry.reason)))
            << entry.text;
        library_.setEnvironment(environment(QString::fromLatin1(entry.text)));
        EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), NoAnswer) << entry.text;
    }
    library_.setEnvironment(environment());
    EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), Done);
}

TEST_F(Fluke702Faults, EachCallIsRecordedWithItsStatus) {
    library_.setEnvironment({file(), u"MEMstartTask=2024"_s, folder_.path(u"record"_s)});
    const float points[] = {0, 0.1F, 1};
    qint32 id = 0;
    library_.DPCopen(9600, "COM1", 1000, 5);
    library_.MEMclear();
    library_.MEMstrategyDefn(&id, "S", 3, points);
    library_.MEMstrategyDefn(&id, "S", 51, points);
    library_.MEMpromptDefn("K", "a \"quoted\"\r\ntext \x96 \\ ");
    library_.MEMstartTask(nullptr);
    library_.STAsetOutputScale(0.022F, -1e20F);
    library_.DPCdnlStart(&id);
    library_.DPCdnlStep(&id);
    EXPECT_EQ(QString::fromUtf8(folder_.contentOf(u"record"_s)),
              u"DPCopen(9600, \"COM1\", 1000, 5) = 0\n"
              "MEMclear() = 0\n"
              "MEMstrategyDefn(\"S\", 3, [0, 0.1, 1]) = 0\n"
              "MEMstrategyDefn(\"S\", 51, []) = 2016\n"
              "MEMpromptDefn(\"K\", \"a \\\"quoted\\\"\\r\\ntext – \\\\ \") = 0\n"
              "MEMstartTask(null) = 2024\n"
              "STAsetOutputScale(0.022, -1e+20) = 0\n"
              "DPCdnlStart() = 0\n"
              "DPCdnlStep(1) = 0\n"_s);
    library_.setEnvironment(environment());
    library_.MEMclear();
    EXPECT_EQ(folder_.contentOf(u"record"_s).count('\n'), 9);
}

TEST_F(Fluke702Faults, ARecordThatCantBeWrittenIsReported) {
    library_.setEnvironment({file(), {}, folder_.path(u"nowhere/record"_s)});
    EXPECT_EQ(library_.DPCopen(9600, "COM1", 1000, 5), NoAnswer);
}

} // namespace kelvane::simulators::fluke702
