// What a contact with a Fluke calibrator does alike: what it passes and reads, and which settings count.

#include "tests/drivers/fluke702/link_fixture.h"
#include "tests/drivers/fluke74x/link_fixture.h"
#include "tests/drivers/fluke_names.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using FlukeContacts = ::testing::Types<Contact702, Contact74x>;

template <class Contact>
class FlukeContactOf : public Contact {};
TYPED_TEST_SUITE(FlukeContactOf, FlukeContacts, FlukeNames);

TYPED_TEST(FlukeContactOf, PassesBuffersOf16And10And40Blanks) {
    QStringList buffers;
    this->link.writeText = [&](const QString& words, const QString& buffer) {
        buffers << buffer;
        return words + QChar(0);
    };
    for (int again = 0; again < 2; ++again) {
        buffers.clear();
        this->contact(TestFixture::openingModes[0]);
        EXPECT_EQ(buffers, (QStringList{QString(16, u' '), QString(10, u' '), QString(40, u' ')}));
    }
}

TYPED_TEST(FlukeContactOf, TakesATextWithoutAZeroAsTheWholeBuffer) {
    this->link.serial = u"0123456789ABC"_s;
    this->script.answers.insert(this->selectAsset(u"0123456789"_s), {{u"F-9"_s}});
    this->contact(TestFixture::upload);
    EXPECT_EQ(this->serial(), u"0123456789"_s);
    EXPECT_EQ(this->asset(), u"F-9"_s);
}

// The stored settings.

TYPED_TEST(FlukeContactOf, OpensWithTheStoredBaudRateOr9600) {
    const struct {
        QString stored;
        qint32 opened;
    } rows[] = {
        {u""_s, 9600},       {u"abc"_s, 9600},
        {u"0"_s, 9600},      {u"0.4"_s, 9600},
        {u"-0.5"_s, 9600},   {u"0.6"_s, 1},
        {u"19200"_s, 19200}, {u" 4 800 baud"_s, 4800},
        {u"1,200"_s, 1},     {u"1E3"_s, 1000},
        {u"2400.5"_s, 2400}, {u"2401.5"_s, 2402},
        {u"-1"_s, -1},       {u"2147483647"_s, 2147483647},
    };
    for (const auto mode : TestFixture::openingModes) {
        for (const auto& row : rows) {
            this->store(u"BaudRate"_s, row.stored);
            EXPECT_EQ(this->contact(mode), QString());
            EXPECT_EQ(this->link.calls.value(1),
                      this->openOperation + u"(%1, \"COM1\", 1000, 5)"_s.arg(row.opened))
                << row.stored.toStdString();
        }
    }
}

TYPED_TEST(FlukeContactOf, ReportsABaudRateOutsideItsTypeAndCallsNothing) {
    for (const auto mode : TestFixture::openingModes) {
        for (const auto& stored : {u"2147483648"_s, u"1E99"_s}) {
            this->store(u"BaudRate"_s, stored);
            this->ui.expectReport(6, this->routineName);
            EXPECT_EQ(this->contact(mode), QString());
            EXPECT_EQ(this->link.calls, QStringList());
            EXPECT_FALSE(this->ui.progressShown);
        }
    }
}

TYPED_TEST(FlukeContactOf, OpensTheStoredPortOrCom1) {
    for (const auto& [stored, port] :
         {std::pair{u""_s, u"COM1"_s}, {u"COM3"_s, u"COM3"_s}, {u" "_s, u" "_s}, {u"порт"_s, u"порт"_s}}) {
        this->store(u"Port"_s, stored);
        EXPECT_EQ(this->contact(TestFixture::upload), QString());
        EXPECT_EQ(this->link.calls.value(1), this->openOperation + u"(9600, \"%1\", 1000, 5)"_s.arg(port));
    }
}

TYPED_TEST(FlukeContactOf, PassesNoOtherSettingToTheLibrary) {
    this->contact(TestFixture::upload);
    const auto calls = this->link.calls;
    for (const auto& key : {u"Parity"_s, u"DataBits"_s, u"StopBits"_s})
        this->store(key, u"7"_s);
    this->settings.values.insert(this->sectionOfSibling + u"/Port"_s, u"COM4"_s);
    this->contact(TestFixture::upload);
    EXPECT_EQ(this->link.calls, calls);
}

// The database.

TYPED_TEST(FlukeContactOf, WithACalibratorWhoseQueryFailsCountsItAsUnknown) {
    this->script.failures.insert(this->selectAsset(this->link.serial), {-131, u"Syntax error"_s, u"42000"_s});
    this->ui.expectReport(-131, u"ModuleGlobals,AssetfromSerial"_s);
    EXPECT_EQ(this->contact(TestFixture::upload), this->notInDatabase);
    EXPECT_FALSE(this->ui.busy);
}

TYPED_TEST(FlukeContactOf, WithALostDatabaseEndsTheSessionButNotTheTransfer) {
    EXPECT_EQ(this->contact(TestFixture::upload), QString());
    const auto whole = this->link.calls;
    this->script.lost = true;
    this->session.SessionConnected = true;
    this->ui.expectReport(10054, u"ModuleGlobals,AssetfromSerial"_s);
    EXPECT_EQ(this->contact(TestFixture::upload), this->notInDatabase);
    EXPECT_EQ(this->link.calls, whole);
    EXPECT_FALSE(this->session.SessionConnected);
}

} // namespace kelvane::testing
