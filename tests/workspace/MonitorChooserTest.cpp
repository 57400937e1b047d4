#include "session/MainBuffers.h"
#include "session/MonitorChoice.h"
#include "workspace/FocusRing.h"
#include "workspace/MonitorCards.h"
#include "workspace/SideWindowsTest.h"
#include "workspace/WindowTest.h"
#include "workspace/frmSelectDSU.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScreen>

namespace pulselark {
namespace {

class MonitorChooser : public WindowTest {
protected:
    MonitorChooser() {
        OpenWindow(1280, 800);
        Named<QAction>(*Main, "labSelectMonitor").trigger();
        Form = Main->findChild<frmSelectDSU*>();
    }
    QWidget& Card(int picture) { return Named<QWidget>(*Form, QString("picDSU%1").arg(picture)); }
    void PressCard(int picture, Qt::KeyboardModifiers modifiers) {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(70, 70),
                          Card(picture).mapToGlobal(QPointF(70, 70)), Qt::LeftButton, Qt::LeftButton,
                          modifiers);
        QApplication::sendEvent(&Card(picture), &event);
    }
    MonitorRow& Row(int monitor) { return Named<MonitorRow>(*Form, QString("labMonitor%1").arg(monitor)); }
    static std::string Value(const char* monitor, const char* key) {
        for (const MonitorOption& option : ThePlatform().EcgMonitors.Options(monitor)) {
            if (option.Key == key)
                return option.Value;
        }
        return "none";
    }
    frmSelectDSU* Form = nullptr;
};

TEST_F(MonitorChooser, PressesChooseAndOnlyARealChoiceCanBeConfirmed) {
    ASSERT_NE(Form, nullptr);
    ASSERT_TRUE(Form->isVisible());
    EXPECT_FALSE(Named<QPushButton>(*Form, "labOK").isVisible());
    PressCard(0, Qt::ShiftModifier);
    EXPECT_EQ(MonitorName, "C2");
    EXPECT_EQ(Named<QLabel>(*Form, "labS").text(), "C2");
    PressCard(0, Qt::NoModifier);
    EXPECT_EQ(MonitorName, "C2PP");
    EXPECT_NE(Named<QLabel>(*Form, "labWords").text().indexOf("libstddriver.so"), -1)
        << "the driver that it needs is not there";
    PressCard(2, Qt::NoModifier);
    EXPECT_FALSE(Named<QPushButton>(*Form, "labOK").isVisible());
    Press(Card(1), Qt::Key_Space);
    EXPECT_EQ(MonitorName, "Vilistus");
    Row(0).click();
    EXPECT_TRUE(Row(0).isChecked() && !Row(1).isChecked());
    Click(*Form, "labOK");
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(ChooserOpen, Off);
}

TEST_F(MonitorChooser, StaysInReachWhateverItHolds) {
    Form->move(-300, 700);
    Row(0).click(); // its options make the form higher
    EXPECT_TRUE(Form->screen()->availableGeometry().contains(Form->geometry()));
    const auto& confirm = Named<QPushButton>(*Form, "labOK");
    const QRect place(confirm.mapTo(Form, QPoint(0, 0)), confirm.size());
    EXPECT_TRUE(Form->rect().contains(place)) << "not where it would have to be scrolled to";
    Form->activateWindow();
    QApplication::processEvents();
    Named<QLineEdit>(*Form, "option_rate").setFocus(Qt::MouseFocusReason);
    Named<QLineEdit>(*Form, "option_depth").setFocus(Qt::TabFocusReason);
    const QWidget& ring = FocusRing::Of(Form);
    ASSERT_TRUE(ring.isVisible());
    EXPECT_TRUE(ring.parentWidget()->rect().contains(ring.geometry())) << "cut at the edge of the fields";
}

TEST_F(MonitorChooser, OptionsAreWrittenCheckedAndKept) {
    Row(0).click();
    auto& rate = Named<QLineEdit>(*Form, "option_rate");
    const auto write = [](QLineEdit& field, const char* text) {
        field.selectAll();
        field.insert(text);
        emit field.editingFinished();
    };
    EXPECT_EQ(rate.text(), "65");
    write(rate, "72");
    EXPECT_EQ(Value("Simulated ECG", "rate"), "72");
    write(rate, "1000");
    EXPECT_EQ(rate.text(), "72") << "what is no rate goes back";
    write(Named<QLineEdit>(*Form, "option_noise"), "0,2");
    EXPECT_EQ(Value("Simulated ECG", "noise"), "0.2") << "a comma is a point";
    auto& channels = Named<QComboBox>(*Form, "option_channels");
    channels.setCurrentIndex(0);
    emit channels.activated(0);
    EXPECT_EQ(Value("Simulated ECG", "channels"), "1");
    Row(1).click();
    EXPECT_EQ(Form->findChild<QLineEdit*>("option_noise"), nullptr);
    auto& port = Named<QComboBox>(*Form, "option_port");
    write(*port.lineEdit(), "/dev/ttyUSB7");
    EXPECT_EQ(Value("Serial ECG", "port"), "/dev/ttyUSB7");
    Form->hide();
    const WindowPlatform second;
    EXPECT_EQ(Value("Simulated ECG", "rate"), "72");
    EXPECT_EQ(Value("Serial ECG", "port"), "/dev/ttyUSB7");
}

} // namespace
} // namespace pulselark
