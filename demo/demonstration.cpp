#include "demo/demonstration.h"

#include "demo/fluke702_day.h"
#include "demo/fluke74x_day.h"
#include "demo/paper_day.h"
#include "demo/preparation.h"
#include "demo/torque_day.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

void Demonstration::run() {
    start();
    logIn(procedureWriter);
    prepareTransmitter(station_);
    logOut();
    logIn(u"jdoe"_s);
    const auto day = runTorqueDay(station_, memories_.torqueStar);
    runFluke702Day(station_, memories_.fluke702, day.addDays(-1));
    calibratePrepared(station_, memories_.fluke702, day.addDays(-2));
    runFluke74xDay(station_, memories_.fluke74x, day.addDays(-3));
    runPaperDay(station_, folder_, day.addDays(-4));
    logOut();
    exit();
}

void Demonstration::start() {
    station_.step(u"start, up to the login screen"_s, [this] { station_.program.start(); });
    lookAtDataSources();
    station_.simulatedOperator.expectBox(text(TextId::databaseConnectionFailed), u"Kelvane"_s, box::stop);
    station_.step(u"log in with a wrong password: refused"_s, [this] { typeLogin(u"jdoe"_s, u"guess"_s); });
}

void Demonstration::lookAtDataSources() {
    station_.step(u"look at the data sources"_s, [this] { station_.press(Qt::Key_D, Qt::ControlModifier); });
    const auto chosen = control<QComboBox>(station_.child(u"FormODBC"_s), u"ComboDatasource"_s).currentText();
    if (chosen != u"Calibration Data")
        throw Difference(u"the data source is "_s + chosen);
    station_.child(u"FormODBC"_s).close();
}

void Demonstration::typeLogin(const QString& user, const QString& password) {
    auto& form = station_.child(u"FormConnect"_s);
    auto& name = control<QLineEdit>(form, u"TextUsername"_s);
    name.selectAll();
    QTest::keyClicks(&name, user);
    QTest::keyClicks(&control<QLineEdit>(form, u"TextPassword"_s), password);
    click(control<QPushButton>(form, u"CommandConnect"_s));
}

void Demonstration::logIn(const QString& user) {
    station_.step(u"log in as "_s + user, [&] { typeLogin(user, u"kelvane"_s); });
    if (!station_.program.session.SessionConnected)
        throw Difference(u"the login did not connect"_s);
}

void Demonstration::logOut() {
    station_.step(u"log out"_s, [this] { station_.press(Qt::Key_L, Qt::ControlModifier); });
}

void Demonstration::exit() {
    station_.simulatedOperator.expectBox(text(TextId::confirmExit), u"Kelvane"_s, box::question,
                                         BoxAnswer::yes);
    station_.step(u"exit"_s, [this] {
        click(control<QPushButton>(station_.child(u"FormConnect"_s), u"CommandCancel"_s));
    });
}

} // namespace kelvane::demo
