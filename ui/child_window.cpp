#include "ui/child_window.h"

#include "platform/error_report.h"
#include "platform/values/numbers.h"
#include "ui/guarded.h"
#include "ui/panels.h"
#include "ui/whole_text.h"
#include "ui/window_keys.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QListWidget>
#include <QMdiArea>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStyleOption>
#include <QTabWidget>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int twipsPerPixel = 15;
// What styles leave free beside a caption.
constexpr int besideCaption = 15;
// Beyond any screen; keeps a spoilt setting inside the whole numbers.
constexpr double farAway = 1e6;

/// The stored edge of a window in twips, as the text that stands there, or its own one where there is none.
QString storedEdge(const Session& session, const QString& section, const QString& name, int ownEdge) {
    const auto stored = ModuleGlobals::GetRegSetting(session, section, name);
    return stored.isEmpty() ? plainText(ownEdge) : stored;
}

int pixelsOf(const QString& twips) {
    return pixels(static_cast<int>(std::clamp(numericValue(twips), -farAway, farAway)));
}

/// The position nearest to `wanted` at which a window of `size` lies inside `space`; a window that is larger
/// than that keeps its title in view.
QPoint inView(const QPoint& wanted, const QSize& size, const QSize& space) {
    const QSize free = (space - size).expandedTo({0, 0});
    return {std::clamp(wanted.x(), 0, free.width()), std::clamp(wanted.y(), 0, free.height())};
}

/// Makes the main window larger, as far as its screen goes, so that `needed` fits into the area.
void makeRoom(const QMdiArea& area, const QSize& needed) {
    auto* main = area.window();
    const auto missing = (needed - area.viewport()->size()).expandedTo({0, 0});
    if (missing.isNull() || main->isMaximized() || main->isFullScreen())
        return;
    const auto wanted = (main->size() + missing).boundedTo(main->screen()->availableSize());
    main->resize(wanted.expandedTo(main->size()));
}

} // namespace

ChildWindow::ChildWindow(Session& session, const QString& name, const Place& place)
    : session_(session), place_(place) {
    setObjectName(name);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    // The toolkit's own menu would bring texts and shortcuts of its own.
    setSystemMenu(nullptr);
    auto* closing = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F4), this);
    closing->setContext(Qt::WidgetWithChildrenShortcut);
    connectGuarded(closing, &QShortcut::activated, this, session_.ui, [this] { close(); });
}

void ChildWindow::setBody(QWidget* body) {
    body->setObjectName(objectName() + u"Body"_s);
    setWidget(body);
    if (body->findChild<QTabWidget*>())
        bindPageKeys();
}

void ChildWindow::bindPageKeys() {
    for (const auto& [key, step] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
        auto* pressed = new QShortcut(QKeySequence(Qt::CTRL | key), this);
        pressed->setContext(Qt::WidgetWithChildrenShortcut);
        connectGuarded(pressed, &QShortcut::activated, this, session_.ui,
                       [this, step = step] { changePageAtFocus(step); });
    }
}

/// The tab control around the focus, the inner one of two; otherwise the first one of the screen.
void ChildWindow::changePageAtFocus(int step) {
    for (auto* around = focusWidget(); around && around != this; around = around->parentWidget()) {
        if (auto* tabs = qobject_cast<QTabWidget*>(around))
            return changePage(*tabs, step);
    }
    changePage(*findChild<QTabWidget*>(), step);
}

void ChildWindow::setDefaultButton(QPushButton* button) {
    defaultButton_ = button;
    button->setDefault(true);
}

/// Where the window stands in the area, however far that is scrolled.
QPoint ChildWindow::position() const {
    return pos() + QPoint(mdiArea()->horizontalScrollBar()->value(), mdiArea()->verticalScrollBar()->value());
}

/// What the controls need, with the frame around them; texts that wrap need it at the given width.
QSize ChildWindow::neededSize() const {
    auto needed = layout()->totalMinimumSize();
    needed.setWidth(qMax(needed.width(), qMin(titleWidth(), mdiArea()->viewport()->width())));
    if (layout()->hasHeightForWidth()) {
        const int width = qMax(needed.width(), pixels(place_.width));
        needed.setHeight(qMax(needed.height(), layout()->totalMinimumHeightForWidth(width)));
    }
    return needed;
}

/// The width at which the title bar shows the whole caption.
int ChildWindow::titleWidth() const {
    QStyleOptionTitleBar bar;
    bar.initFrom(this);
    bar.titleBarFlags = windowFlags();
    const int width = pixels(place_.width);
    bar.rect = QRect(0, 0, width, contentsMargins().top());
    const int space =
        style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, this).width();
    const QFontMetrics letters(QApplication::font("QMdiSubWindowTitleBar"));
    return width - space + letters.horizontalAdvance(windowTitle()) + besideCaption;
}

void ChildWindow::showIn(QMdiArea& area) {
    if (mdiArea()) {
        show();
        area.setActiveSubWindow(this);
        return;
    }
    QPoint stored(pixels(place_.left), pixels(place_.top));
    runGuarded(session_.ui, [&] {
        stored = {pixelsOf(storedEdge(session_, u"Left"_s, objectName(), place_.left)),
                  pixelsOf(storedEdge(session_, u"Top"_s, objectName(), place_.top))};
    });
    for (auto* list : findChildren<QListWidget*>())
        showWholeRows(*list);
    area.addSubWindow(this);
    const QSize given(pixels(place_.width), pixels(place_.height));
    setFixedSize(given.expandedTo(neededSize()));
    // Most of the given sizes fit into the given main window; larger letters need a larger one.
    if (place_.isLarge || size() != given)
        makeRoom(area, size());
    move(inView(stored, size(), area.viewport()->size()));
    show();
    area.setActiveSubWindow(this);
    shownAt_ = position();
    if (firstFocus_)
        firstFocus_->setFocus();
}

void ChildWindow::unload() {
    unloading_ = true;
    close();
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    bool closing = unloading_;
    runGuarded(session_.ui, [&] { closing = closing || mayClose(); });
    if (!closing) {
        event->ignore();
        return;
    }
    runGuarded(session_.ui, [this] { storePosition(); });
    open_ = false;
    QMdiSubWindow::closeEvent(event);
}

void ChildWindow::storePosition() {
    const auto store = [this](const QString& section, int ownEdge, int shown, int now) {
        const auto edge = now == shown ? storedEdge(session_, section, objectName(), ownEdge)
                                       : plainText(now * twipsPerPixel);
        ModuleGlobals::SaveRegSetting(session_, section, objectName(), edge);
    };
    const auto now = position();
    store(u"Left"_s, place_.left, shownAt_.x(), now.x());
    store(u"Top"_s, place_.top, shownAt_.y(), now.y());
}

QPushButton* ChildWindow::buttonFor(int key) const {
    if (key == Qt::Key_Escape)
        return cancelButton_;
    if (auto* focused = buttonOfReturn(*this, key))
        return focused;
    return key == Qt::Key_Return || key == Qt::Key_Enter ? defaultButton_ : nullptr;
}

void ChildWindow::keyPressEvent(QKeyEvent* event) {
    if (auto* clicked = buttonFor(event->key())) {
        clicked->click();
        event->accept();
        return;
    }
    QMdiSubWindow::keyPressEvent(event);
}

} // namespace kelvane
