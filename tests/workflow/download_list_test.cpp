#include "resources/strings.h"
#include "tests/drivers/torquestar/torque_shop.h"
#include "workflow/download_list.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The screen as its routines see it; `events` tells what they did to it.
class ScriptedScreen final : public DownloadListScreen {
  public:
    QString calibrator() const override { return name; }
    QStringList rows() const override { return list; }
    void addRow(const QString& asset) override { list << asset; }
    void removeRow(int row) override { list.removeAt(row); }
    void emptyEntry() override { events << u"empty"_s; }
    void focusEntry() override { events << u"focus"_s; }
    void closeScreen() override { events << u"close"_s; }

    QString name = u"Crane TorqueStar IVc"_s;
    QStringList list;
    QStringList events;
};

const QStringList ended{u"empty"_s, u"focus"_s};
const QString title = u"Download Procedures To Calibrator"_s;
const QString incomplete =
    u"This instrument does not have complete configuration data! Either the calibration parameters for this instrument have not yet been set, or the test strategy has not been set or has been removed."_s;
const QString standardRequired = u"External Standard Required"_s;

} // namespace

class DownloadList : public TorqueShop {
  protected:
    DownloadList() {
        addWrenches(u"unused"_s, 3);
        addStandard(u"X-1"_s);
        addStandard(u"X-2"_s);
    }

    void add(const QString& entry) {
        script.statements.clear();
        screen.events.clear();
        addToDownloadList(calibrators, screen, entry);
    }

    /// A transducer that may be used for all wrenches.
    void addStandard(const QString& standard) {
        addInstrument(standard, u'K' + standard, transducer());
        for (const auto& asset : {u"W-1"_s, u"W-2"_s, u"W-3"_s})
            qualify(standard, asset);
    }

    void qualify(const QString& standard, const QString& asset, const QString& dueDate = {},
                 const QString& distance = u"1"_s) {
        script.answers.insert(
            selectQualification(standard, asset),
            {{u"A"_s, dueDate.isEmpty() ? std::optional<QString>() : dueDate, {}, u"B"_s, u"N"_s, u"N"_s}});
        script.answers.insert(
            u"select sum(locate(tracecodes,(select i4209 from MT.inventory where i4201 = '"_s + asset +
                u"')) - locate(tracecodes,(select i4209 from MT.inventory where i4201 = '"_s + standard +
                u"')) - trace_delta) from mt.dbconfig"_s,
            {{distance}});
    }

    static QString selectQualification(const QString& standard, const QString& asset) {
        return u"select i4209,(select c2303 from MT.calibration where c2339 = 1 and MT.calibration.mtag = MT.inventory.mtag),(select c2334 from MT.calibration where c2339 = 1 and MT.calibration.mtag = MT.inventory.mtag),(select i4209 trace from MT.inventory where i4201 = '"_s +
               asset +
               u"'),(select allow_ooc_stds from mt.hvm_kv_sysconfig),(select allow_poor_trace_stds from mt.hvm_kv_sysconfig) from MT.inventory where i4201 = '"_s +
               standard + u'\'';
    }

