#include "workspace/Motion.h"

#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QGuiApplication>
#include <QWidget>

#include <cmath>

namespace pulselark {

namespace {

QVariantAnimation* AnimationOn(QWidget& widget, int milliseconds) {
    auto* animation = new QVariantAnimation(&widget);
    animation->setDuration(milliseconds);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setEasingCurve(QEasingCurve::OutCubic);
    return animation;
}

void FadeCard(QWidget& card, int milliseconds) {
    auto* effect = new QGraphicsOpacityEffect(&card);
    effect->setOpacity(0);
    card.setGraphicsEffect(effect); // takes the place of one that is still under way
    QVariantAnimation* animation = AnimationOn(card, milliseconds);
    QObject::connect(animation, &QVariantAnimation::valueChanged, effect,
                     [effect](const QVariant& value) { effect->setOpacity(value.toDouble()); });
    QObject::connect(animation, &QVariantAnimation::finished, effect,
                     [&card] { card.setGraphicsEffect(nullptr); });
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace

bool MotionWanted() {
    static const bool less = qEnvironmentVariableIsSet("GTK_ENABLE_ANIMATIONS") &&
                             qEnvironmentVariableIntValue("GTK_ENABLE_ANIMATIONS") == 0;
    return !less && QGuiApplication::platformName() != "offscreen";
}

bool WindowsShineThrough() {
    return !QGuiApplication::platformName().startsWith("wayland");
}

void FadeIn(QWidget& widget, int milliseconds, int rise) {
    if (!MotionWanted())
        return;
    if (!widget.isWindow()) {
        FadeCard(widget, milliseconds);
        return;
    }
    if (!WindowsShineThrough())
        return;
    QVariantAnimation* animation = AnimationOn(widget, milliseconds);
    const QPoint place = widget.pos();
    const auto below = [place, rise](double way) {
        return place + QPoint(0, static_cast<int>(std::lround((1 - way) * rise)));
    };
    widget.setWindowOpacity(0);
    if (rise != 0)
        widget.move(below(0));
    QObject::connect(animation, &QVariantAnimation::valueChanged, &widget,
                     [&widget, below, rise, last = below(0)](const QVariant& value) mutable {
                         widget.setWindowOpacity(value.toDouble());
                         if (rise == 0 || widget.pos() != last) // who has moved it meanwhile knows better
                             return;
                         last = below(value.toDouble());
                         widget.move(last);
                     });
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

HoverLight::HoverLight(QWidget* control) : QObject(control), control_(control) {
    way_.setDuration(HoverTime);
    control->installEventFilter(this);
    connect(&way_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        level_ = value.toDouble();
        control_->update();
    });
}

QColor HoverLight::On(QColor colour) const {
    colour.setAlphaF(static_cast<float>(colour.alphaF() * level_));
    return colour;
}

QColor HoverLight::Between(const QColor& away, const QColor& over) const {
    const auto mixed = [this](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * level_));
    };
    return {mixed(away.red(), over.red()), mixed(away.green(), over.green()), mixed(away.blue(), over.blue()),
            mixed(away.alpha(), over.alpha())};
}

bool HoverLight::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::Enter:
        GoTo(control_->isEnabled() ? 1 : 0);
        break;
    case QEvent::EnabledChange:
        GoTo(control_->isEnabled() && control_->underMouse() ? 1 : 0);
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        GoTo(0);
        break;
    default:
        break;
    }
    return false;
}

void HoverLight::GoTo(double level) {
    way_.stop();
    if (!MotionWanted() || !control_->isVisible()) {
        level_ = level;
        control_->update();
        return;
    }
    way_.setStartValue(level_);
    way_.setEndValue(level);
    way_.start();
}

} // namespace pulselark
