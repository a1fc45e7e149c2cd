#include "benchmarks/bare_screen.h"

#include "ui/list_rows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

#include <optional>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

using Kind = Outline::Kind;

bool showsRecord(Kind kind) {
    return kind == Kind::list || kind == Kind::dropDown || kind == Kind::text;
}

QStringList rowsOf(const QComboBox& list) {
    QStringList rows;
    for (int row = 0; row < list.count(); ++row)
        rows << list.itemText(row);
    return rows;
}

/// One control of an editor; nothing for what only holds others together.
std::optional<Outline::Control> controlOf(QWidget* widget) {
    Outline::Control made{Kind::frame, {}, false, {}, {}, -1, -1};
    if (auto* list = qobject_cast<QListWidget*>(widget)) {
        made.kind = Kind::list;
        made.rows = kelvane::rowsOf(*list);
    } else if (auto* down = qobject_cast<QComboBox*>(widget)) {
        made.kind = Kind::dropDown;
        made.rows = rowsOf(*down);
        made.selected = down->currentIndex();
    } else if (auto* box = qobject_cast<QPlainTextEdit*>(widget)) {
        made.kind = Kind::text;
        made.text = box->toPlainText();
    } else if (auto* entry = qobject_cast<QLineEdit*>(widget)) {
        made.kind = Kind::entry;
        made.text = entry->text();
    } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
        made.kind = Kind::button;
        made.text = button->text();
    } else if (auto* option = qobject_cast<QRadioButton*>(widget)) {
        made.kind = Kind::option;
        made.text = option->text();
    } else if (auto* tick = qobject_cast<QCheckBox*>(widget)) {
        made.kind = Kind::tick;
        made.text = tick->text();
    } else if (auto* label = qobject_cast<QLabel*>(widget)) {
        made.kind = Kind::label;
        made.text = label->text();
    } else if (auto* frame = qobject_cast<QGroupBox*>(widget)) {
        made.text = frame->title();
    } else if (qobject_cast<QTabWidget*>(widget)) {
        made.kind = Kind::pages;
    } else {
        return {};
    }
    return made;
}

/// All controls below `parent`, those around others first; what a control is made of is its own.
void collect(const QWidget& parent, const QWidget& body, bool everything, QList<Outline::Control>& found) {
    for (auto* child : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        auto control = controlOf(child);
        if (control && (everything || showsRecord(control->kind))) {
            control->place = QRect(child->mapTo(&body, QPoint()), child->size());
            control->visible = child->isVisible();
            found << *control;
        }
        if (!control || control->kind == Kind::frame || control->kind == Kind::pages)
            collect(*child, body, everything, found);
    }
}

QWidget* make(const Outline::Control& control, QWidget* parent) {
    switch (control.kind) {
    case Kind::list: {
        auto* list = new QListWidget(parent);
        list->setUniformItemSizes(true);
        return list;
    }
    case Kind::dropDown:
        return new QComboBox(parent);
    case Kind::text:
        return new QPlainTextEdit(control.text, parent);
    case Kind::entry:
        return new QLineEdit(control.text, parent);
    case Kind::button:
        return new QPushButton(control.text, parent);
    case Kind::option:
        return new QRadioButton(control.text, parent);
    case Kind::tick:
        return new QCheckBox(control.text, parent);
    case Kind::label: {
        auto* label = new QLabel(control.text, parent);
        label->setWordWrap(true);
        return label;
    }
    case Kind::pages:
        return new QTabWidget(parent);
    case Kind::frame:
        break;
    }
    return new QGroupBox(control.text, parent);
}

} // namespace

Outline outlineOf(const QMdiSubWindow& editor, const QList<Query>& queries, PlainOdbc& plain,
                  bool everything) {
    Outline outline{editor.size(), {}, {}};
    collect(*editor.widget(), *editor.widget(), everything, outline.controls);
    int number = 0;
    for (const auto& query : queries) {
        outline.queries
            << (query.statement + (query.rows == Rows::first ? u" limit 1"_s : QString())).toUtf8();
        const auto rows = plain.read(outline.queries.last());
        for (auto& control : outline.controls) {
            if (control.query < 0 && !rows.isEmpty() &&
                (control.rows == rows || (control.kind == Kind::text && rows == QStringList{control.text}))) {
                control.query = number;
                break;
            }
        }
        ++number;
    }
    return outline;
}

QList<QStringList> BareScreen::readAll(const Outline& outline) {
    QList<QStringList> results;
    for (const auto& query : outline.queries)
        results << plain_.read(query);
    return results;
}

void BareScreen::fill(QWidget& widget, const Outline::Control& control, const QStringList& rows) const {
    if (control.kind == Kind::list) {
        auto& list = static_cast<QListWidget&>(widget);
        list.clear();
        list.addItems(rows);
    } else if (control.kind == Kind::dropDown) {
        auto& list = static_cast<QComboBox&>(widget);
        list.clear();
        list.addItems(rows);
        list.setCurrentIndex(control.selected);
    } else if (control.kind == Kind::text) {
        static_cast<QPlainTextEdit&>(widget).setPlainText(rows.value(0));
    }
}

void BareScreen::open(const Outline& outline) {
    window_ = new QMdiSubWindow;
    auto* body = new QWidget;
    window_->setWidget(body);
    const auto results = readAll(outline);
    for (const auto& control : outline.controls) {
        auto* made = make(control, body);
        made->setGeometry(control.place);
        made->setVisible(control.visible);
        if (showsRecord(control.kind) && (control.query >= 0 || !control.rows.isEmpty()))
            fill(*made, control, control.query < 0 ? control.rows : results[control.query]);
        controls_ << made;
    }
    area_.addSubWindow(window_);
    window_->resize(outline.window);
    window_->show();
}

void BareScreen::show(const Outline& outline) {
    const auto results = readAll(outline);
    for (qsizetype i = 0; i < controls_.size(); ++i) {
        const auto& control = outline.controls[i];
        if (control.query >= 0)
            fill(*controls_[i], control, results[control.query]);
        else if (control.kind == Kind::dropDown)
            static_cast<QComboBox*>(controls_[i])->setCurrentIndex(control.selected);
    }
}

void BareScreen::close() {
    delete window_;
    window_ = nullptr;
    controls_.clear();
}

} // namespace kelvane::bench
