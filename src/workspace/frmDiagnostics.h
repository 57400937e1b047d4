#pragma once

#include "session/Diagnostics.h"
#include "workspace/FormWindow.h"

#include <array>
#include <functional>
#include <vector>

namespace pulselark {

/// The figures that a recording measures about itself (`session/Diagnostics.h`), as they are now.
class frmDiagnostics final : public FormWindow {
    Q_OBJECT

public:
    explicit frmDiagnostics(QWidget* owner);

    void Retranslate();
    /// Takes over the figures of the core; does nothing while the window is hidden.
    void Mirror();

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Figure {
        int Name; ///< language text
        QLabel* Caption;
        QLabel* Value;
        std::function<QString()> Read;
    };
    FormCard* AddCard(QVBoxLayout* column);
    FormCard* AddChannel(QVBoxLayout* column, const ChannelFigures& channel, const float& quality,
                         const Integer& light);
    void AddFigure(FormCard* card, int name, std::function<QString()> read);
    void ReadFigures();

    FormCard* times_;
    FormCard* recording_;
    std::array<FormCard*, 2> channels_{};
    std::vector<Figure> figures_;
};

} // namespace pulselark
