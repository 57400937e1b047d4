#include "platform/qt/PanelText.h"

#include "platform/qt/QtFonts.h"

#include <QFontMetricsF>
#include <QTextLayout>

namespace pulselark {

QFont PanelFont(std::string_view name, int size, bool bold) {
    QFont font(FontFamilies());
    if (size >= 14) {
        font.setPixelSize(19);
        font.setWeight(QFont::Bold);
        return font;
    }
    const bool caption = name == "Arial";
    font.setPixelSize(caption ? 12 : 11);
    font.setWeight(bold ? QFont::Bold : caption ? QFont::Medium : QFont::Normal);
    return font;
}

PanelText::PanelText(std::string_view name, int size, bool bold)
    : name_(name), size_(size), bold_(bold), font_(PanelFont(name, size, bold)),
      capHeight_(QFontMetricsF(font_).capHeight()) {}

const PanelText::LaidOut& PanelText::Layout(std::string_view text) {
    const auto known = texts_.find(text);
    if (known != texts_.end())
        return known->second;
    // Times and rates of a long session are many; texts that come back are laid out anew.
    constexpr std::size_t MostTexts = 1000;
    constexpr qreal AnyWidth = 1e6; // texts are never broken into lines
    if (texts_.size() >= MostTexts)
        texts_.clear();
    const QString words = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    QTextLayout layout(words, font_);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid())
        line.setLineWidth(AnyWidth);
    layout.endLayout();
    LaidOut laidOut;
    laidOut.Width = QFontMetricsF(font_).horizontalAdvance(words);
    if (line.isValid()) {
        laidOut.Ascent = line.ascent();
        laidOut.Glyphs = layout.glyphRuns();
    }
    return texts_.emplace(text, std::move(laidOut)).first->second;
}

double PanelText::Width(std::string_view text) {
    return Layout(text).Width;
}

void PanelText::Draw(QPainter& painter, const QPointF& base, std::string_view text) {
    const LaidOut& laidOut = Layout(text);
    const QPointF corner(base.x(), base.y() - laidOut.Ascent);
    for (const QGlyphRun& glyphs : laidOut.Glyphs)
        painter.drawGlyphRun(corner, glyphs);
}

} // namespace pulselark
