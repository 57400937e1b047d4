#include "workspace/TrainingView.h"

#include "feedback/FeedbackModes.h"
#include "feedback/Pacer.h"
#include "feedback/ggz.h"
#include "session/MainBuffers.h"
#include "session/Training.h"
#include "workspace/FormControls.h"
#include "workspace/ModeButtons.h"
#include "workspace/PlayerView.h"
#include "workspace/TrainingArtwork.h"
#include "workspace/TrainingPanel.h"
#include "workspace/frmSettingsGGZ.h"

#include <QWidget>

#include <utility>

namespace pulselark {

namespace {

constexpr float Twips = 15;
constexpr int LargeWindow = 1280; // and its height, below which the window is compact
constexpr int LargeHeight = 800;

int Pixels(float twips) {
    return static_cast<int>(twips / Twips);
}

} // namespace

TrainingView::TrainingView(QWidget* window, std::function<void(const std::function<void()>&)> run)
    : QObject(window), window_(window), run_(std::move(run)), row_(new ModeRow(window)),
      panel_(new TrainingPanel(window, run_)), player_(new PlayerView(panel_, run_)) {
    row_->hide();
    panel_->hide();
    connect(row_, &ModeRow::Clicked, this, [this](int index, int button) {
        run_([=] { ClickModeButton(index, button == LeftButton ? LeftButton : RightButton); });
    });
    connect(panel_->SettingsButton(), &QAbstractButton::clicked, this,
            [this] { run_([] { ClickTrainingSettings(); }); });
}

void TrainingView::LayOut() {
    if (!shown_)
        return;
    WindowScale = window_->width() >= LargeWindow && window_->height() >= LargeHeight ? 50 : 40;
    LayoutTrainingPanel();
    const TrainingPlaces& place = picGGZPlace;
    const int rim = ModeRow::Rim;
    row_->setGeometry(Pixels(place.Left) - rim, Pixels(place.RowTop) - rim, Pixels(place.Width) + 2 * rim,
                      Pixels(place.RowHeight) + 2 * rim);
    row_->SetGap(WindowScale == 50 ? 12 : 8);
    panel_->setGeometry(Pixels(place.Left), Pixels(place.PanelTop), Pixels(place.Width),
                        Pixels(place.PanelHeight));
    panel_->Rebuild();
}

void TrainingView::Retranslate() {
    row_->Retranslate();
    panel_->Retranslate();
    player_->Retranslate();
    if (settings_ != nullptr)
        settings_->Retranslate();
}

void TrainingView::Mirror() {
    const bool shown = TrainingActive != Off;
    if (shown != shown_) {
        shown_ = shown;
        row_->setVisible(shown);
        panel_->setVisible(shown);
        if (shown) {
            row_->raise();
            panel_->raise();
            LayOut();
        } else {
            panel_->Rebuild();
        }
    }
    row_->Mirror();
    panel_->Mirror();
    player_->Mirror();
    MirrorSettings();
}

void TrainingView::MirrorSettings() {
    const bool open = TrainingSettingsOpen != Off;
    if (open && settings_ == nullptr)
        settings_ = new frmSettingsGGZ(window_, run_);
    if (settings_ == nullptr)
        return;
    if (settings_->isVisible() != open)
        settings_->setVisible(open);
    settings_->Mirror();
}

} // namespace pulselark
