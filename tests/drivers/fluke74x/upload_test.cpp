#include "tests/drivers/fluke74x/upload_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(Fluke74xUpload, ARunBecomesARecordWithItsFieldsStandardsAndLines) {
    ModuleGlobals::AddInUse(session, u"7112044"_s, u"1401"_s, u"asmith"_s);
    addGroup();
    addRun({at(0, 0.5F), at(50, 52.5F, 2.5F), at(100, 100)}).time = {4, 18, 2026, 23, 59, 58};
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(
        records(u"mtag || '|' || cdsrc || '|' || c2301 || '|' || c2333 || '|' || c2323 || '|' || c2352 || "
                "'|' || c2320 || '|' || c2308 || '|' || c2307 || '|' || c2350"_s),
        QStringList{u"1401|KVN|2026-04-18|23:59:58|Y|0|ROUND|FOUND-LEFT|Joe Doe|1"_s});
    EXPECT_EQ(lines(), (QStringList{u"1 0.000V 0.500V PASS"_s, u"2 50.000V 52.500V PASS MARGINAL"_s,
                                    u"3 100.000V 100.000V PASS"_s}));
    EXPECT_EQ(standards(), QStringList{u"1103"_s}) << "the calibrator is in use with the instrument";
    EXPECT_EQ(Journal(session).unfinished().size(), 0);
}

TEST_F(Fluke74xUpload, TheImageIsReadByExactlyTheseCalls) {
    auto& group = addGroup();
    addRun({at(50, 50)});
    group.atoms << StoredAtom{.kind = otherKind};
    addGroup();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(link.calls, (QStringList{
                              u"MEM3clear()"_s,
                              u"DPC3close()"_s,
                              u"DPC3open(9600, \"COM1\", 1000, 5)"_s,
                              u"DPC3get74X()"_s,
                              u"DPC3mapStart()"_s,
                              u"DPC3uplStart()"_s,
                              u"DPC3uplStart()"_s,
                              u"DPC3close()"_s,
                              u"MEM3ngroups(2)"_s,
                              u"MEM3natoms(2, 0)"_s,
                              u"MEM3groupDir(2, 0)"_s,
                              u"MEM3atomDir(2, 0, 0)"_s,
                              u"MEM3taskResultRefInfo(2, 0, 0)"_s,
                              u"MEM3atomDir(2, 0, 1)"_s,
                              u"MEM3atomDir(2, 0, 2)"_s,
                              u"MEM3instrCalResultInfo(2, 0, 2)"_s,
                              u"MEM3instrCalResultStepInfo(2, 0, 2, 0)"_s,
                              u"STA3restore(1, 101, 201)"_s,
                              u"STA3getBktListInfo(\"root\")"_s,
                              u"STA3getBktName(\"root\", 0)"_s,
                              u"STA3getType(\"root\", \"sprimary\")"_s,
                              u"STA3getFloat(\"root\", \"sprimary\")"_s,
                              u"STA3getBktName(\"root\", 1)"_s,
                              u"STA3getType(\"root\", \"mprimary\")"_s,
                              u"STA3getFloat(\"root\", \"mprimary\")"_s,
                              u"STA3getBktName(\"root\", 2)"_s,
                              u"STA3getType(\"root\", \"tol\")"_s,
                              u"STA3getFloat(\"root\", \"tol\")"_s,
                              u"STA3getBktName(\"root\", 3)"_s,
                              u"STA3getType(\"root\", \"error\")"_s,
                              u"STA3getFloat(\"root\", \"error\")"_s,
                              u"MEM3atomDir(2, 0, 3)"_s,
                              u"MEM3instrTagInfo(2, 0, 3)"_s,
                              u"MEM3atomDir(2, 0, 4)"_s,
                              u"MEM3natoms(2, 1)"_s,
                              u"MEM3groupDir(2, 1)"_s,
                              u"MEM3atomDir(2, 1, 0)"_s,
                              u"MEM3taskResultRefInfo(2, 1, 0)"_s,
                          }));
}

TEST_F(Fluke74xUpload, WithoutALibraryNothingElseHappens) {
    link.reasonMissing = u"no library"_s;
    addGoodRun();
    EXPECT_EQ(upload(), u"no library"_s);
    EXPECT_EQ(link.calls, QStringList());
    EXPECT_EQ(ui.events, QStringList());
}

TEST_F(Fluke74xUpload, AnEmptyCalibratorIsASuccess) {
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList());
    EXPECT_EQ(link.calls.last(), u"MEM3ngroups(2)"_s);
}

