#include "analysis/ColourSchemes.h"
#include "analysis/History.h"
#include "analysis/SpectrumPanel.h"
#include "feedback/MIDI_OUT.h"
#include "feedback/MidiSwitches.h"
#include "feedback/SoundTester.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"
#include "support/RecordingSurface.h"
#include "workspace/FocusRing.h"
#include "workspace/FormControls.h"
#include "workspace/SideWindowsTest.h"
#include "workspace/WindowTest.h"
#include "workspace/frmSettings.h"

#include <QLabel>
#include <QMouseEvent>

namespace pulselark {
namespace {

void Mouse(QWidget& control, QEvent::Type type, const QPointF& at) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, control.mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(&control, &event);
}

void ClickAt(QWidget& control, const QPointF& at) {
    Mouse(control, QEvent::MouseButtonPress, at);
    Mouse(control, QEvent::MouseButtonRelease, at);
}

void Strike(QWidget& control, int key) {
    Press(control, key);
    QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(&control, &event);
}

class SettingsForm : public SessionTest {
protected:
    SettingsForm() {
        picSA = &A;
        picSB = &B;
        A.SetPersistent(true);
        B.SetPersistent(true);
        Form.show();
    }
    ~SettingsForm() override { ResetPanelSurfaces(); }

    ToggleRow& Toggle(int index) { return Named<ToggleRow>(Form, QString("labToggle%1").arg(index)); }
    ActionButton& Action(int index) { return Named<ActionButton>(Form, QString("labSetting%1").arg(index)); }
    QString Value(const char* label) { return Named<QLabel>(Form, label).text(); }

    int Changed = 0;
    int LookChanged = 0;
    int LanguageChanged = 0;
    RecordingSurface A{600, 300};
    RecordingSurface B{600, 300};
    frmSettings Form{nullptr,
                     {[this] { ++Changed; }, [this] { ++LookChanged; },
                      [this] {
                          ++LanguageChanged;
                          Form.Retranslate();
                      }}};
};

TEST_F(SettingsForm, ShowsEveryToggleAsItIsAndTurnsItOver) {
    AllowMultiSessions = SolidFillGraph = On;
    Form.ShowMarks();
    for (int index = 0; index < SettingToggleCount; ++index) {
        ToggleRow& toggle = Toggle(index);
        ASSERT_EQ(toggle.isChecked(), SettingOn(index)) << index;
        EXPECT_TRUE(toggle.isVisible()) << index;
        EXPECT_EQ(toggle.text(), QString("<%1>").arg(38 + index));
        if (index == TogglePower || index == TogglePowerPerHz)
            continue;
        Changed = LookChanged = 0;
        const bool before = toggle.isChecked();
        ClickAt(toggle, {20, 16});
        EXPECT_EQ(SettingOn(index), !before) << index;
        EXPECT_EQ(toggle.isChecked(), !before) << index;
        EXPECT_EQ(Changed, 1);
        EXPECT_EQ(LookChanged, index == 2 || index == 3 || index == 19 || index == 20 ? 1 : 0) << index;
        toggle.click();
    }
}

TEST_F(SettingsForm, TheUnitKeepsItsMarkWhenTheOtherIsAskedFor) {
    Toggle(TogglePowerPerHz).click();
    EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
    EXPECT_FALSE(Toggle(TogglePowerPerHz).isChecked());
    EXPECT_TRUE(Toggle(TogglePower).isChecked());
}

TEST_F(SettingsForm, DependentTogglesComeAndGoWithoutMovingTheOthers) {
    SolidFillGraph = OctaveInFront = Off;
    AllowMultiSessions = InsertSeparator = On;
    Form.ShowMarks();
    QApplication::processEvents();
    const QPoint below = Toggle(12).pos();
    Toggle(ToggleMultiSessions).click();
    Toggle(ToggleSolidFill).click();
    QApplication::processEvents();
    EXPECT_FALSE(Toggle(ToggleSeparator).isVisible());
    EXPECT_TRUE(Toggle(ToggleOctaveInFront).isVisible());
    EXPECT_FALSE(Toggle(ToggleOctaveInFront).isChecked());
    EXPECT_EQ(Toggle(12).pos(), below);
}

TEST_F(SettingsForm, OnlySpaceTurnsAToggleOver) {
    ToggleRow& toggle = Toggle(0);
    for (const int key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right, Qt::Key_A})
        Strike(toggle, key);
    EXPECT_EQ(ShowAboutAtStart, On);
    EXPECT_EQ(Changed, 0);
    Strike(toggle, Qt::Key_Space);
    EXPECT_EQ(ShowAboutAtStart, Off);
    EXPECT_FALSE(toggle.isChecked());
}

