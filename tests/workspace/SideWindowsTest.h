#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include <stdexcept>

/// What a user does to a side window, control by control.
namespace pulselark {

/// The control of that name; a test that finds none fails.
template <class Widget>
Widget& Named(const QObject& window, const QString& name) {
    auto* widget = window.findChild<Widget*>(name);
    if (widget == nullptr)
        throw std::runtime_error("no control " + name.toStdString());
    return *widget;
}

inline void Click(const QObject& window, const char* name) {
    Named<QPushButton>(window, name).click();
}

inline void Press(QWidget& window, int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&window, &event);
}

/// Lets a running timer strike once, without the wait.
inline void Ring(const QObject& window, const char* timer) {
    auto& each = Named<QTimer>(window, timer);
    ASSERT_TRUE(each.isActive()) << timer;
    if (each.isSingleShot())
        each.stop();
    QMetaObject::invokeMethod(&each, "timeout");
}

} // namespace pulselark
