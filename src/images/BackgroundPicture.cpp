#include "images/BackgroundPicture.h"

#include "base/FlagWhile.h"
#include "images/PictureFiles.h"
#include "persistence/ConfigFolder.h"
#include "persistence/FileMessages.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"

#include <QPainter>
#include <QPainterPath>
#include <QStandardPaths>

#include <array>
#include <cmath>
#include <numbers>

namespace pulselark {

namespace {

constexpr const char* KeptName = "background.picture";
constexpr QSize LargestKept(2560, 1600); // pixels; what a larger picture has more is not seen behind panels
constexpr float MutedBy = 0.6F;          // share of the desk's colour over a picture

// A picture of the user's, ready or, if it is a vector picture, to be drawn; all empty for the program's own.
struct UserPicture {
    QImage Pixels;
    QByteArray Vector;
};
UserPicture picture;

// The background as it was painted last.
struct Painted {
    QImage Pixels;
    QColor Desk;
    double Density = 0;
};
Painted painted;

// Returns 0, or the number of the failure; then the picture stays.
Integer Take(const std::string& bytes) {
    const QByteArray content = QByteArray::fromStdString(bytes);
    UserPicture taken;
    if (!content.isEmpty()) {
        const QImage pixels = ReadPicture(content, LargestKept);
        if (pixels.isNull())
            return FailurePathFileAccess;
        if (IsVectorPicture(content))
            taken.Vector = content;
        else
            taken.Pixels = pixels.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    picture = taken;
    painted = {};
    return 0;
}

void TellFailure(Integer failure, const std::string& name) {
    ShowFileFailure(LanguageText(TextBackgroundFailed), {failure, 0}, name,
                    LanguageText(TextBackgroundStays));
}

// Takes the picture over and keeps it for the next start.
bool TakeAndKeep(const std::string& bytes, const std::string& name) {
    const UserPicture before = picture;
    if (const Integer failure = Take(bytes); failure != 0) {
        TellFailure(failure, name);
        return false;
    }
    const std::string kept = InConfigFolder(KeptName);
    if (const Integer failure = ThePlatform().Files.ReplaceWhole(kept, bytes); failure != 0) {
        picture = before;
        painted = {};
        TellFailure(failure, kept);
        return false;
    }
    return true;
}

QImage PictureFor(const QSize& pixels) {
    return picture.Vector.isEmpty() ? picture.Pixels : ReadPicture(picture.Vector, pixels);
}

void PaintPicture(QPainter& painter, const QSizeF& size, const QImage& shown, const QColor& desk) {
    const QRectF area(QPointF(0, 0), size);
    const QSizeF cover = QSizeF(shown.size()).scaled(size, Qt::KeepAspectRatioByExpanding);
    QRectF target(QPointF(0, 0), cover);
    target.moveCenter(area.center());
    painter.drawImage(target, shown);
    QColor veil = desk;
    veil.setAlphaF(MutedBy);
    painter.fillRect(area, veil);
}

// Slow waves from edge to edge, as a breath that swells and settles; hardly lighter or darker than the desk.
void PaintWaves(QPainter& painter, const QSizeF& size, const QColor& desk) {
    constexpr int Waves = 7;
    constexpr int Steps = 96;
    constexpr double Turn = 2 * std::numbers::pi;
    const bool dark = desk.lightnessF() < 0.5F;
    QLinearGradient ground(0, 0, 0, size.height());
    ground.setColorAt(0, desk.lighter(dark ? 116 : 103));
    ground.setColorAt(0.55, desk);
    ground.setColorAt(1, desk.darker(dark ? 118 : 104));
    painter.fillRect(QRectF(QPointF(0, 0), size), ground);
    painter.setBrush(Qt::NoBrush);
    for (int wave = 0; wave < Waves; ++wave) {
        const double share = static_cast<double>(wave) / (Waves - 1);
        QPolygonF line;
        for (int step = 0; step <= Steps; ++step) {
            const double x = static_cast<double>(step) / Steps;
            const double swell = std::pow(std::sin(x * std::numbers::pi), 2);
            const double y = 0.62 + 0.04 * share +
                             0.2 * (1 - 1.5 * share) * swell * std::sin(Turn * (1.5 * x + 0.1 * share));
            line << QPointF(x * size.width(), y * size.height());
        }
        QColor colour = dark ? Qt::white : Qt::black;
        colour.setAlphaF(static_cast<float>(0.035 + 0.035 * (1 - std::fabs(2 * share - 1))));
        painter.setPen(QPen(colour, 1.5));
        painter.drawPolyline(line);
    }
}

void PaintAnew(const QSize& size, double density, const QColor& desk) {
    const QSize pixels = (QSizeF(size) * density).toSize();
    painted = {QImage(pixels, QImage::Format_RGB32), desk, density};
    painted.Pixels.setDevicePixelRatio(density);
    QPainter painter(&painted.Pixels);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.fillRect(QRect(QPoint(0, 0), size), desk);
    const QImage shown = PictureFor(pixels);
    if (shown.isNull())
        PaintWaves(painter, size, desk);
    else
        PaintPicture(painter, size, shown, desk);
}

} // namespace

void LoadBackgroundPicture() {
    const std::string name = InConfigFolder(KeptName);
    std::string bytes;
    Integer failure = ThePlatform().Files.ReadWhole(name, bytes);
    picture = {};
    painted = {};
    if (IsMissing(failure))
        return;
    if (failure == 0)
        failure = Take(bytes);
    if (failure != 0)
        TellFailure(failure, name);
}

bool ChooseBackgroundPicture() {
    const std::string endings = ReadablePictures().toStdString();
    std::string filter = LanguageText(TextFileTypePicture);
    filter += " (" + endings + ")|" + endings;
    const QString start = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    std::optional<std::string> name;
    {
        const FlagWhile open(DialogOpen);
        name = ThePlatform().FileDialogs.ChooseFileToOpen(start.toStdString(), filter);
    }
    if (!name)
        return false;
    std::string bytes;
    Integer failure = ThePlatform().Files.ReadWhole(*name, bytes);
    if (failure == 0 && bytes.empty())
        failure = FailureInputPastEnd;
    if (failure != 0) {
        TellFailure(failure, *name);
        return false;
    }
    return TakeAndKeep(bytes, *name);
}

bool UseOwnBackground() {
    return TakeAndKeep({}, InConfigFolder(KeptName));
}

void PaintBackground(QPainter& painter, const QSize& size, const Background& background) {
    if (!background.Picture) {
        painter.fillRect(QRect(QPoint(0, 0), size), background.Desk);
        return;
    }
    const double density = painter.device()->devicePixelRatioF();
    const QSize pixels = (QSizeF(size) * density).toSize();
    if (painted.Pixels.size() != pixels || painted.Desk != background.Desk || painted.Density != density)
        PaintAnew(size, density, background.Desk);
    painter.drawImage(0, 0, painted.Pixels);
}

} // namespace pulselark
