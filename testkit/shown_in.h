#pragma once

#include "resources/languages.h"

#include <gtest/gtest.h>

namespace kelvane::testing {

/// Shows all texts in another language for a while.
class ShownIn {
  public:
    explicit ShownIn(const QString& language) : before_(shownLanguage()) {
        EXPECT_TRUE(showLanguage(language)) << language.toStdString();
    }
    ~ShownIn() { showLanguage(before_); }
    ShownIn(const ShownIn&) = delete;
    ShownIn& operator=(const ShownIn&) = delete;

  private:
    QString before_;
};

} // namespace kelvane::testing
