#include "simulators/torquestar/memory_file.h"
#include "tests/end_to_end/torque_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Wrenches like TW-101 under unusual asset numbers.
class OddNames : public TorqueEndToEnd {
  protected:
    OddNames() {
        execute(u"create temp table tool as select * from mt.inventory where i4201 = 'TW-101'"_s);
        execute(
            u"create temp table parameters as select * from mt.hvm_kv_tag_config where mtag = (select mtag from tool)"_s);
    }

    static QString quote(const QString& text) {
        return u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\'';
    }

    void addTool(const QString& asset) {
        const auto mtag = QString::number(9000 + ++tools_);
        execute(u"update tool set mtag = '%1', i4201 = %2, i4206 = 'odd %1'"_s.arg(mtag, quote(asset)));
        execute(u"insert into mt.inventory select * from tool"_s);
        execute(u"update parameters set mtag = '%1'"_s.arg(mtag));
        execute(u"insert into mt.hvm_kv_tag_config select * from parameters"_s);
    }

    /// The calibrator's readings of a name.
    void carryOutNames(const QStringList& names) {
        QString plan;
        for (const auto& name : names)
            plan += name + u"; 50, 150, 250; 0.4; ; "_s + workDay() + u" 08:00\n"_s;
        carryOutPlan(plan);
    }