    static QString selectLast(const QString& asset) {
        return u"select i4201 from MT.inventory where mtag = (select standard_mtag from mt.hvm_kv_last_standards_used where mtag = "_s +
               mtagOf(asset) + u')';
    }
    static QString freeStandards(const QString& asset) {
        return u"delete from mt.hvm_kv_task_standards_inuse where mtag = "_s + mtagOf(asset) + u";commit"_s;
    }
    static QString forgetLast(const QString& asset) {
        return u"delete from mt.hvm_kv_last_standards_used where mtag = "_s + mtagOf(asset) + u";commit"_s;
    }
    static QString useStandard(const QString& standard, const QString& asset) {
        return u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ("_s +
               mtagOf(standard) + u",now(*),"_s + mtagOf(asset) + u");commit"_s;
    }
    static QString rememberLast(const QString& standard, const QString& asset) {
        return u"insert into mt.hvm_kv_last_standards_used (standard_mtag,entered_date,mtag) values ("_s +
               mtagOf(standard) + u",now(*),"_s + mtagOf(asset) + u");commit"_s;
    }

    void expectQuestion(const QString& asset, const QString& answer, bool required = true,
                        const QString& proposal = QString()) {
        ui.expectDialog(asset + u": External Standard Required"_s,
                        u"Standard to be used for this calibration:"_s, answer, [=](const DialogQuestion& q) {
                            EXPECT_EQ(q.required, required) << asset.toStdString();
                            EXPECT_EQ(q.defaultText, proposal) << asset.toStdString();
                            EXPECT_FALSE(q.fromList);
                            EXPECT_EQ(q.maxLength, 60);
                            EXPECT_EQ(q.fieldType, 0);
                        });
    }
    void expectWarning(const QString& message, const QString& heading = title) {
        ui.expectBox(message, heading, box::warning);
    }

    ScriptedScreen screen;
    Calibrators calibrators{session, {session, port}};
};

TEST_F(DownloadList, AnInstrumentIsAddedWithItsStandardAndEveryStatementIsToTheLetter) {
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"W-1"_s});
    EXPECT_EQ(screen.events, ended);
    EXPECT_EQ(ui.events.last(), u"normal"_s);
    const auto config = u"select mtag from mt.hvm_kv_tag_config where mtag = "_s;
    const QStringList expected{
        selectPackage(u"W-1"_s),
        selectMtag(u"W-1"_s),
        selectConfig(u"W-1"_s),
        selectPoints(u"W-1"_s),
        selectParams(u"W-1"_s),
        freeStandards(u"W-1"_s),
        selectLast(u"W-1"_s),
        forgetLast(u"W-1"_s),
        selectConfig(u"X-1"_s),
        selectPoints(u"X-1"_s),
        selectQualification(u"X-1"_s, u"W-1"_s),
        u"select sum(locate(tracecodes,(select i4209 from MT.inventory where i4201 = 'W-1')) - locate(tracecodes,(select i4209 from MT.inventory where i4201 = 'X-1')) - trace_delta) from mt.dbconfig"_s,
        useStandard(u"X-1"_s, u"W-1"_s),
        forgetLast(u"W-1"_s),
        rememberLast(u"X-1"_s, u"W-1"_s),
    };
    EXPECT_EQ(script.statements, expected);
    EXPECT_TRUE(script.firstRowOnly.contains(selectLast(u"W-1"_s)));
}

TEST_F(DownloadList, FurtherStandardsAreAskedForUntilAnEmptyAnswerAndOnlyTheFirstIsRemembered) {
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, u"X-2"_s, false);
    expectQuestion(u"W-1"_s, QString(), false);
    add(u"W-1"_s);
    EXPECT_EQ(writes(), (QStringList{freeStandards(u"W-1"_s), forgetLast(u"W-1"_s),
                                     useStandard(u"X-1"_s, u"W-1"_s), forgetLast(u"W-1"_s),
                                     rememberLast(u"X-1"_s, u"W-1"_s), useStandard(u"X-2"_s, u"W-1"_s)}));
}

TEST_F(DownloadList, TheLastStandardIsProposedAndForgottenBeforeTheAnswer) {
    script.answers.insert(selectLast(u"W-1"_s), {{u"X-2"_s}});
    expectQuestion(u"W-1"_s, u"*CANCEL*"_s, true, u"X-2"_s);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(screen.events, ended);
    EXPECT_EQ(writes(), (QStringList{freeStandards(u"W-1"_s), forgetLast(u"W-1"_s)}));
}

TEST_F(DownloadList, ARequiredNameOfBlanksCountsAsCancelled) {
    expectQuestion(u"W-1"_s, QString());
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
}

TEST_F(DownloadList, CancellingAfterOneStandardWasAcceptedLeavesThatStandardsRow) {
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, u"*CANCEL*"_s, false);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(writes().filter(useStandard(u"X-1"_s, u"W-1"_s)).size(), 1);
    EXPECT_EQ(writes().last(), rememberLast(u"X-1"_s, u"W-1"_s));
}

