#pragma once

#include <QWidget>

class QPainter;

namespace pulselark {

/// A soft black shadow: how far it drops, how far it reaches, and how dark it is, 0 to 1.
struct ShadowKind {
    int Drop;
    int Blur;
    double Strength;

    bool operator==(const ShadowKind&) const = default;
};
inline constexpr ShadowKind ModuleShadow{2, 8, 0.22};
inline constexpr ShadowKind ActiveModuleShadow{8, 24, 0.36};
inline constexpr ShadowKind FormShadow{12, 32, 0.40};

/// The shadow that a widget throws on its owner and on what lies on it. It is part of the owner's picture, so
/// that it is there on any desktop, with or without a compositor; it follows the widget, which is a child of
/// the owner or a window of its own. A child's shadow lies right below the child.
class ShadowBelow final : public QWidget {
    Q_OBJECT

public:
    ShadowBelow(QWidget* caster, QWidget* owner, const ShadowKind& kind);

    void SetKind(const ShadowKind& kind);
    /// Takes its place in the order of the owner's children again, after that of the caster has changed.
    void Restack();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Follow();

    QWidget* caster_;
    ShadowKind kind_;
};

} // namespace pulselark
