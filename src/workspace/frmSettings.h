#pragma once

#include "session/SettingsActions.h"
#include "workspace/FormWindow.h"

#include <array>
#include <functional>

class QLabel;

namespace pulselark {

class ActionButton;
class FormList;
class SoundPad;
class FormSwitch;
class Knob;
class TileStrip;
class ToggleRow;

/// What the settings form asks of the window around it.
struct SettingsCallbacks {
    std::function<void()> Changed;         ///< after every choice: show what the core has set
    std::function<void()> LookChanged;     ///< colours, background or places have changed
    std::function<void()> LanguageChanged; ///< all texts are to be set anew, those of the form too
};

/// The settings: made once, hidden on close. Every choice takes effect at once.
class frmSettings final : public FormWindow {
    Q_OBJECT

public:
    frmSettings(QWidget* owner, SettingsCallbacks callbacks);

    /// Brings all marks in line with the settings; also when they were changed elsewhere.
    void ShowMarks();
    /// Sets all texts in the language in use.
    void Retranslate();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void ShowSound();
    FormCard* AddCard(QVBoxLayout* column, int title);
    void BuildGeneral(QVBoxLayout* column);
    void BuildLanguage(QVBoxLayout* column);
    void BuildInput(QVBoxLayout* column);
    void BuildBiofeedback(QVBoxLayout* column);
    void BuildHistory(QVBoxLayout* column);
    void BuildColourSet(QVBoxLayout* column);
    void BuildSpectrum(QVBoxLayout* column);
    void BuildCoherence(QVBoxLayout* column);
    ToggleRow* NewToggle(QWidget* card, int index);
    void AddToggles(FormCard* card, std::initializer_list<int> indexes);
    ActionButton* NewAction(QWidget* card, int index);
    void AddKnob(FormCard* card, std::size_t index);

    void Toggle(int index);
    void Act(int index);
    void Turn(std::size_t knob, int position);
    void ShowKnob(std::size_t knob);
    void Tell(const std::function<void()>& callback);

    SettingsCallbacks callbacks_;
    std::array<ToggleRow*, SettingToggleCount> labToggle_{};
    std::array<ActionButton*, SettingActionCount> labSetting_{};
    std::array<Knob*, SettingsKnobCount> knobs_{};
    std::array<QLabel*, SettingsKnobCount> values_{};
    FormSwitch* picBFOnOff_ = nullptr;
    FormList* picMidiList_ = nullptr;
    SoundPad* picST_ = nullptr;
    FormList* lstMidiDevice_ = nullptr;
    FormList* labLang_ = nullptr;
    TileStrip* picHisStyle_ = nullptr;
    TileStrip* picStyle_ = nullptr;
    QList<std::function<void()>> texts_;
};

} // namespace pulselark