TEST_F(DownloadList, EachRefusalOfAStandardAsksAgain) {
    addInstrument(u"LOW"_s, u"1"_s, transducer());
    qualify(u"LOW"_s, u"W-1"_s, {}, u"-1"_s);
    addInstrument(u"OLD"_s, u"2"_s, transducer());
    qualify(u"OLD"_s, u"W-1"_s, u"2026-03-17"_s);
    addInstrument(u"NONE"_s, u"3"_s, transducer()); // without a row in the inventory of standards
    addInstrument(u"TRACE"_s, u"4"_s, transducer());
    script.answers.insert(selectQualification(u"TRACE"_s, u"W-1"_s), {{u"A"_s, {}, {}, {}, u"N"_s, u"N"_s}});
    const auto ask = [&](const QString& answer) { expectQuestion(u"W-1"_s, answer, true, u"X-2"_s); };
    script.answers.insert(selectLast(u"W-1"_s), {{u"X-2"_s}});
    ask(u"w-1"_s);
    expectWarning(u"W-1: An asset cannot calibrate itself!"_s);
    ask(u"unconfigured"_s);
    expectWarning(u"W-1: "_s + incomplete);
    ask(u"LOW"_s);
    expectWarning(u"Standard is not of a high enough trace level to calibrate: W-1"_s, standardRequired);
    ask(u"OLD"_s);
    expectWarning(u"Standard is overdue for calibration!"_s, standardRequired);
    ask(u"NONE"_s); // neither these two say a word
    ask(u"TRACE"_s);
    ask(u"X-1"_s);
    expectQuestion(u"W-1"_s, u"W-1"_s, false);
    expectWarning(u"W-1: An asset cannot calibrate itself!"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"W-1"_s});
    EXPECT_EQ(writes().filter(u"insert"_s).size(), 2);
}

TEST_F(DownloadList, AnEmptyEntryDoesNothing) {
    add(QString());
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(screen.events, QStringList());
}

TEST_F(DownloadList, AnEntryThatIsListedIsToldInAnyCaseAlsoBehindAnArrow) {
    screen.list = {u"other"_s, u"Größe-1"_s, u">PACK"_s};
    for (const auto& entry : {u"OTHER"_s, u"GRÖßE-1"_s, u"größe-1"_s, u"pack"_s, u">pack"_s}) {
        expectWarning(u"Instrument already listed!"_s);
        add(entry);
        EXPECT_EQ(script.statements, QStringList()) << entry.toStdString();
        EXPECT_EQ(screen.events, ended);
    }
    EXPECT_EQ(screen.list.size(), 3);
}

TEST_F(DownloadList, WhatIsWrongWithASingleInstrumentIsToldInTheOrderOfTheChecks) {
    expectWarning(u"Must enter a valid instrument number!"_s);
    add(u"nobody"_s);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"nobody"_s), selectMtag(u"nobody"_s)}));
    EXPECT_EQ(screen.events, ended);

    script.answers.insert(selectMtag(u"bare"_s), {{u"5"_s}});
    expectWarning(incomplete);
    add(u"bare"_s);
    EXPECT_EQ(screen.events, ended);

    auto tool = wrench();
    tool.input_indicated = true;
    addInstrument(u"W-1"_s, u"KW-1"_s, tool);
    expectWarning(u"W-1: Calibrator cannot calibrate instruments that have indicated inputs!"_s);
    add(u"W-1"_s);
    EXPECT_EQ(writes(), QStringList());
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(DownloadList, APackagePassesOverUnknownAndUnconfiguredMembersInSilenceAndTellsOfUnacceptableOnes) {
    script.answers.insert(selectMtag(u"bare"_s), {{u"5"_s}});
    auto tool = wrench();
    tool.input_type = u"psi"_s;
    addInstrument(u"P-1"_s, u"KP-1"_s, tool);
    addPackage(u"PACK"_s, {u"nobody"_s, u"W-1"_s, u"bare"_s, u"P-1"_s, u"W-2"_s});
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    expectWarning(u"P-1: TorqueStar cannot accept selected input units!"_s);
    expectQuestion(u"W-2"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, (QStringList{u"W-1"_s, u"W-2"_s}));
}

