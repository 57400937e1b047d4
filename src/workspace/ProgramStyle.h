#pragma once

#include <QProxyStyle>

namespace pulselark {

/// The toolkit's style as the program shows it: menus and their bar in the colours of the bars, with our own
/// tick and arrow, tool tips that wait, and what it draws by itself, as the file dialogs, in the colours of
/// the forms.
class ProgramStyle final : public QProxyStyle {
    Q_OBJECT

public:
    ProgramStyle();

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;
    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    QPalette standardPalette() const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override; ///< menus come up by degrees
};

/// The property of a menu bar that holds the height of its plates in pixels.
inline constexpr const char* PlateHeightProperty = "plateHeight";

} // namespace pulselark
