#include "workspace/ModeButtons.h"

#include "analysis/ColourSchemes.h"
#include "feedback/ModeSelector.h"
#include "platform/qt/QtColour.h"
#include "session/MainBuffers.h"
#include "session/Replay.h"
#include "workspace/Look.h"
#include "workspace/Motion.h"
#include "workspace/Texts.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace pulselark {

namespace {

constexpr int FullHeight = 88;
constexpr int ModeButtons = 4;
constexpr QColor DarkText(0x1B, 0x24, 0x4F);
constexpr QColor DarkHint(0x3D, 0x48, 0x78);
constexpr QColor PaleDisc(0xE2, 0xE8, 0xFA);

constexpr std::array Pictures{Icon::BreathingWave, Icon::Heart,   Icon::Coherence,
                              Icon::Training,      Icon::Scenery, Icon::Music};

// Parts of a mode button, which shrink with the row.
struct Parts {
    int Disc;
    int Padding;
    int Digit;
    int Name; // pixels of its text
};

Parts PartsFor(int high) {
    return high >= FullHeight ? Parts{48, 16, 24, 14} : Parts{32, 8, 20, 12};
}

bool LightModule() {
    return ToQColor(CurrentScheme().ModuleBack).lightness() > 128;
}

} // namespace

ModeButton::ModeButton(int index, Icon icon, QWidget* parent)
    : QAbstractButton(parent), index_(index), icon_(icon), hover_(new HoverLight(this)) {
    setObjectName(QString("imBFC%1").arg(index));
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setCheckable(false);
}

void ModeButton::SetWords(const QString& name, const QString& hint) {
    setText(name);
    hint_ = hint;
    setAccessibleName(Square() ? name : QString("%1. %2").arg(index_ + 1).arg(name));
    update();
}

void ModeButton::SetState(bool running, bool chosen) {
    if (running == running_ && chosen == chosen_)
        return;
    running_ = running;
    chosen_ = chosen;
    update();
}

int ModeButton::WantedWidth(int high) const {
    if (Square())
        return high;
    const Parts parts = PartsFor(high);
    const int words = std::max(QFontMetrics(TextFont(parts.Name, 500)).horizontalAdvance(text()),
                               QFontMetrics(TextFont(12)).horizontalAdvance(hint_));
    return parts.Padding * 4 + parts.Disc + words + 8 + parts.Digit;
}

bool ModeButton::HasRoomForPicture() const {
    constexpr int LeastWords = 120; // a longer name takes two lines
    const int high = height() - 2 * ModeRow::Rim;
    const Parts parts = PartsFor(high);
    const int name = QFontMetrics(TextFont(parts.Name, 500)).horizontalAdvance(text());
    const int room = width() - 2 * ModeRow::Rim - 3 * parts.Padding - parts.Disc - 8 - parts.Digit;
    return room >= std::min(LeastWords, name);
}

void ModeButton::SetPicture(bool shown) {
    picture_ = shown;
    update();
}

ModeButton::Inks ModeButton::CurrentInks() const {
    const SchemeLook& look = CurrentLook();
    if (running_)
        return {Qt::white, Qt::white, DarkText, DarkHint, PaleDisc};
    QColor plate = ToQColor(CurrentScheme().ModuleBack);
    const bool light = LightModule();
    if (isDown())
        plate = light ? plate.darker(112) : plate.lighter(135);
    else
        plate = hover_->Between(plate, plate.lighter(light ? 104 : 120));
    QColor disc = look.TitleText;
    disc.setAlphaF(0.14F);
    return {plate, chosen_ ? look.BorderActive : look.Border, look.TitleText, look.TitleText, disc};
}

void ModeButton::PaintDigit(QPainter& painter, const Inks& inks, const QRectF& disc) const {
    painter.setPen(QPen(inks.Text, 1.5));
    painter.setBrush(running_ ? QBrush(DarkText) : QBrush(Qt::NoBrush));
    painter.drawEllipse(disc.adjusted(1, 1, -1, -1));
    painter.setPen(running_ ? QColor(Qt::white) : inks.Text);
    painter.setFont(TextFont(disc.width() >= 24 ? 13 : 11, 700));
    painter.drawText(disc, Qt::AlignCenter, QString::number(index_ + 1));
}

