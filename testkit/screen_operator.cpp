#include "testkit/screen_operator.h"

#include <gtest/gtest.h>

namespace kelvane::testing {

ScreenOperator::ScreenOperator()
    : SimulatedOperator([](const QString& message) { ADD_FAILURE() << message.toStdString(); }) {}

ScreenOperator::~ScreenOperator() {
    reportMissing();
}

} // namespace kelvane::testing
