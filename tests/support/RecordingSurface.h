#pragma once

#include "platform/Surface.h"

#include <functional>
#include <string>
#include <vector>

namespace pulselark {

/// A surface that keeps the list of what was drawn on it. Texts are 6 units a character wide and 12 high,
/// whatever the font of a panel; those of a page are as high as their font, each character half as wide.
class RecordingSurface final : public Surface {
public:
    struct Text {
        double X, Y;
        std::string Value, Font;
        Colour Ink = 0;
        double Height = 0; ///< of a page's font; 0 for a panel's
        int Weight = 0;
        bool operator==(const Text& other) const { // wherever a test compares whole texts, the ink is its own
            return X == other.X && Y == other.Y && Value == other.Value && Font == other.Font;
        }
    };
    struct Segment {
        double X1, Y1, X2, Y2;
        Colour Ink;
        int DrawWidth = 1;
        bool operator==(const Segment&) const = default;
    };
    struct Trace {
        std::vector<PanelPoint> Points;
        Colour Ink;
        int DrawWidth;
    };
    struct Box {
        double X1, Y1, X2, Y2;
        Colour Ink;
        bool operator==(const Box&) const = default;
    };
    struct Fill {
        int Column, Row;
        Colour Border, Ink;
        bool operator==(const Fill&) const = default;
    };

    struct Shape { ///< of a page; which members count is told by `Kind`, the letter in `Order`
        char Kind;
        std::vector<PanelPoint> Points; ///< of a box its lower left and upper right corner
        Colour Fill = 0;                ///< of a gradient its top
        Pen Line{0};                    ///< of a gradient the ink is its bottom
        CircleArc Circle{};
    };

    RecordingSurface(double width, double height) : width_(width), height_(height) {}

    std::vector<Text> Texts;
    std::vector<Segment> Segments;
    std::vector<Trace> Traces;
    std::vector<Box> Boxes;
    std::vector<Fill> Fills;
    std::vector<Shape> Shapes;
    /// Each drawing by a letter: t(ext) l(ine) c(urve) b(ox) f(ill); s(troke) a(rea) g(radient) o (arc)
    /// v (sector) x (framed box)
    std::string Order;
    std::string Calls; ///< each call that is no drawing, by its first letter: C(lear) R(efresh) ...
    std::function<void()> OnWipe; ///< runs when a new picture begins

    void Forget() {
        Texts.clear();
        Segments.clear();
        Traces.clear();
        Boxes.clear();
        Fills.clear();
        Shapes.clear();
        Order.clear();
        Calls.clear();
    }
    bool Untouched() const { return Order.empty() && Calls.empty(); }

    double Width() const override { return width_; }
    double Height() const override { return height_; }
    bool Persistent() const override { return persistent_; }
    void SetPersistent(bool persistent) override {
        persistent_ = persistent;
        Calls += persistent ? 'P' : 'p';
    }
    void Clear() override { Wipe('C'); }
    void Refresh() override { Wipe('R'); }
    void StorePicture(const Surface& /*source*/) override { Calls += 'S'; }
    double TextWidth(std::string_view text) const override {
        return (pageHeight_ > 0 ? pageHeight_ / 2 : 6.0) * static_cast<double>(text.size());
    }
    double TextHeight(std::string_view /*text*/) const override { return pageHeight_ > 0 ? pageHeight_ : 12; }
    void SetFont(std::string_view name, int /*size*/, bool /*bold*/) override {
        font_ = name;
        pageHeight_ = 0;
        weight_ = 0;
    }
    void SetDrawWidth(int width) override { drawWidth_ = width; }
    void SetForeColour(Colour colour) override { foreColour_ = colour; }
    Colour ForeColour() const override { return foreColour_; }
    void SetFillColour(Colour colour) override { fillColour_ = colour; }
    void SetFillStyleSolid() override {}
    void Line(double x1, double y1, double x2, double y2, Colour colour) override {
        Segments.push_back({x1, y1, x2, y2, colour, drawWidth_});
        Order += 'l';
    }
    void Curve(std::span<const PanelPoint> points, Colour colour) override {
        Traces.push_back({{points.begin(), points.end()}, colour, drawWidth_});
        Order += 'c';
    }
    void FilledBox(double x1, double y1, double x2, double y2) override {
        Boxes.push_back({x1, y1, x2, y2, foreColour_});
        Order += 'b';
    }
    void Print(double x, double y, std::string_view text) override {
        Texts.push_back({x, y, std::string(text), font_, foreColour_, pageHeight_, weight_});
        Order += 't';
    }
    void FloodFill(int x, int y, Colour borderColour) override {
        Fills.push_back({x, y, borderColour, fillColour_});
        Order += 'f';
    }
    void StretchImage(const Image&, double, double, double, double) override { Calls += 'I'; }
    void SetPageFont(double height, int weight) override {
        pageHeight_ = height;
        weight_ = weight;
    }
    void Stroke(std::span<const PanelPoint> points, const Pen& pen) override {
        Add({'s', {points.begin(), points.end()}, 0, pen});
    }
    void FilledArea(std::span<const PanelPoint> points, Colour fill) override {
        Add({'a', {points.begin(), points.end()}, fill});
    }
    void GradientBox(double x1, double y1, double x2, double y2, Colour top, Colour bottom) override {
        Add({'g', {{x1, y1}, {x2, y2}}, top, {bottom}});
    }
    void Arc(const CircleArc& arc, const Pen& pen) override { Add({'o', {}, 0, pen, arc}); }
    void Sector(const CircleArc& arc, Colour fill) override { Add({'v', {}, fill, {0}, arc}); }
    void FramedBox(double x1, double y1, double x2, double y2, double /*radius*/, Colour fill,
                   const Pen& frame) override {
        Add({'x', {{x1, y1}, {x2, y2}}, fill, frame});
    }

private:
    void Add(Shape shape) {
        Order += shape.Kind;
        Shapes.push_back(std::move(shape));
    }
    void Wipe(char call) {
        Calls += call;
        if (OnWipe)
            OnWipe();
    }

    double width_, height_;
    bool persistent_ = false;
    int drawWidth_ = 1;
    Colour foreColour_ = 0;
    Colour fillColour_ = 0;
    std::string font_;
    double pageHeight_ = 0;
    int weight_ = 0;
};

} // namespace pulselark
