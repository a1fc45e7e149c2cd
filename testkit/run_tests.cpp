#include "testkit/run_tests.h"

#include "resources/languages.h"
#include "testkit/shared_database.h"

#include <gtest/gtest.h>

#include <iostream>

namespace kelvane::testing {

int runTests() {
    if (const auto language = qEnvironmentVariable("KELVANE_TEST_LANGUAGE");
        !language.isEmpty() && !showLanguage(language)) {
        std::cout << "There are no texts in the language " << language.toStdString() << std::endl;
        return 1;
    }
    if (!usesSharedEngine())
        return RUN_ALL_TESTS();
    if (const auto reason = missingServer(); !reason.isEmpty()) {
        std::cout << "Skipped on the shared engine: " << reason.toStdString() << std::endl;
        return skipped;
    }
    const int outcome = RUN_ALL_TESTS();
    const auto& tests = *::testing::UnitTest::GetInstance();
    if (outcome == 0 && tests.successful_test_count() > 0 && SharedDatabase::count() == 0) {
        std::cout << "No test here uses a database: they need not run on the shared engine." << std::endl;
        return 1;
    }
    return outcome;
}

} // namespace kelvane::testing
