#pragma once

#include "resources/languages.h"
#include "testkit/letters_of_size.h"
#include "testkit/shown_in.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <functional>
#include <memory>

namespace kelvane::testing {

/// What a text needs at least, against what it has.
inline bool isCutOff(const QWidget& widget) {
    if (const auto* text = qobject_cast<const QLabel*>(&widget))
        return text->wordWrap() ? text->heightForWidth(text->width()) > text->height()
                                : text->sizeHint().width() > text->width();
    if (qobject_cast<const QAbstractButton*>(&widget))
        return widget.sizeHint().width() > widget.width() || widget.sizeHint().height() > widget.height();
    if (qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget))
        return widget.minimumSizeHint().width() > widget.width() ||
               widget.sizeHint().height() > widget.height();
    return false;
}

/// What a screen of 1024 x 768 has for a window between its frame and a panel of the desktop.
constexpr QSize smallScreen(1024, 700);

/// Shows a window in both languages and in letters of 9 to 14 points, and keeps its pictures. Every control
/// has to be seen whole and to have its names.
inline void expectNothingCutOff(const QString& name, const std::function<std::unique_ptr<QWidget>()>& make,
                                const QSize& size = {1000, 640}) {
    const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/../pictures"));
    ASSERT_TRUE(folder.mkpath(QStringLiteral(".")));
    const auto before = QApplication::font();
    for (const auto& language : {QStringLiteral("en"), QStringLiteral("de")}) {
        const ShownIn shown(language);
        for (const int points : {9, 11, 14}) {
            auto font = before;
            font.setPointSize(points);
            QApplication::setFont(font);
            const auto window = make();
            window->resize(size.expandedTo(window->minimumSizeHint()));
            window->show();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
            for (const auto* widget : window->findChildren<QWidget*>()) {
                if (!widget->isVisible() || widget->objectName().isEmpty() ||
                    widget->objectName().startsWith(QStringLiteral("qt_")))
                    continue;
                EXPECT_FALSE(isCutOff(*widget))
                    << widget->objectName().toStdString() << ' ' << points << ' ' << language.toStdString();
                if (widget->focusPolicy() & Qt::TabFocus) {
                    EXPECT_NE(widget->accessibleName(), QString()) << widget->objectName().toStdString();
                }
            }
            const auto file = QStringLiteral("%1-%2-%3.png").arg(name, language).arg(points);
            ASSERT_TRUE(window->grab().save(folder.filePath(file)));
        }
    }
    QApplication::setFont(before);
}

} // namespace kelvane::testing