    /// A task package of the first odd tool and TW-101.
    void addPackageWithTw101() {
        execute(
            u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values ('%1','WSHT','jdoe',now(*),'%1')"_s
                .arg(package));
        for (const auto& mtag : {u"1301"_s, u"9001"_s})
            execute(
                u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('%1','%2')"_s.arg(package, mtag));
    }
    void useStandard(const QString& mtag) {
        execute(
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('1001',now(*),'%1')"_s
                .arg(mtag));
    }

    void expectQuestion(const QString& answer) {
        ui.expectDialog(u"TW-101: "_s + text(TextId::externalStandardRequired), text(TextId::standardToUse),
                        answer);
    }

    /// A text that the engine can't read as a statement.
    static constexpr int badStatement = 1;
    const QString package = u"ODD TOOLS"_s;
    const QString transducer = u"TT-0300F"_s;
    const QStringList whole{u"Y|2|3"_s};

  private:
    int tools_ = 0;
};

TEST_F(OddNames, RunEndToEndByTheirFirstElevenCharactersInTheCalibratorsAlphabet) {
    const struct {
        QString asset;
        QString name;
    } tools[] = {
        {QString(200, u'X'), u"XXXXXXXXXXX"_s},
        {u"Ключ №1"_s, u"???? ?1"_s},
        {u"ΚΛΕΙΔΙ 2"_s, u"?????? 2"_s},
        {u"Schlüssel €3"_s, u"Schlüssel €"_s},
        {u"扭矩扳手 4"_s, u"???? 4"_s},
        {u"wrench 🔧"_s, u"wrench ?"_s},
        {u"1234567890🔧"_s, u"1234567890?"_s}, // half of a character fits
        {u"%_-- : \"\\ x 9"_s, u"%_-- : \"\\ x"_s},
    };
    QStringList names;
    for (const auto& tool : tools) {
        SCOPED_TRACE(tool.asset.toStdString());
        addTool(tool.asset);
        list(tool.asset, transducer);
        names << tool.name;
    }
    download();
    EXPECT_EQ(storedNames(), names);
    carryOutNames(names);
    expectChoice();
    for (const auto& tool : tools)
        expectRecord(tool.asset);
    pressUpload();
    for (const auto& tool : tools)
        EXPECT_EQ(records(tool.asset), whole) << tool.asset.toStdString();
    EXPECT_EQ(held(), simulators::Memory());
    EXPECT_EQ(registered(), QStringList());
}

// The second replaces the first on the calibrator; the results then go to the record of the first, which
// comes up first, and the second has none.
TEST_F(OddNames, ThatAreTheSameOnTheCalibratorShareOneCharacteristic) {
    const struct {
        QString first;
        QString second;
        QString name;
    } pairs[] = {
        {u"LONG-ASSET-NUMBER-1"_s, u"LONG-ASSET-NUMBER-2"_s, u"LONG-ASSET-"_s},
        {u"Ключ 9"_s, u"ΡΟΠΗ 9"_s, u"???? 9"_s},
    };
    for (const auto& pair : pairs) {
        SCOPED_TRACE(pair.second.toStdString());
        screen.list.clear();
        for (const auto& asset : {pair.first, pair.second}) {
            addTool(asset);
            list(asset, transducer);
        }
        download();
        EXPECT_EQ(registered().size(), 2);
        EXPECT_EQ(storedNames(), QStringList{pair.name});
        carryOutNames({pair.name});
        upload({pair.first}, messages::noData({pair.second.left(11)}));
        EXPECT_EQ(records(pair.first), whole);
        EXPECT_EQ(records(pair.second), QStringList());
    }
}

TEST_F(OddNames, WithAQuoteAreReportedAndRefusedAtTheList) {
    const auto odd = u"TW-1'1"_s;
    addTool(odd);
    ui.expectReport(badStatement, u"ModuleGlobals,CheckAsset"_s);
    ui.expectBox(text(TextId::instrumentNumberInvalid), downloadTitle(), box::warning);
    addToDownloadList(calibrators, screen, odd);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(screen.list, QStringList());
}

TEST_F(OddNames, WithAQuoteAreReportedAndPassedOverInATaskPackage) {
    addTool(u"TW-1'1"_s);
    addPackageWithTw101();
    expectQuestion(transducer);
    expectQuestion({});
    ui.expectReport(badStatement, u"ModuleGlobals,CheckAsset"_s);
    addToDownloadList(calibrators, screen, package);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(screen.list, QStringList{u"TW-101"_s});
}

// The report of the check lets a standard pass; it is registered by its number as it is.
TEST_F(OddNames, WithAQuoteEndTheAdditionWhenTheyAreNamedAsStandards) {
    addTool(u"TT-1'1"_s);
    expectQuestion(u"TT-1'2"_s); // there is none of that number
    ui.expectBox(u"TW-101: "_s + text(TextId::configurationDataIncomplete), downloadTitle(), box::warning);
    expectQuestion(u"TT-1'1"_s);
    ui.expectReport(badStatement, u"ModuleGlobals,CheckStandard"_s);
    ui.expectReport(badStatement, u"FormDockingDown,CommandAdd"_s);
    addToDownloadList(calibrators, screen, u"TW-101"_s);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(standardsInUse(u"TW-101"_s), QStringList());
}

TEST_F(OddNames, WithAQuoteEndADownloadAsToolsThatCantBeRead) {
    addTool(u"TW-1'1"_s);
    addPackageWithTw101();
    useStandard(u"1301"_s);
    useStandard(u"9001"_s);
    ui.expectReport(badStatement, u"ModuleGlobals,GetCalParams"_s);
    ui.expectReport(badStatement, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(calibratorNamed(torqueStarName).download(calibrators, package),
              text(TextId::instrumentDataUnreadable).arg(u"TW-1'1"_s));
    EXPECT_EQ(registered(), QStringList{u"TW-101"_s}) << "what came before it is loaded";
}

TEST_F(OddNames, WithAQuoteThatAreOnTheCalibratorAreReportedByEachRoutineAndStayThere) {
    // Another program has brought it there.
    addTool(u"TW-1'1"_s);
    list(u"TW-101"_s);
    download();
    carryOut({u"TW-101"_s});
    simulators::MemoryFile(simulatorFolder.memory()).use([](simulators::Memory& memory) {
        memory.characteristics[0].name = u"TW-1'1"_s;
        return true;
    });
    for (const auto& table : {u"task_inuse"_s, u"task_standards_inuse"_s})
        execute(u"update mt.hvm_kv_%1 set mtag = '9001' where mtag = '1301'"_s.arg(table));

    expectChoice();
    for (const auto& routine : {u"GetCalParams"_s, u"FirstCal"_s, u"SourceColumn"_s, u"SourceColumn"_s,
                                u"SourceColumn"_s, u"GetTestPointList"_s, u"GetInUseData"_s})
        ui.expectReport(badStatement, u"ModuleGlobals,"_s + routine);
    pressUpload();
    EXPECT_EQ(rows(u"select count(*) from mt.calibration where mtag = '9001'"_s), QStringList{u"0"_s});
    EXPECT_EQ(storedNames(), QStringList{u"TW-1'1"_s});
    EXPECT_EQ(withoutRecord(), QStringList{u"TW-1'1"_s});
}

} // namespace kelvane::testing
