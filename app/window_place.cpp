#include "app/window_place.h"

#include "platform/error_report.h"
#include "platform/values/numbers.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

// Beyond any screen; keeps a spoilt setting inside the whole numbers.
constexpr double farAway = 1e6;

std::optional<int> readStored(const Workstation& workstation, const QString& section, const QString& key) {
    const auto number = numberOf(ModuleGlobals::GetRegSetting(workstation, section, key));
    if (!number)
        return {};
    return static_cast<int>(std::clamp(*number, -farAway, farAway));
}

bool isOnAScreen(const QRect& rect) {
    const auto screens = QGuiApplication::screens();
    return std::ranges::any_of(
        screens, [&](const QScreen* screen) { return screen->availableGeometry().intersects(rect); });
}

} // namespace

WindowPlace placeOf(const QWidget& window) {
    if (window.isMaximized())
        return {window.normalGeometry(), true};
    return {QRect(window.pos(), window.size()), false};
}

void restorePlace(const Workstation& workstation, const QString& section, QWidget& window) {
    const auto stored = [&](const QString& key) { return readStored(workstation, section, key); };
    const auto width = stored(u"Width"_s);
    const auto height = stored(u"Height"_s);
    if (!width || !height || *width <= 0 || *height <= 0)
        return;
    window.resize(QSize(*width, *height)
                      .boundedTo(window.screen()->availableSize())
                      .expandedTo(window.minimumSizeHint()));
    const auto left = stored(u"Left"_s);
    const auto top = stored(u"Top"_s);
    if (left && top && isOnAScreen(QRect(QPoint(*left, *top), window.size())))
        window.move(*left, *top);
    if (stored(u"Maximized"_s) == 1)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void storePlace(const Workstation& workstation, const QString& section, const WindowPlace& place) {
    const std::pair<QString, int> values[] = {
        {u"Left"_s, place.rect.x()},
        {u"Top"_s, place.rect.y()},
        {u"Width"_s, place.rect.width()},
        {u"Height"_s, place.rect.height()},
        {u"Maximized"_s, place.maximized ? 1 : 0},
    };
    for (const auto& [key, value] : values)
        ModuleGlobals::SaveRegSetting(workstation, section, key, plainText(value));
}

} // namespace kelvane