void ModeButton::PaintMode(QPainter& painter, const Inks& inks) const {
    const QRectF plate = QRectF(rect()).adjusted(ModeRow::Rim, ModeRow::Rim, -ModeRow::Rim, -ModeRow::Rim);
    const Parts parts = PartsFor(static_cast<int>(plate.height()));
    const QRectF digit(plate.right() - parts.Padding - parts.Digit, plate.center().y() - parts.Digit / 2.0,
                       parts.Digit, parts.Digit);
    PaintDigit(painter, inks, digit);
    double left = plate.left() + parts.Padding;
    if (picture_) {
        const QRectF disc(left, plate.center().y() - parts.Disc / 2.0, parts.Disc, parts.Disc);
        painter.setPen(Qt::NoPen);
        painter.setBrush(inks.Disc);
        painter.drawEllipse(disc);
        const double inset = parts.Disc * 0.27;
        PaintIcon(painter, icon_, disc.adjusted(inset, inset, -inset, -inset), inks.Text);
        left = disc.right() + parts.Padding;
    }
    const double wide = digit.left() - 8 - left;
    const QFont nameFont = TextFont(parts.Name, 500);
    const QFontMetrics metrics(nameFont);
    const bool oneLine = metrics.horizontalAdvance(text()) <= wide;
    const bool hasHint = oneLine && !hint_.isEmpty() && parts.Disc == 48;
    painter.setPen(inks.Text);
    painter.setFont(nameFont);
    if (!hasHint) {
        const QRectF words(left, plate.top() + 4, wide, plate.height() - 8);
        painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text());
        return;
    }
    painter.drawText(QRectF(left, plate.center().y() - 19, wide, 20), Qt::AlignLeft | Qt::AlignVCenter,
                     text());
    painter.setPen(inks.Hint);
    painter.setFont(TextFont(12));
    painter.drawText(QRectF(left, plate.center().y() + 1, wide, 18), Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(TextFont(12)).elidedText(hint_, Qt::ElideRight, static_cast<int>(wide)));
}

void ModeButton::PaintSquare(QPainter& painter, const Inks& inks) const {
    const QRectF plate = QRectF(rect()).adjusted(ModeRow::Rim, ModeRow::Rim, -ModeRow::Rim, -ModeRow::Rim);
    const bool high = plate.height() >= FullHeight;
    const double side = high ? 24 : 20;
    const QFont font = TextFont(high ? 12 : 11);
    const bool words = QFontMetrics(font).horizontalAdvance(text()) <= plate.width() - 8;
    const double top =
        words ? plate.center().y() - (side + (high ? 20 : 14)) / 2 : plate.center().y() - side / 2;
    PaintIcon(painter, icon_, QRectF(plate.center().x() - side / 2, top, side, side), inks.Text);
    if (!words)
        return;
    painter.setPen(inks.Text);
    painter.setFont(font);
    painter.drawText(QRectF(plate.left(), top + side + (high ? 4 : 0), plate.width(), 16), Qt::AlignCenter,
                     text());
}

void ModeButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Inks inks = CurrentInks();
    const QRectF plate = QRectF(rect()).adjusted(ModeRow::Rim, ModeRow::Rim, -ModeRow::Rim, -ModeRow::Rim);
    painter.setPen(QPen(inks.Edge, running_ || chosen_ ? 2 : 1));
    painter.setBrush(inks.Plate);
    painter.drawRoundedRect(plate.adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
    if (Square())
        PaintSquare(painter, inks);
    else
        PaintMode(painter, inks);
    if (hasFocus() && keyboardFocus_) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(CurrentLook().Focus, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 12, 12);
    }
}

void ModeButton::mouseReleaseEvent(QMouseEvent* event) {
    const bool inside = rect().contains(event->position().toPoint());
    setDown(false);
    if (!inside)
        return;
    if (event->button() == Qt::LeftButton)
        emit ClickedWith(LeftButton);
    if (event->button() == Qt::RightButton)
        emit ClickedWith(RightButton);
}

