#include "images/PictureFiles.h"

#include "platform/Platform.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

#include <algorithm>
#include <array>

namespace pulselark {

namespace {

struct PictureFormat {
    const char* Name; // the toolkit's
    const char* Shown;
    const char* Endings;
    bool SeeThrough;
};
constexpr const char* Vector = "svg";
constexpr std::array<PictureFormat, 5> Formats{{{"png", "PNG", "*.png", true},
                                                {"jpeg", "JPEG", "*.jpg *.jpeg", false},
                                                {"bmp", "BMP", "*.bmp", false},
                                                {"webp", "WebP", "*.webp", true},
                                                {Vector, "SVG", "*.svg", true}}};
constexpr int JpegQuality = 92;

// Formats of the toolkit that are not meant for pictures of a user.
constexpr std::array<const char*, 10> Readable{"png",  "jpg", "jpeg", "bmp", "gif",
                                               "webp", "svg", "svgz", "tif", "tiff"};

bool IsVector(const PictureFormat& format) {
    return QByteArrayView(format.Name) == Vector;
}

bool CanWrite(const PictureFormat& format) {
    return IsVector(format) || QImageWriter::supportedImageFormats().contains(format.Name);
}

const PictureFormat* FormatOf(const QString& name) {
    const QString ending = "*." + QFileInfo(name).suffix().toLower();
    const auto* format = std::find_if(Formats.begin(), Formats.end(), [&](const PictureFormat& each) {
        return QString(each.Endings).split(' ').contains(ending) && CanWrite(each);
    });
    return format == Formats.end() ? nullptr : format;
}

QImage OnWhite(const QImage& picture) {
    QImage opaque(picture.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter painter(&opaque);
    painter.drawImage(opaque.rect(), picture);
    return opaque;
}

QByteArray Encoded(const QImage& picture, const PictureFormat& format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format.Name);
    if (!format.SeeThrough)
        writer.setQuality(JpegQuality);
    return writer.write(format.SeeThrough ? picture : OnWhite(picture)) ? bytes : QByteArray();
}

// A snapshot is made of pixels; the vector file carries them whole.
QByteArray InVectorFile(const QImage& picture) {
    const QByteArray pixels = Encoded(picture, Formats.front());
    const QString size = QString("width=\"%1\" height=\"%2\"").arg(picture.width()).arg(picture.height());
    return QString(
               "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" %1 "
               "viewBox=\"0 0 %2 %3\"><image %1 xlink:href=\"data:image/png;base64,%4\"/></svg>\n")
        .arg(size)
        .arg(picture.width())
        .arg(picture.height())
        .arg(QString::fromLatin1(pixels.toBase64()))
        .toUtf8();
}

} // namespace

Integer SavePictureAs(const QImage& picture, const QString& name) {
    const PictureFormat* format = FormatOf(name);
    if (format == nullptr)
        return FailureBadFileName;
    const QByteArray bytes = IsVector(*format) ? InVectorFile(picture) : Encoded(picture, *format);
    if (bytes.isEmpty())
        return FailureDeviceIO;
    return ThePlatform().Files.ReplaceWhole(name.toStdString(), bytes.toStdString());
}

QStringList PictureFilters() {
    QStringList filters;
    for (const PictureFormat& format : Formats) {
        if (CanWrite(format))
            filters << QString("%1 (%2)").arg(format.Shown, format.Endings);
    }
    return filters;
}

QString ReadablePictures() {
    const auto known = QImageReader::supportedImageFormats();
    QStringList endings;
    for (const char* ending : Readable) {
        if (known.contains(ending))
            endings << QString("*.%1").arg(ending);
    }
    return endings.join(' ');
}

bool IsVectorPicture(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    return QImageReader::imageFormat(&buffer).startsWith(Vector);
}

QImage ReadPicture(const QByteArray& bytes, const QSize& cover) {
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const bool turned = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
    const QSize whole = reader.size();
    const QSize wanted = whole.scaled(turned ? cover.transposed() : cover, Qt::KeepAspectRatioByExpanding);
    const bool larger = wanted.width() > whole.width() || wanted.height() > whole.height();
    if (!whole.isEmpty() && (!larger || reader.format().startsWith(Vector)))
        reader.setScaledSize(wanted);
    return reader.read();
}

} // namespace pulselark