TEST_F(SettingsForm, KeysMoveAKnobByWhatItShows) {
    auto& knob = Named<Knob>(Form, "picSwsUp");
    struct Stroke {
        int Key;
        const char* Shown;
    };
    for (const auto& [key, shown] :
         {Stroke{Qt::Key_Home, "8"}, Stroke{Qt::Key_Right, "9"}, Stroke{Qt::Key_Up, "10"},
          Stroke{Qt::Key_PageUp, "20"}, Stroke{Qt::Key_Left, "19"}, Stroke{Qt::Key_Down, "18"},
          Stroke{Qt::Key_PageDown, "8"}, Stroke{Qt::Key_PageDown, "8"}, Stroke{Qt::Key_End, "100"}}) {
        Strike(knob, key);
        EXPECT_EQ(Value("labSws"), shown);
        EXPECT_EQ(knob.accessibleDescription(), shown);
        EXPECT_EQ(knob.value(), SpectrumStepKnob);
        EXPECT_TRUE(A.Persistent()); // each stroke is a whole turn
    }
    EXPECT_EQ(SpectrumStepKnob, 1000);
}

TEST_F(SettingsForm, TheMouseMovesAKnobAndItsReleaseMakesThePictureLast) {
    auto& knob = Named<Knob>(Form, "picSwdUp");
    const double track = knob.width() - 20.0;
    Mouse(knob, QEvent::MouseButtonPress, {10, 10});
    EXPECT_EQ(SpectrumDepthKnob, 0);
    EXPECT_EQ(Value("labSwd"), "1");
    Mouse(knob, QEvent::MouseMove, {10 + track / 2, 10});
    EXPECT_NEAR(SpectrumDepthKnob, 500, 3);
    EXPECT_FALSE(A.Persistent());
    Form.ShowMarks(); // a tick of the replay in the middle of a drag
    EXPECT_NEAR(knob.sliderPosition(), 500, 3);
    Mouse(knob, QEvent::MouseMove, {9000, 10});
    EXPECT_EQ(SpectrumDepth, 19);
    Mouse(knob, QEvent::MouseButtonRelease, {9000, 10});
    EXPECT_TRUE(A.Persistent());
    EXPECT_TRUE(B.Persistent());
    Mouse(knob, QEvent::MouseMove, {10, 10});
    EXPECT_EQ(SpectrumDepth, 19);
}

TEST_F(SettingsForm, HidingTheFormEndsADrag) {
    auto& knob = Named<Knob>(Form, "picSwdUp");
    Mouse(knob, QEvent::MouseButtonPress, {10, 10});
    EXPECT_FALSE(A.Persistent());
    Press(Form, Qt::Key_Escape);
    EXPECT_FALSE(Form.isVisible());
    EXPECT_TRUE(A.Persistent());
    EXPECT_FALSE(knob.isSliderDown());
}

TEST_F(SettingsForm, TheCloseMarkHidesTheFormAndWhatChangedElsewhereShowsNextTime) {
    Named<ActionButton>(Form, "picClose").click();
    EXPECT_FALSE(Form.isVisible());
    ColourSchemeIndex = 3;
    HistoryStyle = 7;
    LockScreens = Off;
    ChannelMode = 1;
    Form.show();
    EXPECT_EQ(Named<TileStrip>(Form, "picStyle").value(), 3);
    EXPECT_EQ(Named<TileStrip>(Form, "picHisStyle").value(), 6);
    EXPECT_FALSE(Toggle(6).isChecked());
    EXPECT_EQ(Action(ActionChannelSelect).text(), "<61><152>");
    EXPECT_EQ(Changed + LookChanged + LanguageChanged, 0); // showing is no choice
}

