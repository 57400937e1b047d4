#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace pulselark {

class ModeRow;
class PlayerView;
class TrainingPanel;
class frmSettingsGGZ;

/// The training view on the main window, in place of the module panels: the mode row, the panel `picGGZ`, and
/// the settings form that belongs to them.
class TrainingView final : public QObject {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    TrainingView(QWidget* window, std::function<void(const std::function<void()>&)> run);

    /// Places everything in the window for its present size.
    void LayOut();
    void Retranslate();
    /// Shows or hides the view, and what the core has set.
    void Mirror();

private:
    void MirrorSettings();

    QWidget* window_;
    std::function<void(const std::function<void()>&)> run_;
    ModeRow* row_;
    TrainingPanel* panel_;
    PlayerView* player_;
    frmSettingsGGZ* settings_ = nullptr;
    bool shown_ = false;
};

} // namespace pulselark
