#pragma once

#include <QWidget>

namespace pulselark {

enum class Module;

/// The numbers of the second as text, in the place of a module whose panels are not drawn.
class NumbersView final : public QWidget {
    Q_OBJECT

public:
    NumbersView(Module module, QWidget* parent);

    void Mirror();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Module module_;
    QStringList lines_;
};

} // namespace pulselark
