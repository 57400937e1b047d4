#pragma once

#include "platform/qt/QtSurface.h"

#include <QWidget>

#include <functional>

namespace pulselark {

class ActionButton;
class SceneCover;
class SourceSwitch;
class StartNotice;

/// The panel `picGGZ` of the training view: what the core draws, over the still artwork, with the words
/// around it.
class TrainingPanel final : public QWidget {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    TrainingPanel(QWidget* parent, std::function<void(const std::function<void()>&)> run);
    ~TrainingPanel() override;

    /// Gives the surfaces the panel's size, or none while it is hidden, and draws everything anew.
    void Rebuild();
    void Retranslate();
    void Mirror();
    ActionButton* SettingsButton() const { return labBFSettings_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool ArtworkIsStale() const;
    void PlaceControls();
    void PlaceScenery(int top);
    double HeadBottom() const;
    double LegendTop() const;
    double LegendBottom() const;
    QRect NoticeRoom() const;
    void PaintHead(QPainter& painter) const;
    void PaintCard(QPainter& painter) const;
    void PaintLegend(QPainter& painter) const;
    void PaintBarWords(QPainter& painter) const;
    void PaintScoreWords(QPainter& painter) const;
    void PaintSong(QPainter& painter) const;

    std::function<void(const std::function<void()>&)> run_;
    QtSurface surface_;
    QtSurface bell_;
    StartNotice* labBFStart_;
    SourceSwitch* source_;
    ActionButton* labBFSettings_;
    SceneCover* cover_;
    int backgroundShown_ = -1;
    int schemeShown_ = -1;
    double modeShown_ = -1;
    QString words_; // of everything that the panel says, as painted last
};

} // namespace pulselark
