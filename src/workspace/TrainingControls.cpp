#include "workspace/TrainingControls.h"

#include "session/MainControls.h"
#include "workspace/FormPaint.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/TrainingArtwork.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>

namespace pulselark {

namespace {

constexpr int RingSide = 32;
constexpr int NoticePadding = 16;
constexpr int StartSeconds = 14;
constexpr int SwitchHeight = 36;
constexpr int SwitchPadding = 14;
constexpr int TickRoom = 18;

} // namespace

StartNotice::StartNotice(QWidget* parent) : QWidget(parent) {
    setObjectName("labBFStart");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

int StartNotice::WantedHeight() const {
    return 64;
}

void StartNotice::Mirror() {
    const QString words = QString::fromStdString(labBFStart.Caption);
    static const QRegularExpression number("\\d+");
    const int left = number.match(words).captured().toInt();
    setVisible(labBFStart.Visible);
    if (words == words_ && left == left_)
        return;
    words_ = words;
    left_ = std::clamp(left, 0, StartSeconds);
    setAccessibleName(words_);
    update();
}

void StartNotice::paintEvent(QPaintEvent* /*event*/) {
    constexpr QColor Paper(0xFF, 0xF3, 0xDC);
    constexpr QColor Edge(0xE0, 0xB5, 0x64);
    constexpr QColor Ink(0x5C, 0x3D, 0x00);
    constexpr QColor Left(0x8A, 0x5C, 0x00);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Edge, 1));
    painter.setBrush(Paper);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
    const QRectF ring(NoticePadding, (height() - RingSide) / 2.0, RingSide, RingSide);
    const QRectF track = ring.adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Edge, 3));
    painter.drawEllipse(track);
    painter.setPen(QPen(Left, 3, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(track, 90 * 16, -360 * 16 * left_ / StartSeconds);
    painter.setPen(Ink);
    painter.setFont(TextFont(12, 700));
    painter.drawText(ring, Qt::AlignCenter, QString::number(left_));
    painter.setFont(TextFont(14, 500));
    const double x = ring.right() + 12;
    painter.drawText(QRectF(x, 4, width() - x - 12, height() - 8),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, words_);
}

// ---- Source ----

SourceSwitch::SourceSwitch(QWidget* parent) : QAbstractButton(parent) {
    setObjectName("picSource");
    setFont(TextFont(13, 500));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setCheckable(true);
}

void SourceSwitch::SetWords(const QString& stored, const QString& live) {
    words_[0] = stored;
    words_[1] = live;
    setAccessibleName(stored + " / " + live);
    updateGeometry();
    update();
}

void SourceSwitch::SetStored(bool stored) {
    stored_ = stored;
    setChecked(stored);
    setAccessibleDescription(words_[stored ? 0 : 1]);
    update();
}

QSize SourceSwitch::sizeHint() const {
    const int words =
        std::max(fontMetrics().horizontalAdvance(words_[0]), fontMetrics().horizontalAdvance(words_[1]));
    return {2 * (words + 2 * SwitchPadding + TickRoom), SwitchHeight};
}

void SourceSwitch::mouseReleaseEvent(QMouseEvent* event) {
    setDown(false);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Chosen(event->position().x() < width() / 2.0);
}

void SourceSwitch::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return)
        emit Chosen(!stored_);
    else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        emit Chosen(event->key() == Qt::Key_Left);
    else
        event->ignore();
}

void SourceSwitch::paintEvent(QPaintEvent* /*event*/) {
    constexpr QColor Edge(0x7A, 0x86, 0xAE);
    QPainter painter(this);
    BeginControl(painter, *this);
    painter.setFont(font());
    const QRectF body = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(Edge, 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(body, 6, 6);
    for (const int half : {0, 1}) {
        const bool chosen = (half == 0) == stored_;
        // The one that is in force can be read also where it cannot be changed.
        if (!isEnabled())
            painter.setOpacity(chosen ? 0.65 : 0.38);
        QRectF plate(half * width() / 2.0, 0, width() / 2.0, height());
        if (chosen) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(TrainingColour::Ink);
            painter.drawRoundedRect(plate.adjusted(3, 3, -3, -3), 4, 4);
            painter.setOpacity(1);
            PaintTick(painter, QRectF(plate.left() + SwitchPadding - 4, plate.center().y() - 9, 18, 18),
                      Qt::white);
            plate.adjust(TickRoom, 0, 0, 0);
        }
        painter.setPen(chosen ? QColor(Qt::white) : TrainingColour::Ink);
        painter.drawText(plate, Qt::AlignCenter, words_[half]);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(FormColour::Focus, 2));
        painter.drawRoundedRect(body.adjusted(1, 1, -1, -1), 6, 6);
    }
}

} // namespace pulselark
