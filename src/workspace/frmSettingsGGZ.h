#pragma once

#include "base/Controls.h"
#include "platform/qt/QtSurface.h"
#include "workspace/FormWindow.h"

#include <QAbstractButton>

#include <functional>
#include <vector>

namespace pulselark {

class Knob;
class ToggleRow;

/// Shows a surface, and gives it its size.
class WaveView final : public QWidget {
    Q_OBJECT

public:
    explicit WaveView(QWidget* parent);
    ~WaveView() override;

    /// Grid and axes on the well, at the present size.
    void SetUp();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QtSurface surface_;
};

/// A button that shows the background in use; a click brings the next one.
class BackgroundButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit BackgroundButton(QWidget* parent);
    QSize sizeHint() const override { return {120, 64}; }

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

/// The settings form of the training view: breathing rate and balance with the wave, interval of the index,
/// volume, switches, background, scenery. Every change takes effect at once. It lets the window behind it
/// shine through a little.
class frmSettingsGGZ final : public FormWindow {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    frmSettingsGGZ(QWidget* owner, std::function<void(const std::function<void()>&)> run);

    void Retranslate();
    /// Takes over what the core has set.
    void Mirror();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct ShownLabel {
        const Label* Source;
        QWidget* Place;
        std::function<void(const QString&)> Set;
    };
    struct Bar {
        Knob* Control;
        std::function<int()> Position;
    };
    void BuildBreathing(QVBoxLayout* column);
    void BuildIndex(QVBoxLayout* column);
    void BuildMusic(QVBoxLayout* column);
    void BuildView(QVBoxLayout* column);
    FormCard* AddCard(QVBoxLayout* column, int title);
    QWidget* NewValue(FormCard* card, const char* name, const Label& source);
    Knob* AddBar(FormCard* card, const char* name, int text, int least, int most, void (*take)(int),
                 std::function<int()> position);
    void AddSwitch(FormCard* card, const char* name, const Label& source, const Boolean& value,
                   void (*toggle)());

    std::function<void(const std::function<void()>&)> run_;
    std::vector<std::function<void()>> texts_;
    std::vector<ShownLabel> labels_;
    std::vector<Bar> bars_;
    std::vector<std::function<void()>> marks_;
    WaveView* picBWave_ = nullptr;
    BackgroundButton* picBFBgnd_ = nullptr;
};

} // namespace pulselark
