#pragma once

#include <QWidget>

class QProgressBar;

namespace pulselark {

/// The progress form: a line of text over a bar `picPB`, in the middle of its window.
class frmProgressBar final : public QWidget {
    Q_OBJECT

public:
    explicit frmProgressBar(QWidget* window);

    void SetCaption(const QString& caption);
    /// Shows the form at once, with 0 to 100 percent done.
    void Draw(double percent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString caption_;
    QProgressBar* bar_;
};

} // namespace pulselark
