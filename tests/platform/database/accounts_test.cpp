#include "platform/database/accounts.h"
#include "testkit/fixtures.h"

#include <crypt.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(Accounts, AHashMatchesItsPasswordOnly) {
    // Made with the hash's own cost at its lowest.
    const QByteArray hash = "$y$j75$saltsaltsalt$68QfuK0C4bmBuVm8SoOuVWq3G7GEcuyd0hRCxXLr63C";
    EXPECT_TRUE(passwordMatches(u"kelvane"_s, hash));
    for (const auto& wrong :
         {u""_s, u"Kelvane"_s, u"kelvane "_s, u"kelvane\0"_s, u"kelvane\0x"_s, u"kelvan"_s, u"кelvane"_s})
        EXPECT_FALSE(passwordMatches(wrong, hash)) << wrong.toStdString();
    EXPECT_FALSE(passwordMatches(QString(600, u'x'), hash)) << "longer than any password may be";
}

TEST(Accounts, WhatIsNoHashMatchesNothing) {
    for (const QByteArray hash : {"", "*", "*0", "*1", "kelvane", "$y$", "$y$j75$", "$y$j75$saltsaltsalt",
                                  "$y$j75$saltsaltsalt$", "$9$nothing$x", "ab"}) {
        EXPECT_FALSE(passwordMatches(u"kelvane"_s, hash)) << hash.toStdString();
        EXPECT_FALSE(passwordMatches(u""_s, hash)) << hash.toStdString();
    }
}

TEST(Accounts, TheDummyHashTakesTheUsualTimeAndMatchesNothing) {
    crypt_data work{};
    EXPECT_EQ(QByteArray(crypt_r("any", dummyHash().constData(), &work)).left(29), dummyHash().left(29));
    EXPECT_FALSE(passwordMatches(u""_s, dummyHash()));
    EXPECT_FALSE(passwordMatches(u"nobody"_s, dummyHash()));
}

} // namespace kelvane::testing