TEST_F(DownloadList, OnlyTheFirstStandardOfAPackageIsRequiredProposedAndRemembered) {
    script.answers.insert(selectLast(u"W-1"_s), {{u"X-1"_s}});
    script.answers.insert(selectLast(u"W-2"_s), {{u"X-2"_s}});
    addPackage(u"PACK"_s, {u"W-1"_s, u"W-2"_s, u"W-3"_s});
    expectQuestion(u"W-1"_s, u"X-1"_s, true, u"X-1"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    expectQuestion(u"W-2"_s, u"X-2"_s, false);
    expectQuestion(u"W-2"_s, QString(), false);
    expectQuestion(u"W-3"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, (QStringList{u"W-1"_s, u"W-2"_s, u"W-3"_s}));
    EXPECT_EQ(writes(),
              (QStringList{freeStandards(u"W-1"_s), forgetLast(u"W-1"_s), useStandard(u"X-1"_s, u"W-1"_s),
                           forgetLast(u"W-1"_s), rememberLast(u"X-1"_s, u"W-1"_s), freeStandards(u"W-2"_s),
                           forgetLast(u"W-2"_s), useStandard(u"X-2"_s, u"W-2"_s), freeStandards(u"W-3"_s),
                           forgetLast(u"W-3"_s)}));
}

TEST_F(DownloadList, AfterACancelledMemberTheNextOneIsStillRequiredWithItsOwnProposal) {
    script.answers.insert(selectLast(u"W-1"_s), {{u"X-1"_s}});
    addPackage(u"PACK"_s, {u"W-1"_s, u"W-2"_s});
    expectQuestion(u"W-1"_s, u"*CANCEL*"_s, true, u"X-1"_s);
    expectQuestion(u"W-2"_s, u"X-2"_s, true, QString());
    expectQuestion(u"W-2"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, QStringList{u"W-2"_s});
}

TEST_F(DownloadList, ASecondAddOfAPackagePassesOverItsMembersSilently) {
    addPackage(u"PACK"_s, {u"W-1"_s, u"W-2"_s});
    screen.list = {u"w-1"_s, u"W-2"_s};
    add(u"PACK"_s);
    EXPECT_EQ(screen.list.size(), 2);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"PACK"_s), selectMembers(u"PACK"_s)}));
    EXPECT_EQ(screen.events, ended);
}

TEST_F(DownloadList, APackageThatNamesAMemberTwiceTakesItOnce) {
    addPackage(u"PACK"_s, {u"W-1"_s, u"w-1"_s});
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, QStringList{u"W-1"_s});
}

TEST_F(DownloadList, TheTorqueStarTakesFortySevenRowsAndRefusesAPackageAsAWhole) {
    QStringList ten;
    for (int i = 0; i < 10; ++i) {
        ten << u"P-%1"_s.arg(i);
        addInstrument(ten.last(), u'K' + ten.last(), wrench());
        qualify(u"X-1"_s, ten.last());
    }
    addPackage(u"TEN"_s, ten);
    const struct {
        qsizetype listed;
        QString entry;
        bool refused;
    } cases[] = {
        {38, u"TEN"_s, true}, {37, u"TEN"_s, false}, {46, u"W-1"_s, false},
        {47, u"W-1"_s, true}, {48, u"W-1"_s, true},
    };
    for (const auto& one : cases) {
        screen.list = QStringList(one.listed, u"row"_s);
        const auto members = one.entry == u"TEN"_s ? ten : QStringList{one.entry};
        if (one.refused) {
            expectWarning(u"Maximum number of instruments has been reached for the selected calibrator!"_s);
        } else {
            expectQuestion(members.first(), u"X-1"_s);
            for (const auto& asset : members)
                expectQuestion(asset, QString(), false);
        }
        add(one.entry);
        EXPECT_EQ(screen.list.size(), one.refused ? one.listed : 47);
        EXPECT_EQ(screen.events, ended);
        EXPECT_EQ(ui.events.last(), u"normal"_s);
    }
}

