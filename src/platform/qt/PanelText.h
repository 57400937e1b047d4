#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QPainter>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace pulselark {

/// A font of the panels: the two names and sizes that panels use, as fonts of this system.
QFont PanelFont(std::string_view name, int size, bool bold);

/// One font of the panels, with the texts that were measured or drawn in it: panels show the same few again
/// and again, and laying one out takes longer than drawing it.
class PanelText {
public:
    PanelText(std::string_view name, int size, bool bold);
    /// Whether this is the font of that name and size.
    bool Is(std::string_view name, int size, bool bold) const {
        return name == name_ && size == size_ && bold == bold_;
    }

    double Width(std::string_view text);
    int PixelSize() const { return font_.pixelSize(); }
    double CapHeight() const { return capHeight_; }
    /// Draws in the painter's pen, with the left end of the text's base line at `base`.
    void Draw(QPainter& painter, const QPointF& base, std::string_view text);

private:
    struct LaidOut {
        double Width = 0;
        double Ascent = 0; // of the base line below the upper edge of the glyphs' positions
        QList<QGlyphRun> Glyphs;
    };
    const LaidOut& Layout(std::string_view text);

    std::string name_;
    int size_;
    bool bold_;
    QFont font_;
    double capHeight_;
    std::map<std::string, LaidOut, std::less<>> texts_;
};

} // namespace pulselark
