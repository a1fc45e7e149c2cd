#include "ui/child_window.h"

#include "platform/error_report.h"
#include "platform/numbers.h"
#include "ui/guarded.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMdiArea>
#include <QPushButton>
#include <QShortcut>
#include <QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int twipsPerPixel = 15;
// What styles leave free beside a caption in its room.
constexpr int besideCaption = 15;
// Beyond any screen; keeps a spoilt setting inside the whole numbers.
constexpr double farAway = 1e6;

int storedOr(const Session& session, const QString& section, const QString& name, int otherwise) {
    const auto stored = ModuleGlobals::GetRegSetting(session, section, name);
    const double twips = stored.isEmpty() ? otherwise : numericValue(stored);
    return pixels(static_cast<int>(std::clamp(twips, -farAway, farAway)));
}

/// The position nearest to `wanted` at which a window of `size` lies inside `room`; a window that is larger
/// than that keeps its title in view.
QPoint inView(const QPoint& wanted, const QSize& size, const QSize& room) {
    const QSize free = (room - size).expandedTo({0, 0});
    return {std::clamp(wanted.x(), 0, free.width()), std::clamp(wanted.y(), 0, free.height())};
}

} // namespace

ChildWindow::ChildWindow(Session& session, ChildForm form, const QString& name, const Place& place)
    : session_(session), form_(form), place_(place) {
    setObjectName(name);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    // The toolkit's own menu would bring texts and shortcuts that are not ours.
    setSystemMenu(nullptr);
    auto* closing = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F4), this);
    closing->setContext(Qt::WidgetWithChildrenShortcut);
    onSignal(closing, &QShortcut::activated, this, session_.ui, [this] { close(); });
    session_.openFlag(form_) = true;
}

ChildWindow::~ChildWindow() {
    markClosed();
}

void ChildWindow::markClosed() {
    // Only once: a new window of the same screen may be open before this one's memory goes.
    if (open_)
        session_.openFlag(form_) = false;
    open_ = false;
}

void ChildWindow::setBody(QWidget* body) {
    body->setObjectName(objectName() + u"Body"_s);
    setWidget(body);
}

void ChildWindow::setDefaultButton(QPushButton* button) {
    defaultButton_ = button;
    button->setDefault(true);
}

QPoint ChildWindow::storedPosition() const {
    return {storedOr(session_, u"Left"_s, objectName(), place_.left),
            storedOr(session_, u"Top"_s, objectName(), place_.top)};
}

/// What the controls need, with the frame around them; texts that wrap need it at the given width.
QSize ChildWindow::neededSize() const {
    auto needed = layout()->totalMinimumSize();
    needed.setWidth(qMax(needed.width(), qMin(neededForTitle(), mdiArea()->viewport()->width())));
    if (layout()->hasHeightForWidth()) {
        const int width = qMax(needed.width(), pixels(place_.width));
        needed.setHeight(qMax(needed.height(), layout()->totalMinimumHeightForWidth(width)));
    }
    return needed;
}

/// The width at which the title bar shows the whole caption.
int ChildWindow::neededForTitle() const {
    QStyleOptionTitleBar bar;
    bar.initFrom(this);
    bar.titleBarFlags = windowFlags();
    const int width = pixels(place_.width);
    bar.rect = QRect(0, 0, width, contentsMargins().top());
    const int room =
        style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, this).width();
    const QFontMetrics letters(QApplication::font("QMdiSubWindowTitleBar"));
    return width - room + letters.horizontalAdvance(windowTitle()) + besideCaption;
}

void ChildWindow::showIn(QMdiArea& area) {
    if (mdiArea()) {
        show();
        area.setActiveSubWindow(this);
        return;
    }
    QPoint position(pixels(place_.left), pixels(place_.top));
    guarded(session_.ui, [&] { position = storedPosition(); });
    area.addSubWindow(this);
    const QSize given(pixels(place_.width), pixels(place_.height));
    setFixedSize(given.expandedTo(neededSize()));
    move(inView(position, size(), area.viewport()->size()));
    show();
    area.setActiveSubWindow(this);
    if (firstFocus_)
        firstFocus_->setFocus();
}

void ChildWindow::unload() {
    unloading_ = true;
    close();
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    bool closing = unloading_;
    guarded(session_.ui, [&] { closing = closing || mayClose(); });
    if (!closing) {
        event->ignore();
        return;
    }
    guarded(session_.ui, [this] { storePosition(); });
    markClosed();
    QMdiSubWindow::closeEvent(event);
}

void ChildWindow::storePosition() {
    ModuleGlobals::SaveRegSetting(session_, u"Left"_s, objectName(), plainText(x() * twipsPerPixel));
    ModuleGlobals::SaveRegSetting(session_, u"Top"_s, objectName(), plainText(y() * twipsPerPixel));
}

QPushButton* ChildWindow::buttonFor(int key) const {
    if (key == Qt::Key_Escape)
        return cancelButton_;
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return nullptr;
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    return focused && focused->hasFocus() ? focused : defaultButton_;
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
