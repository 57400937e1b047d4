#pragma once

#include "workspace/Icons.h"

#include <QAbstractButton>
#include <QWidget>

namespace pulselark {

class HoverLight;

/// One mark of a title bar: a cell of 24 pixels with an icon.
class TitleMark final : public QAbstractButton {
    Q_OBJECT

public:
    TitleMark(const QString& name, Icon icon, QWidget* parent);

    void SetIcon(Icon icon);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Icon icon_;
    HoverLight* hover_;
};

/// The title bar `picTopBar` of a module panel: icon, title, and the marks `picCMAll` at the right. The mouse
/// on it moves the panel.
class TitleBar final : public QWidget {
    Q_OBJECT

public:
    TitleBar(int index, Icon icon, QWidget* parent);

    void SetTitle(const QString& title);
    /// What the pin and the enlarging mark stand for now.
    void SetState(bool locked, bool enlarged);
    /// Width of the marks in pixels.
    static constexpr int MarksWidth = 72;

signals:
    void Pressed(double x, double y);
    void Moved(int button, double x, double y);
    void Released();
    void PinClicked();
    void EnlargeClicked();
    void CloseClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    Icon icon_;
    QString title_;
    bool locked_ = false;
    bool enlarged_ = false;
    TitleMark* pin_;
    TitleMark* enlarge_;
    TitleMark* close_;
};

/// A sizer at a panel's right edge, lower edge or corner.
class PanelSizer final : public QWidget {
    Q_OBJECT

public:
    enum class Edge { Right, Bottom, Corner };

    PanelSizer(Edge edge, int index, QWidget* parent);

    /// Takes its place at the edge of its panel.
    void Place(const QSize& panel);

signals:
    void Pressed(double x, double y);
    void Moved(int button, double x, double y);
    void Released();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Edge edge_;
};

} // namespace pulselark