TEST_F(DownloadList, OtherCalibratorsHaveNoSuchLimitAndNeedNoParametersOfTheStandard) {
    for (const auto& name : {u"Fluke 702"_s, u"Fluke 743/744"_s}) {
        screen.name = name;
        screen.list = QStringList(100, u"row"_s);
        expectWarning(u"W-1: The driver for this calibrator is not part of this version yet."_s);
        add(u"W-1"_s);
    }
    screen.name = u"nameless"_s;
    add(u"W-1"_s);
    EXPECT_EQ(screen.list.last(), u"W-1"_s) << "a calibrator that is none accepts all and asks for nothing";
    EXPECT_EQ(writes(), QStringList{freeStandards(u"W-1"_s)});
}

TEST_F(DownloadList, AnErrorIsReportedUnderTheButtonsNameAndTheHourglassGoes) {
    script.failures.insert(freeStandards(u"W-1"_s), Error{-210, u"locked"_s});
    ui.expectReport(-210, u"FormDockingDown,CommandAdd"_s);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(ui.events.last(), u"normal"_s);

    script.failures.clear();
    script.answers.insert(selectLast(u"W-1"_s), {{std::nullopt}});
    ui.expectReport(94, u"FormDockingDown,CommandAdd"_s);
    add(u"W-1"_s);
}

TEST_F(DownloadList, AnAnswerWithAQuoteBreaksItsStatementAndIsReported) {
    const auto quoted = u"O'Neil"_s;
    addInstrument(quoted, u"9"_s, transducer());
    script.answers.insert(
        u"select mtag from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = 'O''Neil')"_s,
        {{u"9"_s}});
    script.answers.insert(
        u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = 'O''Neil'))"_s,
        {{u"1"_s}});
    script.answers.insert(selectQualification(u"O''Neil"_s, u"W-1"_s),
                          {{u"A"_s, {}, {}, u"B"_s, u"Y"_s, u"Y"_s}});
    script.failures.insert(useStandard(quoted, u"W-1"_s), Error{-131, u"Syntax error"_s});
    expectQuestion(u"W-1"_s, quoted);
    ui.expectReport(-131, u"FormDockingDown,CommandAdd"_s);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
}

TEST_F(DownloadList, AnotherScreenThatFillsTheAssetListMeanwhileDoesNoHarm) {
    addPackage(u"PACK"_s, {u"W-1"_s, u"W-2"_s});
    ui.expectDialog(u"W-1: External Standard Required"_s, u"Standard to be used for this calibration:"_s,
                    u"X-1"_s, [&](const DialogQuestion&) { session.AssetList.erase(); });
    expectQuestion(u"W-1"_s, QString(), false);
    expectQuestion(u"W-2"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, (QStringList{u"W-1"_s, u"W-2"_s}));
}

TEST_F(DownloadList, ARowIsRemovedWithItsStandards) {
    screen.list = {u"W-1"_s, u"W-2"_s, u"W-3"_s};
    removeFromDownloadList(calibrators, screen, 1);
    EXPECT_EQ(screen.list, (QStringList{u"W-1"_s, u"W-3"_s}));
    EXPECT_EQ(screen.events, QStringList{u"focus"_s});
    EXPECT_EQ(script.statements, QStringList{freeStandards(u"W-2"_s)});
}