TEST_F(SettingsForm, TheChannelActionClosesTheForm) {
    Action(ActionChannelSelect).click();
    EXPECT_EQ(ChannelMode, 3);
    EXPECT_EQ(Action(ActionChannelSelect).text(), "<61><154>");
    EXPECT_FALSE(Form.isVisible());
    EXPECT_EQ(Changed, 1);
}

TEST_F(SettingsForm, AClickOnTheStyleStripTakesTheNearestTile) {
    auto& strip = Named<TileStrip>(Form, "picHisStyle");
    const double pitch = (strip.width() - 50) / 4.0;
    for (int style = 1; style <= HistoryStyleMax; ++style) {
        const double x = 25 + (style - 1) % 5 * pitch + 0.4 * pitch;
        ClickAt(strip, {x, style > 5 ? 60.0 : 18.0});
        EXPECT_EQ(HistoryStyle, style);
    }
    ClickAt(strip, {strip.width() - 1.0, strip.height() - 1.0}); // beyond the last
    EXPECT_EQ(HistoryStyle, 9);
    Strike(strip, Qt::Key_Up);
    EXPECT_EQ(HistoryStyle, 4);
    Strike(strip, Qt::Key_Left);
    EXPECT_EQ(HistoryStyle, 3);
    Strike(strip, Qt::Key_Home);
    Strike(strip, Qt::Key_Left);
    EXPECT_EQ(HistoryStyle, 1);
    EXPECT_EQ(strip.accessibleDescription(), "1");
}

TEST_F(SettingsForm, ASwatchChoosesItsColourSet) {
    auto& swatches = Named<TileStrip>(Form, "picStyle");
    ClickAt(swatches, {swatches.width() - 10.0, 20});
    EXPECT_EQ(ColourSchemeIndex, 4);
    EXPECT_EQ(LookChanged, 1);
    EXPECT_EQ(swatches.accessibleDescription(), "<226>");
}

TEST_F(SettingsForm, ALanguageIsTakenOverAtOnce) {
    LanguageTable(2, 30) = "Réglages";
    auto& list = Named<FormList>(Form, "labLang");
    ASSERT_EQ(list.count(), NamedLanguageCount);
    EXPECT_EQ(list.currentRow(), 0);
    ClickAt(*list.viewport(), list.visualItemRect(list.item(2)).center());
    EXPECT_EQ(LanguageIndex, 2);
    EXPECT_EQ(LanguageChanged, 1);
    EXPECT_EQ(Form.windowTitle(), QString::fromUtf8("Réglages"));
    EXPECT_EQ(Toggle(0).text(), "<38>"); // an empty item shows the first language's
    LanguageIndex = 5;
    Form.ShowMarks();
    EXPECT_EQ(list.currentRow(), 5);
    EXPECT_EQ(LanguageChanged, 1);
}

TEST_F(SettingsForm, SelectLanguageGoesToTheList) {
    Form.activateWindow();
    Action(ActionSelectLanguage).click();
    EXPECT_EQ(Form.focusWidget(), &Named<FormList>(Form, "labLang"));
    EXPECT_EQ(LanguageIndex, 0);
}

TEST_F(SettingsForm, WhatIsNotThereIsGreyedAndSaysWhy) {
    auto& devices = Named<FormList>(Form, "lstMidiDevice");
    ASSERT_EQ(devices.count(), 1);
    EXPECT_EQ(devices.item(0)->text(), "<68>");
    EXPECT_EQ(devices.item(0)->flags(), Qt::NoItemFlags);
}

