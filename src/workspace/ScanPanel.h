#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace pulselark {

class ModuleDesk;
class PanelView;

/// The quick scan's module: its page `picQS`, and the slider that smooths the spectrum while the pointer is
/// over the plot. It hands its surface to the core.
class ScanPanel final : public QObject {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    ScanPanel(ModuleDesk& desk, std::function<void(const std::function<void()>&)> run);

    void Retranslate();
    void Mirror();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Drag(double x, double y);
    bool StepByKey(int key);

    std::function<void(const std::function<void()>&)> run_;
    PanelView* page_;
    QWidget* slider_;
    bool dragsSlider_ = false;
};

} // namespace pulselark
