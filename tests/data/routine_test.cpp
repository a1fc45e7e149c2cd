#include "data/routine.h"
#include "testkit/fixtures.h"
#include "tests/platform/errors.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::errorOf;

namespace {

class RoutineGuard : public testing::RecordedSession {
  protected:
    QStringList logLines() const {
        auto lines = folder.read(u"errors.log"_s).split(u"\r\n"_s, Qt::SkipEmptyParts);
        for (auto& line : lines)
            line = line.mid(line.indexOf(u"] "_s) + 2);
        return lines;
    }
};

} // namespace

TEST_F(RoutineGuard, WithoutAnErrorReportsNothing) {
    bool ran = false;
    EXPECT_TRUE(Routine(session, u"ModuleGlobals,x"_s).run([&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_TRUE(logLines().isEmpty());
}

TEST_F(RoutineGuard, ReportsNumberDescriptionNameAndNoStatement) {
    ui.expectReport(5, u"ModuleGlobals,x"_s);
    EXPECT_FALSE(
        Routine(session, u"ModuleGlobals,x"_s).run([] { throw makeError(ErrorNumber::invalidArgument); }));
    EXPECT_EQ(logLines(), (QStringList{u" **** KELVANE ****"_s, u"5 Invalid procedure call or argument"_s,
                                       u"ModuleGlobals,x"_s, u""_s}));
}

TEST_F(RoutineGuard, GivesTheErrorThatItReported) {
    Guard guard(session, u"ModuleGlobals,x"_s);
    EXPECT_FALSE(guard.failureOf([] {}));
    ui.expectReport(5, u"ModuleGlobals,x"_s);
    const auto failure = guard.failureOf([] { throw makeError(ErrorNumber::invalidArgument); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number, 5);
}

TEST_F(RoutineGuard, GivesTheResultOfItsBodyOrNothingAfterAnError) {
    Guard guard(session, u"ModuleGlobals,x"_s);
    EXPECT_EQ(guard.resultOf([] { return u"result"_s; }), u"result"_s);
    ui.expectReport(5, u"ModuleGlobals,x"_s);
    EXPECT_EQ(guard.resultOf([]() -> QString { throw makeError(ErrorNumber::invalidArgument); }),
              std::nullopt);
}

TEST_F(RoutineGuard, ReportsTheDriversOwnNumberAndTheCurrentStatement) {
    script.failures.insert(u"bad"_s, Error{-141, u"Table 'x' not found"_s, u"42S02"_s});
    ui.expectReport(-141, u"ModuleGlobals,x"_s);
    Routine routine(session, u"ModuleGlobals,x"_s);
    EXPECT_FALSE(routine.run([&] {
        routine.execute(u"good;commit");
        routine.select(u"bad");
        ADD_FAILURE() << "the body goes on behind an error";
    }));
    EXPECT_EQ(script.statements, (QStringList{u"good;commit"_s, u"bad"_s}));
    EXPECT_EQ(logLines().mid(1),
              (QStringList{u"-141 Table 'x' not found"_s, u"ModuleGlobals,x"_s, u"bad"_s}));
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(RoutineGuard, ShowsTheLastStatementEvenWhenTheFailureIsNotIts) {
    script.answers.insert(u"select a"_s, {{u"1"_s}});
    ui.expectReport(3021, u"ModuleGlobals,x"_s);
    Routine routine(session, u"ModuleGlobals,x"_s);
    routine.run([&] {
        const auto rows = routine.select(u"select a");
        while (rows->next()) {
        }
        rows->value(0);
    });
    EXPECT_EQ(logLines().last(), u"select a"_s);
}

TEST_F(RoutineGuard, OfAFailingInnerRoutineLetsTheOuterOneGoOn) {
    script.failures.insert(u"inner"_s, Error{-1, u"inner error"_s});
    script.failures.insert(u"outer 2"_s, Error{-2, u"outer error"_s});
    ui.expectReport(-1, u"ModuleGlobals,inner"_s);
    ui.expectReport(-2, u"ModuleGlobals,outer"_s);
    const auto inner = [&] {
        QString result = u"default"_s;
        Routine routine(session, u"ModuleGlobals,inner"_s);
        routine.run([&] {
            routine.execute(u"inner");
            result = u"never"_s;
        });
        return result;
    };
    QString seen;
    Routine outer(session, u"ModuleGlobals,outer"_s);
    EXPECT_FALSE(outer.run([&] {
        outer.execute(u"outer 1");
        seen = inner();
        outer.execute(u"outer 2");
    }));
    EXPECT_EQ(seen, u"default"_s);
    EXPECT_EQ(script.statements, (QStringList{u"outer 1"_s, u"inner"_s, u"outer 2"_s}));
    EXPECT_EQ(logLines(), (QStringList{u" **** KELVANE ****"_s, u"-1 inner error"_s, u"ModuleGlobals,inner"_s,
                                       u"inner"_s, u" **** KELVANE ****"_s, u"-2 outer error"_s,
                                       u"ModuleGlobals,outer"_s, u"outer 2"_s}));
}

TEST_F(RoutineGuard, AroundAnInnerOneShowsItsOwnStatement) {
    ui.expectReport(6, u"ModuleGlobals,outer"_s);
    Routine outer(session, u"ModuleGlobals,outer"_s);
    outer.run([&] {
        outer.execute(u"outer");
        Routine inner(session, u"ModuleGlobals,inner"_s);
        inner.run([&] { inner.execute(u"inner"); });
        throw makeError(ErrorNumber::overflow);
    });
    EXPECT_EQ(logLines().last(), u"outer"_s);
}

TEST_F(RoutineGuard, WhoseReportCanNotBeWrittenPassesError75OnThroughEveryCaller) {
    QDir().mkdir(u"errors.log"_s);
    bool wentOn = false;
    EXPECT_EQ(errorOf([&] {
                  Routine(session, u"ModuleGlobals,outer"_s).run([&] {
                      Routine(session, u"ModuleGlobals,inner"_s).run([] {
                          throw makeError(ErrorNumber::overflow);
                      });
                      wentOn = true;
                  });
              }),
              75);
    EXPECT_FALSE(wentOn);
}

TEST_F(RoutineGuard, OfALostConnectionEndsTheSessionsConnection) {
    script.lost = true;
    ui.expectReport(10054, u"ModuleGlobals,x"_s);
    Routine routine(session, u"ModuleGlobals,x"_s);
    EXPECT_FALSE(routine.run([&] { routine.execute(u"select 1"); }));
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(RoutineGuard, WithoutAConnectionYetMakesOne) {
    EXPECT_EQ(session.SharedConnection, nullptr);
    Routine routine(session, u"ModuleGlobals,x"_s);
    EXPECT_TRUE(routine.run([&] { routine.execute(u"a"); }));
    const auto* made = session.SharedConnection.get();
    EXPECT_NE(made, nullptr);
    routine.run([&] { routine.execute(u"b"); });
    EXPECT_EQ(session.SharedConnection.get(), made);
}

TEST_F(RoutineGuard, AsksForOneRowWhereOneIsRead) {
    script.answers.insert(u"value"_s, {{u"first"_s, u"x"_s}, {u"second"_s, u"y"_s}});
    script.answers.insert(u"null"_s, {{std::nullopt}});
    Routine routine(session, u"ModuleGlobals,x"_s);
    routine.run([&] {
        EXPECT_EQ(routine.selectValue(u"value"), u"first"_s);
        EXPECT_EQ(routine.selectValue(u"null"), std::nullopt);
        EXPECT_EQ(routine.selectValue(u"nothing"), std::nullopt);
        EXPECT_TRUE(routine.hasRow(u"null"));
        EXPECT_FALSE(routine.hasRow(u"nothing"));
        routine.select(u"all");
    });
    EXPECT_EQ(script.firstRowOnly,
              (QStringList{u"value"_s, u"null"_s, u"nothing"_s, u"null"_s, u"nothing"_s}));
}

TEST_F(RoutineGuard, SetsThePointerBackBehindAnError) {
    ui.expectReport(6, u"ModuleGlobals,x"_s);
    Routine(session, u"ModuleGlobals,x"_s).run([&] {
        const BusyPointer busy(ui);
        EXPECT_TRUE(ui.busy);
        throw makeError(ErrorNumber::overflow);
    });
    EXPECT_FALSE(ui.busy);
}

TEST_F(RoutineGuard, NullWhereThereMustBeAValueIsError94) {
    EXPECT_EQ(notNull(u""_s), u""_s);
    EXPECT_EQ(errorOf([] { notNull(std::nullopt); }), 94);
}

} // namespace kelvane
