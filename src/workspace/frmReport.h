#pragma once

#include "session/ReportDocument.h"
#include "workspace/FormWindow.h"

#include <array>
#include <functional>

class QBoxLayout;
class QLabel;

namespace pulselark {

class ActionButton;
class ReportBox;
class ReportLockPlate;
class ReportSymbol;

/// The session's document: twelve fields, a person symbol, lock, stamp and clipboard. It stays over the main
/// window while that one is worked with, is made once and hidden on close.
class frmReport final : public FormWindow {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome everywhere.
    using Runner = std::function<void(const std::function<void()>&)>;
    frmReport(QWidget* owner, Runner run);

    /// Shows the document as the core has it.
    void Mirror();
    /// Sets all texts in the language in use.
    void Retranslate();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QLayout* NewField(QWidget* card, int field);
    QWidget* NewSubjectCard();
    QWidget* NewCircumstancesCard();
    QLayout* NewActions();
    ActionButton* NewAction(const QString& name, QWidget* parent, void (*routine)());
    void SetTabOrder();
    void ShowFileName();

    Runner run_;
    QLabel* labFN_;
    ReportLockPlate* imLockDoc_;
    std::array<ReportBox*, ReportFieldCount> tbSD_{};
    std::array<QLabel*, ReportFieldCount> captions_{};
    std::array<ReportSymbol*, 2> labMF_{};
    QLabel* stampTip_ = nullptr;
    ActionButton* labSetDT_ = nullptr;
    ActionButton* labCopyDoc_ = nullptr;
    ActionButton* labPasteDoc_ = nullptr;
    ActionButton* labClrDoc_ = nullptr;
    ActionButton* labLockDoc_ = nullptr;
};

} // namespace pulselark
