#include "demo/demonstration.h"

#include "demo/fluke702_road.h"
#include "demo/torque_road.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::demo {

void Demonstration::run() {
    logIn();
    const auto day = goTorqueRoad(desk_, memories_.torqueStar);
    goFluke702Road(desk_, memories_.fluke702, day.addDays(-1));
    logOut();
}

void Demonstration::logIn() {
    auto& program = desk_.program;
    desk_.step(u"start, up to the login screen"_s, [&] { program.start(); });
    lookAtDataSources();
    const auto type = [this](const QString& password) {
        auto& form = desk_.child(u"FormConnect"_s);
        auto& user = control<QLineEdit>(form, u"TextUsername"_s);
        user.selectAll();
        QTest::keyClicks(&user, u"jdoe"_s);
        QTest::keyClicks(&control<QLineEdit>(form, u"TextPassword"_s), password);
        click(control<QPushButton>(form, u"CommandConnect"_s));
    };
    desk_.person.expectBox(
        u"Database connection Failed! Check username/password and network connection and try again..."_s,
        u"Kelvane"_s, box::stop);
    desk_.step(u"log in with a wrong password: refused"_s, [&] { type(u"guess"_s); });
    desk_.step(u"log in as jdoe"_s, [&] { type(u"kelvane"_s); });
    if (!program.session.SessionConnected)
        throw Difference(u"the login did not connect"_s);
}

void Demonstration::lookAtDataSources() {
    desk_.step(u"look at the data sources"_s, [this] { desk_.press(Qt::Key_D, Qt::ControlModifier); });
    const auto chosen = control<QComboBox>(desk_.child(u"FormODBC"_s), u"ComboDatasource"_s).currentText();
    if (chosen != u"Calibration Data")
        throw Difference(u"the data source is "_s + chosen);
    desk_.child(u"FormODBC"_s).close();
}

void Demonstration::logOut() {
    desk_.step(u"log out"_s, [this] { desk_.press(Qt::Key_L, Qt::ControlModifier); });
    desk_.person.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s, box::question, BoxAnswer::yes);
    desk_.step(u"exit"_s,
               [this] { click(control<QPushButton>(desk_.child(u"FormConnect"_s), u"CommandCancel"_s)); });
}

} // namespace kelvane::demo
