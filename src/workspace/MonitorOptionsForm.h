#pragma once

#include "platform/MonitorOptions.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QComboBox;

namespace pulselark {

class FormWindow;

/// The options of one monitor as a small form, made anew for each monitor. What is written takes effect when
/// the field is left; what is no value for its option goes back to what was there.
class MonitorOptionsForm final : public QWidget {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    MonitorOptionsForm(QWidget* parent, std::function<void(const std::function<void()>&)> run);

    /// Shows the options of a monitor; nothing for one that has none.
    void ShowOptionsOf(const std::string& monitor);
    /// Brings the fields in line with the options, as after a file was chosen.
    void Refresh();

private:
    QWidget* NewControl(const MonitorOption& option);
    QWidget* NewField(const MonitorOption& option);
    QWidget* NewChoice(const MonitorOption& option);
    QWidget* NewFileButton(const MonitorOption& option);
    QWidget* NewDeviceList(const MonitorOption& option);
    void Take(const std::string& key, const QString& value);
    void ListDevices();
    QString ValueOf(const std::string& key) const;

    std::function<void(const std::function<void()>&)> run_;
    std::string monitor_;
    QWidget* fields_ = nullptr;
    std::vector<std::function<void()>> refresh_;
    QComboBox* devices_ = nullptr;
    std::string deviceKey_;
    QTimer deviceTimer_;
};

} // namespace pulselark
