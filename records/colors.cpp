#include "records/colors.h"

#include <QGuiApplication>
#include <QPalette>

namespace kelvane {

namespace {

bool isDark() {
    return QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
}

} // namespace

QColor alarmColor() {
    return isDark() ? QColor(255, 140, 130) : QColor(165, 0, 0);
}

QColor nearColor() {
    return isDark() ? QColor(255, 205, 100) : QColor(120, 75, 0);
}

} // namespace kelvane
