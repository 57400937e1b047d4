#pragma once

#include "platform/Surface.h"

#include <QFont>
#include <QPainter>
#include <QString>

#include <span>

/// The shapes and texts of pages on any painter: the picture of a panel, a printer, a PDF. Points have y
/// upwards from 0 at the bottom of a page of the given height; the painter's units are panel units.
namespace pulselark {

/// A font of pages: the letters of one large size, drawn smaller, so that texts keep their proportions at any
/// height and on any device.
struct PageFont {
    double Height = 0; ///< panel units; 0 is no font
    int Weight = 400;  ///< 400, 500 or 700

    double Width(const QString& text) const;
    /// `corner`: upper left, in the painter's own coordinates. The capitals stand in the middle of the
    /// height.
    void Print(QPainter& painter, QPointF corner, const QString& text, const QColor& ink) const;
};

void StrokePoints(QPainter& painter, double pageHeight, std::span<const PanelPoint> points, const Pen& pen);
void FillPoints(QPainter& painter, double pageHeight, std::span<const PanelPoint> points, Colour fill);
/// `box` in the painter's own coordinates.
void FillGradient(QPainter& painter, const QRectF& box, Colour top, Colour bottom);

} // namespace pulselark
