#include "app/login.h"
#include "drivers/torquestar/driver.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/engines.h"
#include "testkit/forwarding_connection.h"
#include "testkit/recorded_link.h"
#include "testkit/recorded_link3.h"
#include "testkit/scripted_serial_port.h"
#include "tests/workflow/scripted_screen.h"
#include "workflow/calibrators.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What an operator types into the download list and the login screen.
class ConfinedEntries : public EngineSession, public ::testing::WithParamInterface<Engine> {
  protected:
    ConfinedEntries() { useEngine(GetParam()); }

    ScriptedSerialPort port;
    RecordedLink link;
    RecordedLink3 link3;
    Calibrators calibrators{session, {port, link, link3}};
    ScriptedScreen screen;
};

} // namespace

TEST_P(ConfinedEntries, AnInstrumentThatEndsItsQuotesIsReportedAndNoInstrument) {
    for (const auto& entry : breakingTexts()) {
        expectRefusal(entry, {u"ModuleGlobals,CheckAsset"_s}, [&] {
            ui.expectBox(text(TextId::instrumentNumberInvalid), text(TextId::downloadProcedures),
                         box::warning);
            addToDownloadList(calibrators, screen, entry);
        });
    }
    EXPECT_TRUE(screen.list.isEmpty());
}

TEST_P(ConfinedEntries, ARowThatEndsItsQuotesIsReportedWhenItGoesAndStays) {
    for (const auto& entry : breakingTexts()) {
        screen.list = {entry};
        expectRefusal(entry, {u"FormDockingDown,CommandRemove"_s},
                      [&] { removeFromDownloadList(calibrators, screen, 0); });
        EXPECT_EQ(screen.list, QStringList{entry});
    }
}

TEST_P(ConfinedEntries, AUserWhoseNameEndsItsQuotesMakesNoPackage) {
    screen.list = QStringList{u"TW-101"_s};
    for (const auto& user : breakingTexts()) {
        session.SessionUser = user;
        expectRefusal(user, {u"FormDockingDown,Download"_s}, [&] { downloadList(calibrators, screen); });
    }
}

TEST_P(ConfinedEntries, AUserNameThatEndsItsQuotesIsTheSyntaxErrorOfTheLogin) {
    for (const auto& user : breakingTexts()) {
        SCOPED_TRACE(user.toStdString());
        // The connection is open already, as for an engine that knows such an account.
        class Opened final : public ForwardingConnection {
          public:
            using ForwardingConnection::ForwardingConnection;
            void open(const QString&, const QString&, const QString&) override {}
        };
        session.SharedConnection = std::make_unique<Opened>(std::move(session.SharedConnection));
        const auto before = versions();
        sent.clear();
        Menu menu;
        std::optional<Error> failure;
        try {
            kelvane::logIn(session, menu, user, u"kelvane"_s);
        } catch (const Error& error) {
            failure = error;
        }
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->number, syntaxError().number);
        EXPECT_EQ(failure->description, syntaxError().description);
        EXPECT_EQ(sent, QStringList());
        EXPECT_EQ(versions(), before);
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, ConfinedEntries, ::testing::Values(Engine::own, Engine::verbatim),
                         [](const auto& test) { return test.param == Engine::own ? "own" : "verbatim"; });

} // namespace kelvane::testing
