#include <QApplication>

#include <gtest/gtest.h>

#include <clocale>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
