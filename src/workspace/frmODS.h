#pragma once

#include "base/Numbers.h"

#include <QDialog>
#include <QPixmap>

#include <functional>

class QLabel;
class QPushButton;

namespace pulselark {

/// The picture window: shows a snapshot of a panel or of the workspace, to save and to copy.
class frmODS final : public QDialog {
    Q_OBJECT

public:
    explicit frmODS(QWidget* owner);

    /// Shows the window with a picture; `name` says what it is of and is the start of the file's name.
    void ShowPicture(const QPixmap& picture, const QString& name);

    void Retranslate();

    /// Asks for the file's name, by default with a dialog; an empty name is a refusal.
    std::function<QString()> ChooseName;

private:
    QString AskForName();
    void Save();
    void Copy();

    QPixmap picture_;
    QString name_;
    QWidget* view_;
    QLabel* told_;
    QPushButton* save_;
    QPushButton* copy_;
    QPushButton* close_;
};

} // namespace pulselark
