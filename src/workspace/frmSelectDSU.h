#pragma once

#include "workspace/FormWindow.h"

#include <array>
#include <functional>
#include <string>

class QLabel;
class QPushButton;

namespace pulselark {

class DsuCard;
class MonitorOptionsForm;
class MonitorRow;

/// The monitor chooser: three pictures for the families with a driver of their own, below them the monitors
/// that need none, with the options of the one that is chosen. It decides nothing and shows what the core has
/// set.
class frmSelectDSU final : public FormWindow {
    Q_OBJECT

public:
    using Runner = std::function<void(const std::function<void()>&)>;
    /// `run` takes a routine through the core and shows the outcome.
    frmSelectDSU(QWidget* owner, Runner run);

    void Mirror();
    /// Sets all texts in the language in use.
    void Retranslate();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void BuildPictures(QVBoxLayout* column);
    void BuildRows(QVBoxLayout* column);
    void BuildOptions(QVBoxLayout* column);
    void BuildEnd();
    void ShowChosen();

    Runner run_;
    FormCard* pictures_ = nullptr;
    FormCard* plain_ = nullptr;
    std::array<DsuCard*, 3> picDSU_{};
    std::array<MonitorRow*, 4> rows_{};
    FormCard* chosen_ = nullptr;
    QLabel* words_ = nullptr;
    MonitorOptionsForm* options_ = nullptr;
    QLabel* labS_ = nullptr;
    QPushButton* labOK_ = nullptr;
    std::string shown_; // monitor whose options show
};

} // namespace pulselark