TEST_F(SettingsForm, SoundIsChosenTriedAndSwitched) {
    Outside.Midi.Names = {"piano"};
    FillMidiDevices(lstMidiDevice);
    MidiInstrumentNames = {"Grand Piano", "Organ"};
    Form.ShowMarks();
    EXPECT_EQ(Named<FormList>(Form, "lstMidiDevice").count(), 2);
    Named<FormList>(Form, "lstMidiDevice").setCurrentRow(1);
    EXPECT_EQ(Outside.Midi.Opened, std::vector<int>{0});
    ClickAt(Named<QWidget>(Form, "picBFOnOff"), {10, 10});
    EXPECT_EQ(MidiInPanels, On);
    Named<FormList>(Form, "picMidiList").setCurrentRow(1);
    EXPECT_EQ(MidiInstrument, 1);
    const std::size_t sent = Outside.Midi.Words.size();
    Strike(Named<QWidget>(Form, "picST"), Qt::Key_Right);
    EXPECT_EQ(SoundTesterX, 6);
    EXPECT_GT(Outside.Midi.Words.size(), sent);
}

TEST_F(SettingsForm, TheRingShowsForTheKeyboardOnly) {
    auto& ring = Named<FocusRing>(Form, "FocusRing");
    const auto windowFocus = [this](QEvent::Type type) {
        QFocusEvent event(type, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(&Toggle(19), &event);
    };
    Form.activateWindow();
    QApplication::processEvents();
    EXPECT_FALSE(ring.isVisible()); // a form that opens is no use of the keyboard
    Toggle(1).setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(ring.isVisible());
    Toggle(19).setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(ring.isVisible());
    EXPECT_EQ(ring.geometry(), Toggle(19).geometry().adjusted(-4, -4, 4, 4));
    windowFocus(QEvent::FocusOut); // a message comes, and goes
    EXPECT_FALSE(ring.isVisible());
    windowFocus(QEvent::FocusIn);
    EXPECT_TRUE(ring.isVisible());
    ClickAt(Toggle(19), {10, 10});
    EXPECT_FALSE(ring.isVisible());
    Strike(Toggle(19), Qt::Key_Space);
    EXPECT_TRUE(ring.isVisible());
}

TEST_F(SettingsForm, TabGoesInReadingOrderAndEverythingHasAName) {
    QStringList names;
    const QWidget* start = &Toggle(0);
    const QWidget* widget = start;
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled()) {
            names << widget->objectName();
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
        }
        widget = widget->nextInFocusChain();
    } while (widget != start);
    names.removeAll("frmSettings");
    EXPECT_EQ(names.join(' ').toStdString(),
              "labToggle0 labToggle1 labToggle2 labToggle3 labToggle19 labToggle6 labToggle4 labToggle12 "
              "labToggle15 labToggle16 labToggle17 labToggle18 labToggle20 labSetting0 labSetting1 labLang "
              "labSetting2 labSetting3 picBFOnOff picST picHisAvUp picHisStyle picStyle picSwdUp picSwsUp "
              "labToggle13 "
              "labToggle14 "
              "picGCwdUp picGCwsUp labToggle7 labToggle8 labToggle9 labToggle10 picClose");
}

// With the real pack: no text is cut off, in any of its languages.
using SettingsFormTexts = WindowTest;

TEST_F(SettingsFormTexts, FitInEveryLanguage) {
    frmSettings form(nullptr, {});
    form.show();
    for (Integer language = 0; language < NamedLanguageCount; ++language) {
        LanguageIndex = language;
        form.Retranslate();
        QApplication::processEvents();
        for (const QWidget* control : form.findChildren<QWidget*>()) {
            const bool worded = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                                qobject_cast<const QLabel*>(control) != nullptr ||
                                qobject_cast<const TileStrip*>(control) != nullptr;
            if (worded && control->isVisible()) {
                EXPECT_LE(control->sizeHint().width(), control->width())
                    << control->objectName().toStdString() << " in language " << language;
            }
        }
    }
}

} // namespace
} // namespace pulselark
