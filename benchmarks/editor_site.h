#pragma once

#include "benchmarks/plain_odbc.h"
#include "benchmarks/watched.h"
#include "data/session.h"
#include "testkit/embedded_database.h"
#include "testkit/fixtures.h"
#include "testkit/quiet_operator.h"
#include "ui/editor_window.h"

#include <QMainWindow>

class QMdiArea;

namespace kelvane::bench {

/// An operator who names the instrument that he is to name, and lets a change go when he is asked: a package
/// counts as changed once it has been chosen.
class NamingOperator final : public testing::QuietOperator {
  public:
    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override {
        return style == box::question ? BoxAnswer::yes : QuietOperator::messageBox(text, title, style);
    }
    QString askOneField(const DialogQuestion&) override { return instrument; }
    QString instrument;
};

/// A workstation whose database holds a given number of strategies, messages, task packages and distinct
/// models. Two instruments have parameters, with a strategy and some messages each.
class EditorSite {
  public:
    explicit EditorSite(int rows);

    static inline const QString instruments[2] = {QStringLiteral("TW-101"), QStringLiteral("TW-102")};

    WatchedConnection::Log log;
    NamingOperator ui;
    testing::SetClock clock;
    testing::MemorySettings settings;
    testing::EmbeddedDatabase database;
    Session session;
    PlainOdbc plain;
    QMainWindow window;
    QMdiArea* area;

  private:
    void make(int rows);
};

} // namespace kelvane::bench
