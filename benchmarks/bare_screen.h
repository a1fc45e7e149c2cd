#pragma once

#include "benchmarks/plain_odbc.h"
#include "platform/database/connection.h"

#include <QList>
#include <QRect>

class QMdiArea;
class QMdiSubWindow;
class QWidget;

namespace kelvane::bench {

/// A query of an editor and the rows that it reads.
struct Query {
    QString statement;
    Rows rows;
};

/// What an open editor shows, and the queries that gave it: all that a program with nothing around it needs
/// to know to show the same.
struct Outline {
    enum class Kind { list, dropDown, text, button, option, tick, entry, label, frame, pages };
    struct Control {
        Kind kind;
        QRect place;
        bool visible;
        QString text;
        QStringList rows;
        int selected;
        /// The query that fills it, -1 when its rows are the same at all times.
        int query;
    };
    QSize window;
    QList<QByteArray> queries;
    QList<Control> controls;
};

/// `everything` takes the other controls in as well, beside the lists and texts.
Outline outlineOf(const QMdiSubWindow& editor, const QList<Query>& queries, PlainOdbc& plain,
                  bool everything);

/// The bare minimum of an editor: a window with the same lists at the same places, filled in one go with what
/// plain ODBC reads with the same queries.
class BareScreen {
  public:
    BareScreen(QMdiArea& area, PlainOdbc& plain) : area_(area), plain_(plain) {}

    void open(const Outline& outline);
    /// Reads again and fills again what the queries fill.
    void show(const Outline& outline);
    void close();

  private:
    void fill(QWidget& widget, const Outline::Control& control, const QStringList& rows) const;
    QList<QStringList> readAll(const Outline& outline);

    QMdiArea& area_;
    PlainOdbc& plain_;
    QMdiSubWindow* window_ = nullptr;
    QList<QWidget*> controls_;
};

} // namespace kelvane::bench
