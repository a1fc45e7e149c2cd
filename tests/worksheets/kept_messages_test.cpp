#include "worksheets/kept_messages.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(KeptMessages, AreTheTextsOfTheBoxesInOrder) {
    KeptMessages messages;
    EXPECT_EQ(messages.messageBox(u"first"_s, u"x"_s, box::stop), BoxAnswer::ok);
    EXPECT_EQ(messages.messageBox(u"second"_s, u"x"_s, box::question), BoxAnswer::no);
    EXPECT_EQ(messages.messageBox(u"third"_s, u"x"_s, box::warningOkCancel), BoxAnswer::cancel);
    EXPECT_EQ(messages.texts, (QStringList{u"first"_s, u"second"_s, u"third"_s}));
    EXPECT_EQ(messages.askOneField({}), cancelled);
}

} // namespace kelvane::testing
