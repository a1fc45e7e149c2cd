#include "testkit/screen_operator.h"

#include <gtest/gtest.h>

namespace kelvane::testing {

ScreenOperator::ScreenOperator() : Person([](const QString& told) { ADD_FAILURE() << told.toStdString(); }) {}

ScreenOperator::~ScreenOperator() {
    missOthers();
}

} // namespace kelvane::testing