TEST_F(Fluke74xUpload, GroupsWithoutAtomsAndClaimsOfNoneAreEmpty) {
    link.groups << StoredGroup{};
    addGoodRun();
    link.groups.last().claimedAtoms = -1;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(link.callsOf(u"MEM3atomDir"_s), QStringList());
    link.claimedGroups = -1;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(Fluke74xUpload, AtomsOfOtherKindsArePassedOver) {
    auto& group = addGroup();
    for (const qint16 kind : {qint16{-32768}, qint16{-4}, qint16{0}, qint16{3}, qint16{5}, qint16{10},
                              qint16{12}, qint16{17}, qint16{19}, qint16{32767}})
        group.atoms << StoredAtom{.kind = kind};
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(link.callsOf(u"MEM3atomDir"_s).size(), 11);
    EXPECT_EQ(link.calls.last(), u"MEM3atomDir(2, 0, 10)"_s);
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(Fluke74xUpload, ATagWithoutResultsBeforeItIsReadAndDoesNotCount) {
    auto& group = addGroup();
    group.atoms << StoredAtom{.kind = tagKind, .tag = u"PT-101"_s};
    addRun(good());
    link.groups.last().atoms << StoredAtom{.kind = tagKind, .tag = u"PT-101"_s};
    link.groups.last().claimedAtoms = 6; // as many as one run has
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(link.callsOf(u"MEM3instrTagInfo"_s).size(), 1);
    link.groups.last().claimedAtoms.reset();
    link.groups.last().atoms[5].time.hour = 20;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(link.callsOf(u"MEM3instrTagInfo"_s).size(), 4);
    EXPECT_EQ(verdicts(), QStringList{u"AS-FOUND Y 0 0"_s}) << "the first run, of a group that holds more";
}

TEST_F(Fluke74xUpload, RunsAreOfTheInstrumentOfTheTagBehindThem) {
    addGoodRun(u"PT-101"_s);
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), (QStringList{u"1401"_s, u"1402"_s}));
    EXPECT_EQ(verdicts(), QStringList(2, u"FOUND-LEFT Y 0 0"_s)) << "each the first of its group";
}

// As found and as left.

TEST_F(Fluke74xUpload, TwoRunsOfAGroupAreAsFoundAndAsLeft) {
    addGroup();
    addRun(bad()).time = {3, 18, 2026, 8, 0, 0};
    addRun(good()).time = {3, 18, 2026, 9, 0, 0};
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND N 1 0"_s, u"AS-LEFT Y 0 0"_s}));
    EXPECT_EQ(records(u"c2333"_s), (QStringList{u"08:00:00"_s, u"09:03:00"_s}))
        << "the second one is moved by as many minutes as it has steps";
    EXPECT_EQ(records(u"c2339"_s), (QStringList{u"(null)"_s, u"1"_s})) << "the later one is current";
}

TEST_F(Fluke74xUpload, ThreeRunsOfAGroupAreAsFoundAndTwiceAsLeftAlsoWhenTheyFail) {
    addGroup();
    addRun(good());
    addRun(bad());
    addRun(good()).time.hour = 12;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND Y 0 0"_s, u"AS-LEFT N 1 0"_s, u"AS-LEFT Y 0 0"_s}));
    EXPECT_EQ(lines().size(), 9);
}

TEST_F(Fluke74xUpload, TheRoundOfAFirstRunFollowsFromTheTrueQuotientAndItsVerdict) {
    // Three steps: the quotient is 1 at six atoms.
    const struct {
        qint32 atoms;
        bool passes;
        QString round;
    } rows[] = {
        {6, true, u"FOUND-LEFT Y 0 0"_s}, {6, false, u"AS-FOUND N 1 0"_s}, {7, true, u"AS-FOUND Y 0 0"_s},
        {7, false, u"AS-FOUND N 1 0"_s},  {8, true, u"AS-FOUND Y 0 0"_s},  {9, true, u"AS-FOUND Y 0 0"_s},
        {12, true, u"AS-FOUND Y 0 0"_s},
    };
    qint16 minute = 0;
    for (const auto& row : rows) {
        link.groups.clear();
        (row.passes ? addGoodRun() : addBadRun()).time.minute = minute++;
        auto& atoms = link.groups.last().atoms;
        while (atoms.size() < row.atoms)
            atoms << StoredAtom{.kind = otherKind};
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(verdicts().last(), row.round) << row.atoms;
    }
}

TEST_F(Fluke74xUpload, AQuotientBelowOneIsOfOneRun) {
    auto& group = addGroup();
    StoredAtom run{.kind = runKind, .steps = good()};
    group.atoms << run << StoredAtom{.kind = tagKind, .tag = u"PT-101"_s, .technician = u"Joe Doe"_s};
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
}

TEST_F(Fluke74xUpload, ALaterRunIsMovedOverMidnightAndTheEndOfTheYear) {
    const struct {
        Dpclnk3::RunTime stored;
        QString moved;
    } rows[] = {
        {{3, 18, 2026, 8, 15, 30}, u"2026-03-18 08:18:30"_s},
        {{3, 18, 2026, 23, 56, 59}, u"2026-03-18 23:59:59"_s},
        {{3, 18, 2026, 23, 57, 0}, u"2026-03-19 00:00:00"_s},
        {{2, 28, 2028, 23, 58, 30}, u"2028-02-29 00:01:30"_s},
        {{2, 28, 2026, 23, 58, 30}, u"2026-03-01 00:01:30"_s},
        {{12, 31, 2026, 23, 58, 30}, u"2027-01-01 00:01:30"_s},
    };
    int hour = 0;
    for (const auto& row : rows) {
        link.groups.clear();
        addGroup();
        addRun(good()).time = {1, 1, 2020, static_cast<qint16>(hour++), 0, 0};
        addRun(good()).time = row.stored;
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(records(u"c2301 || ' ' || c2333"_s).last(), row.moved);
    }
}