void ModeButton::keyPressEvent(QKeyEvent* event) {
    const bool activates =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (!activates || event->isAutoRepeat()) {
        event->ignore();
        return;
    }
    emit ClickedWith(LeftButton);
}

void ModeButton::enterEvent(QEnterEvent* /*event*/) {
    update();
}

void ModeButton::leaveEvent(QEvent* /*event*/) {
    update();
}

void ModeButton::focusInEvent(QFocusEvent* event) {
    keyboardFocus_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                     event->reason() == Qt::ShortcutFocusReason;
    QAbstractButton::focusInEvent(event);
}

// ---- Row ----

ModeRow::ModeRow(QWidget* parent) : QWidget(parent), buttons_{} {
    setObjectName("imBFC");
    for (int index = 0; index < static_cast<int>(buttons_.size()); ++index) {
        auto* button = new ModeButton(index, Pictures[static_cast<std::size_t>(index)], this);
        buttons_[static_cast<std::size_t>(index)] = button;
        connect(button, &ModeButton::ClickedWith, this,
                [this, index](int mouseButton) { emit Clicked(index, mouseButton); });
    }
    Retranslate();
}

void ModeRow::Retranslate() {
    // The first name carries its hint behind a comma.
    const QString pacer = Text(TextModePacer);
    const auto comma = std::max(pacer.indexOf(','), pacer.indexOf(QChar(0x3001)));
    buttons_[0]->SetWords(comma < 0 ? pacer : pacer.left(comma),
                          comma < 0 ? QString() : pacer.mid(comma + 1).trimmed());
    buttons_[1]->SetWords(Text(TextModeBaroreflex), Text(TextHeartRate));
    buttons_[2]->SetWords(Text(TextModeIncreasing), Text(TextGroupCoherence));
    buttons_[3]->SetWords(Text(TextModeIntegrating), Text(TextDynamicIndex));
    buttons_[4]->SetWords(Text(TextScenery), QString());
    buttons_[5]->SetWords(Text(TextMusic), QString());
    for (const std::size_t square : {4U, 5U})
        buttons_[square]->setToolTip(buttons_[square]->text());
    LayOut();
    Mirror();
}

void ModeRow::Mirror() {
    for (std::size_t mode = 0; mode < ModeButtons; ++mode) {
        buttons_[mode]->SetState(ModeShown == static_cast<Integer>(mode),
                                 FeedbackMode == static_cast<double>(mode));
        const QString tip = QString::fromStdString(imBFCTips[mode]);
        if (buttons_[mode]->toolTip() != tip)
            buttons_[mode]->setToolTip(tip);
        buttons_[mode]->setAccessibleDescription(tip);
    }
}

void ModeRow::SetGap(int gap) {
    gap_ = gap;
    LayOut();
}

void ModeRow::resizeEvent(QResizeEvent* /*event*/) {
    LayOut();
}

// The modes share what the squares leave, each in proportion to its words.
void ModeRow::LayOut() {
    const int high = height() - 2 * Rim;
    if (high <= 0)
        return;
    const int room = width() - 2 * Rim - 2 * high - 5 * gap_;
    double wanted = 0;
    for (std::size_t mode = 0; mode < ModeButtons; ++mode)
        wanted += buttons_[mode]->WantedWidth(high);
    double x = Rim;
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const bool square = i >= ModeButtons;
        const double wide = square ? high : room * buttons_[i]->WantedWidth(high) / std::max(wanted, 1.0);
        const int left = static_cast<int>(x);
        const int right = static_cast<int>(x + wide);
        buttons_[i]->setGeometry(left - Rim, 0, right - left + 2 * Rim, height());
        x += wide + gap_;
    }
    // All of the modes have their pictures, or none: a mixed row is restless.
    const bool pictures = std::all_of(buttons_.begin(), buttons_.begin() + ModeButtons,
                                      [](const ModeButton* button) { return button->HasRoomForPicture(); });
    for (std::size_t mode = 0; mode < ModeButtons; ++mode)
        buttons_[mode]->SetPicture(pictures);
}

} // namespace pulselark
