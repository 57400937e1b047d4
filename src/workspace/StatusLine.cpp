#include "workspace/StatusLine.h"

#include "analysis/ColourSchemes.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/Texts.h"

#include <QFileInfo>
#include <QPainter>

namespace pulselark {

namespace {

// A file is named without its folder, which stands in the tool tip.
QString WithoutFolder(QString text) {
    const auto slash = text.indexOf('/');
    if (slash < 0)
        return text;
    for (const std::string& name : {SessionName, LastOpenFolder, LastSaveFolder}) {
        const QString file = QString::fromStdString(name);
        if (!file.isEmpty())
            text.replace(file, QFileInfo(file).fileName());
    }
    return text;
}

} // namespace

StatusLine::StatusLine(QWidget* parent) : QWidget(parent) {
    setObjectName("labStatus");
}

void StatusLine::Mirror() {
    const QString full = QString::fromStdString(labStatus.Caption);
    const QString message = WithoutFolder(full);
    QStringList known{Text(TextChannelModeBase + ChannelMode), QString("128 ") + Text(TextSamplesPerSecond)};
    if (TrainingActive != Off && FeedbackMode >= 0)
        known = {Text(TextTrainingLevel).arg(static_cast<int>(FeedbackMode) + 1)};
    else if (TrainingActive != Off)
        known = {Text(TextModuleTraining)};
    known << Text(TextSchemeMidnight + ColourSchemeIndex);
    const QString facts = known.join("\n");
    const QString lamp = labConnection.Visible ? QString::fromStdString(labConnection.Caption) : QString();
    if (message == message_ && facts == facts_ && lamp == lamp_)
        return;
    lamp_ = lamp;
    message_ = message;
    facts_ = facts;
    setToolTip(full == message ? QString() : full);
    setAccessibleName(lamp_.isEmpty() ? message_ : lamp_ + ". " + message_);
    update();
}

void StatusLine::paintEvent(QPaintEvent* /*event*/) {
    const SchemeLook& look = CurrentLook();
    QPainter painter(this);
    painter.fillRect(rect(), look.Bar);
    painter.setFont(TextFont(12));
    painter.setPen(look.BarText);
    int right = width() - 24; // clear of the window's grip
    const QStringList facts = facts_.split("\n");
    for (auto fact = facts.crbegin(); fact != facts.crend(); ++fact) {
        const int wide = painter.fontMetrics().horizontalAdvance(*fact);
        painter.drawText(QRect(right - wide, 0, wide + 1, height()), Qt::AlignVCenter, *fact);
        right -= wide + 24;
    }
    const int left = 16 + PaintLamp(painter);
    const QRect room(left, 0, right - left, height());
    painter.drawText(room, Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(message_, Qt::ElideMiddle, room.width()));
}

// A red plate with the words of the loss, at the left end. Returns the room it takes.
int StatusLine::PaintLamp(QPainter& painter) const {
    constexpr int Side = 12, Padding = 10;
    constexpr QColor Plate(0xB3, 0x26, 0x1E);
    if (lamp_.isEmpty())
        return 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const int words = painter.fontMetrics().horizontalAdvance(lamp_);
    const QRectF plate(16, 3, 2 * Padding + Side + 6 + words, height() - 6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Plate);
    painter.drawRoundedRect(plate, 4, 4);
    PaintIcon(painter, Icon::Warning, QRectF(plate.left() + Padding, (height() - Side) / 2.0, Side, Side),
              Qt::white);
    painter.setPen(Qt::white);
    painter.drawText(plate.adjusted(Padding + Side + 6, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, lamp_);
    painter.restore();
    return static_cast<int>(plate.width()) + 12;
}

} // namespace pulselark
