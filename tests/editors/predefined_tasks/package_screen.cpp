#include "tests/editors/predefined_tasks/package_screen.h"

#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/parameters/cal_params.h"

#include <QAbstractItemView>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString addTitle = u"Add New Task Package"_s;
// The text of the strategies' screen serves here too.
const QString addPrompt = u"Enter a name for the new test strategy (30 chars max!):"_s;

QString quote(const QString& name) {
    return u'\'' + QString(name).replace(u'\'', u"''"_s) + u'\'';
}

} // namespace

PackageScreen::PackageScreen() : ProgramScreen(u"FormPredefinedTasks"_s, u"mnuPredefined"_s) {
    startLoggedIn(4);
    for (int i = 1; i < 10; ++i)
        configure(u"A-%1"_s.arg(i));
    setPackages({{.name = u"LIST"_s, .letter = u"A"_s, .assets = {u"A-1"_s, u"A-2"_s}}});
    script.answers.insert(selectSegregates, {Row{u"LAB"_s}, Row{std::nullopt}, Row{u"UTIL"_s}});
    script.answers.insert(selectDescriptions, {Row{u"GAUGE"_s}, Row{u"WRENCH"_s}});
    script.answers.insert(selectModels, {Row{u"CLICK"_s}, Row{std::nullopt}});
}

void PackageScreen::configure(const QString& asset) {
    script.answers.insert(u"select mtag from MT.inventory where i4201 = '"_s + asset + u'\'', {Row{u"17"_s}});
    script.answers.insert(u"select mtag from mt.hvm_kv_tag_config where mtag = "_s +
                              ModuleGlobals::mtagOf(session, asset).text(),
                          {Row{u"17"_s}});
    script.answers.insert(ModuleGlobals::selectTestPointPct(session, asset).text(), {Row{u"50"_s}});
}

void PackageScreen::setPackages(const QList<StoredPackage>& packages) {
    QList<Row> listed;
    for (const auto& package : packages) {
        listed << Row{package.name};
        const auto tag = u"TAG OF "_s + package.name;
        const auto in = [&](const QString& letter) {
            return package.letter == letter ? package.value : std::optional<QString>();
        };
        script.answers.insert(selectPackage(package.name),
                              {Row{tag, u"PDEF"_s, package.notes, in(u"S"_s), package.letter, in(u"G"_s),
                                   in(u"M"_s), in(u"D"_s)}});
        QList<Row> members;
        for (const auto& asset : package.assets)
            members << Row{asset};
        script.answers.insert(selectAssets(tag), members);
    }
    script.answers.insert(selectTasks, listed);
}

QString PackageScreen::selectPackage(const QString& name) {
    return u"select tptag,tptype,notes,task_sql,tp_definition,segregate,model,description from "
           "mt.hvm_kv_task_packages where taskname = '"_s +
           name + u'\'';
}

QString PackageScreen::selectAssets(const QString& tag) {
    return u"select i4201 from MT.inventory where mtag in (select mtag from mt.hvm_kv_task_assets where "
           "tptag = '"_s +
           tag + u"')"_s;
}

QString PackageScreen::selectTaken(const QString& name) {
    return u"select taskname from mt.hvm_kv_task_packages where taskname = "_s + quote(name);
}

QStringList PackageScreen::deletes(const QString& name) {
    return {
        u"delete from mt.hvm_kv_task_assets where tptag = (select tptag from mt.hvm_kv_task_packages where "
        "taskname = "_s +
            quote(name) + u");commit"_s,
        u"delete from mt.hvm_kv_task_packages where taskname = "_s + quote(name) + u";commit"_s};
}

QString PackageScreen::insertPackage(const QString& name, const QString& tag, const QString& values,
                                     const QString& notes) {
    return u"insert into mt.hvm_kv_task_packages "
           u"(taskname,tptag,tptype,tp_definition,task_sql,segregate,model,"
           "description,mtuser,created_on,notes) values ('"_s +
           name + u"','"_s + tag + u"','PDEF',"_s + values + u",'jdoe',now(*),"_s + notes + u");commit"_s;
}

QString PackageScreen::insertAsset(const QString& tag, const QString& asset) {
    return u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('"_s + tag +
           u"',(select mtag from MT.inventory where i4201 = '"_s + asset + u"'));commit"_s;
}

void PackageScreen::option(const QString& name) {
    auto& shown = controlNamed<QRadioButton>(u"Option"_s + name);
    QTest::mouseClick(&shown, Qt::LeftButton, {}, QPoint(8, shown.height() / 2));
    EXPECT_TRUE(shown.isChecked());
}

QString PackageScreen::optionOn() {
    QString on;
    for (const auto* button : form().findChildren<QRadioButton*>()) {
        if (button->isChecked())
            on += button->objectName().mid(6);
    }
    return on;
}

void PackageScreen::typeValue(const QString& text) {
    value().setFocus();
    value().lineEdit()->selectAll();
    QTest::keyClicks(value().lineEdit(), text);
}

void PackageScreen::add(const QString& asset) {
    entry().setFocus();
    QTest::keyClicks(&entry(), asset);
    QTest::keyClick(&entry(), Qt::Key_Return);
}

QStringList PackageScreen::enabled() {
    return enabledOf({u"CommandAddTP"_s, u"CommandRemoveTP"_s, u"CommandSave"_s, u"CommandCancel"_s,
                      u"CommandRemove"_s})
        .replaceInStrings(u"Command"_s, QString());
}

void PackageScreen::expectName(const QString& name) {
    simulatedOperator.expectDialog(addTitle, addPrompt, name);
}

void PackageScreen::cancelDialog() {
    expectCancelledDialog(addTitle, addPrompt);
}

void PackageScreen::create(const QString& name) {
    expectName(name);
    press(u"CommandAddTP"_s);
}

QString PackageScreen::newTag() {
    static const QRegularExpression insert(
        u"^insert into mt.hvm_kv_task_packages .* values \\('(?:[^']|'')*','([0-9A-Z]{30})','PDEF'"_s);
    for (auto at = script.statements.crbegin(); at != script.statements.crend(); ++at) {
        if (const auto match = insert.match(*at); match.hasMatch())
            return match.captured(1);
    }
    ADD_FAILURE() << "no package was inserted";
    return {};
}

QStringList PackageScreen::ownStatements() {
    const auto before = script.statements;
    script.statements.clear();
    ModuleGlobals::ClearSystemTables(session);
    const auto sweep = script.statements;
    script.statements = before;
    QStringList own;
    for (const auto& statement : before) {
        if (!sweep.contains(statement))
            own << statement;
    }
    return own;
}

void chooseRow(QComboBox& list, const QString& text) {
    const int row = list.findText(text);
    EXPECT_GE(row, 0) << "no row " << text.toStdString();
    QTest::keyClick(&list, Qt::Key_F4);
    list.view()->setCurrentIndex(list.model()->index(row, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
}

} // namespace kelvane::testing