TEST_F(Fluke74xUpload, TwoRunsOfTheSameTimeStampMakeTwoRecordsAndAThirdIsRefused) {
    addGroup();
    for (int run = 0; run < 3; ++run)
        addRun(good()).time = {3, 18, 2026, 8, 15, 30};
    expectRefusal(); // the second and the third are moved by the same minutes
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"c2333"_s), (QStringList{u"08:15:30"_s, u"08:18:30"_s}));
}

TEST_F(Fluke74xUpload, TheMonthIsTheMonthWhateverTheSessionWritesFirst) {
    int minute = 0;
    for (const auto& format : {u"MM/DD/YYYY"_s, u"DD/MM/YYYY"_s, u"YYYY/MM/DD"_s, QString()}) {
        session.SessionDateFormat = format;
        link.groups.clear();
        addGoodRun().time = {3, 4, 2026, 8, static_cast<qint16>(++minute), 0};
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(records(u"c2301"_s).last(), u"2026-03-04"_s) << format.toStdString();
    }
}

// The technician.

TEST_F(Fluke74xUpload, TheTechnicianIsTheTagsUnlessItIsTheSerialNumberOrNone) {
    ModuleGlobals::AddInUse(session, u"7112044"_s, u"1401"_s, u"asmith"_s);
    const struct {
        QString stored;
        QString recorded;
    } rows[] = {
        {u"Joe Doe"_s, u"Joe Doe"_s}, {u"7112044"_s, u"asmith"_s},    {u" 7112044 "_s, u"asmith"_s},
        {u"None"_s, u"asmith"_s},     {u"none"_s, u"asmith"_s},       {u"NONE"_s, u"asmith"_s},
        {u" None "_s, u"asmith"_s},   {u"Nonesuch"_s, u"Nonesuch"_s}, {u"71120"_s, u"71120"_s},
        {u"O'Neill"_s, u"O'Neill"_s}, {QString(), u"(null)"_s},       {u"Ключ Ω"_s, u"Ключ Ω"_s},
    };
    qint16 minute = 0;
    for (const auto& row : rows) {
        link.groups.clear();
        addGoodRun().time.minute = ++minute;
        lastTag().technician = row.stored;
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(records(u"c2307"_s).last(), row.recorded) << row.stored.toStdString();
    }
}

TEST_F(Fluke74xUpload, ASerialNumberWithLettersNeverStandsForTheTechnician) {
    execute(u"update mt.inventory set i4206 = '71A2044' where mtag = '1103'"_s);
    link.serial = u"71A2044"_s;
    ModuleGlobals::AddInUse(session, u"71A2044"_s, u"1401"_s, u"asmith"_s);
    addGoodRun();
    lastTag().technician = u"71A2044"_s;
    addGoodRun();
    lastTag().technician = u"71a2044"_s;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"c2307"_s), (QStringList{u"71A2044"_s, u"71a2044"_s}));
}

TEST_F(Fluke74xUpload, WithoutARowInTheRegistryNoneBecomesNoTechnician) {
    addGoodRun();
    lastTag().technician = u"None"_s;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"c2307"_s), QStringList{u"(null)"_s});
}

TEST_F(Fluke74xUpload, TextsOfTheTagAreReadInto33BlanksAndCleaned) {
    addGoodRun();
    lastTag().tag = u" PT-101 "_s;
    QStringList buffers;
    link.writeText = [&](const QString& text, const QString& buffer) {
        buffers << buffer;
        return text + QChar(0) + u"behind"_s;
    };
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(buffers.last(3), QStringList(3, QString(33, u' ')));
    EXPECT_EQ(records(u"mtag || c2307"_s), QStringList{u"1401Joe Doe"_s});
}

TEST_F(Fluke74xUpload, TheRegistryStaysAndNothingIsRemovedFromTheCalibrator) {
    ModuleGlobals::AddInUse(session, u"7112044"_s, u"1401"_s, u"asmith"_s);
    addGoodRun();
    const auto query = u"select mtag from mt.hvm_kv_task_inuse union all select standard_mtag from "
                       "mt.hvm_kv_task_standards_inuse"_s;
    const auto before = values(query);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(values(query), before);
    EXPECT_EQ(link.callsOf(u"MEM3clear"_s).size(), 1) << "of the image, before it is read";
}

TEST_F(Fluke74xUpload, TheSecondUploadCreatesNothingTwice) {
    addBadRun();
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    const auto made = verdicts();
    const auto linesMade = lines();
    EXPECT_EQ(made.size(), 2);
    expectRefusal();
    expectRefusal();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), made);
    EXPECT_EQ(lines(), linesMade);
    EXPECT_EQ(Journal(session).unfinished().size(), 0) << "a refusal ends an entry";
}

} // namespace kelvane::testing
