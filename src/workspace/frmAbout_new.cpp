#include "workspace/frmAbout_new.h"

#include "analysis/ColourSchemes.h"
#include "platform/qt/QtColour.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace pulselark {

namespace {

constexpr int Opaque = 255;
constexpr int StepIn = 51;  // five steps
constexpr int StepOut = 17; // fifteen steps
constexpr int UpInterval = 100;
constexpr int WaitInterval = 1500;
constexpr int DownInterval = 1;

constexpr const char* Licence = "GPL-3.0-or-later";
constexpr const char* Sound = "FluidSynth (LGPL-2.1-or-later) · RtMidi (MIT) · SDL_mixer (Zlib)";
constexpr const char* Fonts = "Roboto · Noto Sans · DejaVu Sans";

QString Libraries() {
    return QString::fromUtf8("Qt %1 (LGPL-3.0) · FFTW 3 (GPL-2.0-or-later)").arg(qVersion());
}

} // namespace

frmAbout_new::frmAbout_new(QWidget* owner, const QString& version)
    : QWidget(owner, Qt::Dialog | Qt::FramelessWindowHint), version_(version), close_(new QPushButton(this)) {
    setObjectName("frmAbout_new");
    setAttribute(Qt::WA_TranslucentBackground);
    setFixedSize(480, 300);
    setFont(TextFont(13));
    const std::pair<QTimer*, const char*> names[]{
        {&timUp_, "timUp"}, {&timWait_, "timWait"}, {&timDown_, "timDown"}};
    for (const auto& [timer, name] : names) {
        timer->setParent(this);
        timer->setObjectName(name);
    }
    timUp_.setInterval(UpInterval);
    timWait_.setInterval(WaitInterval);
    timWait_.setSingleShot(true);
    timDown_.setInterval(DownInterval);
    connect(&timUp_, &QTimer::timeout, this, &frmAbout_new::FadeIn);
    connect(&timWait_, &QTimer::timeout, this, [this] { timDown_.start(); });
    connect(&timDown_, &QTimer::timeout, this, &frmAbout_new::FadeOut);
    close_->setObjectName("comClose");
    close_->setFont(TextFont(13, 500));
    close_->setCursor(Qt::PointingHandCursor);
    connect(close_, &QPushButton::clicked, this, &QWidget::hide);
    Retranslate();
}

void frmAbout_new::Retranslate() {
    setWindowTitle(ProgramTitle);
    SetCaption(close_, TextOr(TextClose, "Close"));
    close_->adjustSize();
    close_->move(width() - 24 - close_->width(), height() - 20 - close_->height());
    setAccessibleName(ProgramTitle);
    setAccessibleDescription(
        QString("%1\n%2\n%3\n%4\n%5").arg(VersionLine(), Licence, Libraries(), Sound, Fonts));
    update();
}

QString frmAbout_new::VersionLine() const {
    return TextOr(TextAboutVersion, "Version %1").replace("%1", version_);
}

void frmAbout_new::ShowAsSplash(SplashPace pace, std::function<void()> done) {
    AboutFromMenu = Off;
    done_ = std::move(done);
    if (pace.SkipWaiting || pace.ReducedMotion) {
        EndSplash();
        return;
    }
    close_->hide();
    SetAlpha(0);
    PlaceInMiddle();
    show();
    timUp_.start();
}

void frmAbout_new::ShowFromMenu() {
    AboutFromMenu = On;
    const SchemeLook& look = CurrentLook();
    close_->setStyleSheet(
        QString("QPushButton { background: %1; color: %2; border: 1px solid rgba(255, 255, 255, 97);"
                " border-radius: 6px; min-height: 34px; min-width: 56px; padding: 0 16px; }"
                "QPushButton:hover, QPushButton:pressed { background: %3; }"
                "QPushButton:focus { border: 2px solid %2; }")
            .arg(look.RaisedHover.name(), look.BarText.name(), look.RaisedPressed.name()));
    close_->show();
    Retranslate();
    SetAlpha(Opaque);
    PlaceInMiddle();
    show();
    raise();
    activateWindow();
    close_->setFocus();
}

void frmAbout_new::PlaceInMiddle() {
    const QWidget* owner = parentWidget();
    const bool over = owner != nullptr && owner->isVisible();
    if (!over && screen() == nullptr)
        return;
    const QPoint middle = over ? owner->frameGeometry().center() : screen()->availableGeometry().center();
    move(middle - rect().center());
}

void frmAbout_new::SetAlpha(int alpha) {
    alpha_ = std::clamp(alpha, 0, Opaque);
    update();
}

void frmAbout_new::FadeIn() {
    SetAlpha(alpha_ + StepIn);
    if (alpha_ < Opaque)
        return;
    timUp_.stop();
    timWait_.start();
}

void frmAbout_new::FadeOut() {
    SetAlpha(alpha_ - StepOut);
    if (alpha_ == 0)
        EndSplash();
}

void frmAbout_new::EndSplash() {
    timUp_.stop();
    timWait_.stop();
    timDown_.stop();
    hide();
    // What follows may show this window again or delete it.
    if (const auto done = std::exchange(done_, nullptr))
        done();
}

void frmAbout_new::mousePressEvent(QMouseEvent* /*event*/) {
    if (AboutFromMenu != Off)
        hide();
}

void frmAbout_new::keyPressEvent(QKeyEvent* event) {
    if (AboutFromMenu != Off && event->key() == Qt::Key_Escape)
        hide();
    else
        QWidget::keyPressEvent(event);
}

void frmAbout_new::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    // A splash that the window manager closes must not hold up the start.
    if (AboutFromMenu == Off)
        EndSplash();
}

void frmAbout_new::paintEvent(QPaintEvent* /*event*/) {
    const SchemeLook& look = CurrentLook();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(alpha_ / static_cast<double>(Opaque));
    painter.setPen(QPen(QColor(255, 255, 255, 46), 1));
    painter.setBrush(look.Bar);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 12, 12);

    const QRectF mark(32, 40, 64, 64);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQColor(CurrentScheme().Button));
    painter.drawRoundedRect(mark, 18, 18);
    PaintIcon(painter, Icon::Mark, mark.adjusted(10, 10, -10, -10), Qt::white);

    painter.setPen(look.BarText);
    painter.setFont(TextFont(20, 500));
    painter.drawText(QRectF(120, 44, width() - 144, 28), Qt::AlignLeft | Qt::AlignVCenter, ProgramTitle);
    painter.setFont(TextFont(13));
    painter.drawText(QRectF(120, 76, width() - 144, 20), Qt::AlignLeft | Qt::AlignVCenter, VersionLine());
    painter.fillRect(QRectF(32, 136, width() - 64, 1), QColor(255, 255, 255, 46));
    double y = 152;
    for (const QString& line :
         {QString(Licence), Libraries(), QString::fromUtf8(Sound), QString::fromUtf8(Fonts)}) {
        painter.drawText(QRectF(32, y, width() - 64, 20), Qt::AlignLeft | Qt::AlignVCenter, line);
        y += 24;
    }
}

} // namespace pulselark
