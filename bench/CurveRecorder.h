#pragma once

#include "platform/Surface.h"

#include <vector>

namespace pulselark {

/// Stands in for a panel's surface: hands everything on, and keeps the points of every curve.
class CurveRecorder final : public Surface {
public:
    using Points = std::vector<PanelPoint>;

    explicit CurveRecorder(Surface& panel) : panel_(panel) {}
    Surface& Panel() const { return panel_; }
    const std::vector<Points>& Curves() const { return curves_; }

    double Width() const override { return panel_.Width(); }
    double Height() const override { return panel_.Height(); }
    bool Persistent() const override { return panel_.Persistent(); }
    void SetPersistent(bool persistent) override { panel_.SetPersistent(persistent); }
    void Clear() override { panel_.Clear(); }
    void Refresh() override { panel_.Refresh(); }
    void StorePicture(const Surface& source) override { panel_.StorePicture(source); }
    double TextWidth(std::string_view text) const override { return panel_.TextWidth(text); }
    double TextHeight(std::string_view text) const override { return panel_.TextHeight(text); }
    void SetFont(std::string_view name, int size, bool bold) override { panel_.SetFont(name, size, bold); }
    void SetDrawWidth(int width) override { panel_.SetDrawWidth(width); }
    void SetForeColour(Colour colour) override { panel_.SetForeColour(colour); }
    Colour ForeColour() const override { return panel_.ForeColour(); }
    void SetFillColour(Colour colour) override { panel_.SetFillColour(colour); }
    void SetFillStyleSolid() override { panel_.SetFillStyleSolid(); }
    void Line(double x1, double y1, double x2, double y2, Colour colour) override {
        panel_.Line(x1, y1, x2, y2, colour);
    }
    void Curve(std::span<const PanelPoint> points, Colour colour) override {
        curves_.emplace_back(points.begin(), points.end());
        panel_.Curve(points, colour);
    }
    void FilledBox(double x1, double y1, double x2, double y2) override { panel_.FilledBox(x1, y1, x2, y2); }
    void Print(double x, double y, std::string_view text) override { panel_.Print(x, y, text); }
    void FloodFill(int x, int y, Colour borderColour) override { panel_.FloodFill(x, y, borderColour); }
    void StretchImage(const Image& image, double x, double y, double width, double height) override {
        panel_.StretchImage(image, x, y, width, height);
    }
    void SetPageFont(double height, int weight) override { panel_.SetPageFont(height, weight); }
    void Stroke(std::span<const PanelPoint> points, const Pen& pen) override { panel_.Stroke(points, pen); }
    void FilledArea(std::span<const PanelPoint> points, Colour fill) override {
        panel_.FilledArea(points, fill);
    }
    void GradientBox(double x1, double y1, double x2, double y2, Colour top, Colour bottom) override {
        panel_.GradientBox(x1, y1, x2, y2, top, bottom);
    }

private:
    Surface& panel_;
    std::vector<Points> curves_;
};

} // namespace pulselark