TEST_F(DownloadList, WithNoRowSelectedNothingIsRemoved) {
    screen.list = {u"W-1"_s};
    for (const int row : {-1, 1, 99})
        removeFromDownloadList(calibrators, screen, row);
    EXPECT_EQ(screen.list.size(), 1);
    EXPECT_EQ(screen.events, QStringList());
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(DownloadList, ARowWhoseStandardsCannotBeFreedStays) {
    screen.list = {u"W-1"_s};
    script.failures.insert(freeStandards(u"W-1"_s), Error{-210, u"locked"_s});
    ui.expectReport(-210, u"FormDockingDown,CommandRemove"_s);
    removeFromDownloadList(calibrators, screen, 0);
    EXPECT_EQ(screen.list.size(), 1);
}

/// The list on its way to the calibrator, as a temporary package.
class ListDownload : public DownloadList {
  protected:
    ListDownload() {
        screen.list = {u"W-1"_s, u"W-2"_s};
        // The tag is known once the package has been made; the driver then asks for its members.
        peer.reply = [this, inner = peer.reply](const QByteArray& body) {
            if (body == "T0A")
                addPackage(tag(), screen.list);
            return inner(body);
        };
    }

    void download() {
        script.statements.clear();
        downloadList(calibrators, screen);
    }

    QString tag() const {
        for (const auto& one : script.statements) {
            if (one.startsWith(u"insert into mt.hvm_kv_task_packages"_s))
                return one.section(u'\'', 1, 1);
        }
        return {};
    }

    QStringList packageStatements() const {
        return writes().filter(QRegularExpression(u"hvm_kv_task_(packages|assets)"_s));
    }
};

TEST_F(ListDownload, CarriesTheListAsAPackageAndRemovesItAfterSuccess) {
    ui.expectBox(u"Download Successful"_s, title, box::information);
    download();
    EXPECT_TRUE(QRegularExpression(u"^[0-9A-Z]{30}$"_s).match(tag()).hasMatch()) << tag().toStdString();
    EXPECT_EQ(
        packageStatements(),
        (QStringList{
            u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values ('%1','WSHT','jdoe',now(*),'%1');commit"_s
                .arg(tag()),
            u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('%1',(select mtag from MT.inventory where i4201 = 'W-1'));commit"_s
                .arg(tag()),
            u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('%1',(select mtag from MT.inventory where i4201 = 'W-2'));commit"_s
                .arg(tag()),
            u"delete from mt.hvm_kv_task_assets where tptag = '%1';delete from mt.hvm_kv_task_packages where tptag = '%1';commit"_s
                .arg(tag())}));
    EXPECT_EQ(script.statements.last(), packageStatements().last());
    EXPECT_EQ(conversation().last(), u"T2C"_s);
    EXPECT_EQ(settings.writes, QStringList{u"Defaults/LastDownloadCalibrator=Crane TorqueStar IVc"_s});
    EXPECT_EQ(screen.events, QStringList{u"close"_s});
}

TEST_F(ListDownload, AFailureKeepsFormListAndPackageAndALaterTryMakesANewOne) {
    replies["T2C"] << std::nullopt;
    expectWarning(u"Communications Timeout on Command Acknowledgement"_s);
    download();
    EXPECT_EQ(screen.events, QStringList());
    EXPECT_EQ(screen.list.size(), 2);
    EXPECT_EQ(settings.writes, QStringList());
    EXPECT_EQ(packageStatements().size(), 3);
    const auto first = tag();

    ui.expectBox(u"Download Successful"_s, title, box::information);
    download();
    EXPECT_NE(tag(), first);
    EXPECT_EQ(screen.events, QStringList{u"close"_s});
}

TEST_F(ListDownload, OfAnEmptyListDoesNothing) {
    screen.list.clear();
    download();
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(screen.events, QStringList());
}

TEST_F(ListDownload, IsStartedByTypingItsWordInAnyCase) {
    for (const auto& word : {u"Download"_s, u"download"_s, u"DOWNLOAD"_s}) {
        ui.expectBox(u"Download Successful"_s, title, box::information);
        add(word);
        EXPECT_EQ(screen.events, (QStringList{u"empty"_s, u"close"_s}));
        EXPECT_TRUE(ui.events.contains(u"events"_s));
    }
    screen.list.clear();
    add(u"download"_s);
    EXPECT_EQ(screen.events, QStringList{u"empty"_s});
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(ListDownload, AnErrorIsReportedUnderItsName) {
    script.lost = true;
    ui.expectReport(10054, u"FormDockingDown,Download"_s);
    download();
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(screen.events, QStringList());
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(ListDownload, ACalibratorWithoutADriverKeepsTheList) {
    screen.name = u"Fluke 702"_s;
    expectWarning(u"The driver for this calibrator is not part of this version yet."_s);
    download();
    EXPECT_EQ(packageStatements().size(), 3);
    EXPECT_EQ(screen.events, QStringList());
}

TEST_F(ListDownload, ANameThatIsNoCalibratorEndsInSuccessHavingDoneNothing) {
    screen.name = u"nameless"_s;
    ui.expectBox(u"Download Successful"_s, title, box::information);
    download();
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(settings.writes, QStringList{u"Defaults/LastDownloadCalibrator=nameless"_s});
    EXPECT_EQ(screen.events, QStringList{u"close"_s});
}

} // namespace kelvane::testing
