#include "testkit/run_tests.h"
#include "ui/style.h"

#include <QApplication>
#include <QFont>

#include <gtest/gtest.h>

#include <clocale>
#include <iostream>

namespace {

/// A warning of the toolkit is a fault of the program; only the offscreen platform's own limits are not.
void takeMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (message.startsWith(QLatin1String("This plugin does not support ")))
        return;
    if (type == QtDebugMsg || type == QtInfoMsg)
        std::cerr << message.toStdString() << std::endl;
    else
        ADD_FAILURE() << "the toolkit warns: " << message.toStdString();
}

} // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // No display is needed, not even to list the tests.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    kelvane::setLooks(kelvane::Colors::desktop);
    // The same letters on every machine, in the size of a plain desktop at 96 dots per inch.
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    qInstallMessageHandler(takeMessage);
    return kelvane::testing::runTests();
}
