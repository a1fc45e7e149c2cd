#include "testkit/run_tests.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <clocale>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // as the program does
    return kelvane::testing::runTests();
}
